#include "mainscreen/RefreshTitleAndMenus.h"

#include <cstdio>

#include "boardio/BoardSet.h"
#include "configuration/StringTable.h"
#include "configuration/clsExeOrIDE.h"

namespace vantrellion {

namespace {
std::string HexUpper(int16_t value) {
    char buf[8];
    std::snprintf(buf, sizeof buf, "%X", static_cast<unsigned>(static_cast<uint16_t>(value)));
    return buf;
}
}  // namespace

std::string MainScreenTitle(const System& s) {
    const ModRelay& m = s.modRelay;
    if (s.frmRelay.AutoRestarted != 0) return StringTableText(StringId::AutomaticRestartTitle);
    if (!m.DataFilePath.empty() && !m.DataFileName.empty()) return m.DataFilePath + m.DataFileName;
    return "New";
}

void RefreshTitleAndMenus(System& s) {
    ModRelay& m = s.modRelay;
    MainScreenView& v = s.screen();

    v.SetTitle(MainScreenTitle(s));  // 1

    v.SetEnabled(
        Control::mnuFileSave, 0,  // 2
        s.frmRelay.AutoRestarted == 0 && !m.DataFilePath.empty() && !m.DataFileName.empty());

    if (m.LoggingOnOff == -1) {  // 3
        v.SetText(Control::mnuToolLogging, 0, "Logging (On)");
        v.SetChecked(Control::mnuToolLogging, 0, true);
        if (m.LogFilePath.empty() || m.LogFilePath == " ")
            m.LogFilePath = s.platform.machineDirectory;
    } else {
        v.SetText(Control::mnuToolLogging, 0, "Logging (Off)");
        v.SetChecked(Control::mnuToolLogging, 0, false);
    }

    // A board driven through a connection of its own (a Modbus module, a USB card...) is there
    // whatever its port address says; the port address names a board of the port library.
    const auto connectedOther = [&s](int b) -> std::string {
        if (!s.platform.boards || b > LastBoard) return "";
        const std::string& text = s.platform.boards->Connection(b);
        if (text.empty() || text.rfind("ports://", 0) == 0 || text.rfind("emulated://", 0) == 0 ||
            !s.platform.boards->Problem(b).empty())
            return "";
        return text;
    };
    bool anyBoard = false;
    for (int b = 0; b < BoardSlots; ++b)
        anyBoard = anyBoard || m.Board[b].BaseAddress != 0 || !connectedOther(b).empty();
    if (m.RunNoBoards == 0 && anyBoard) {  // 4
        m.RunNoBoards = False;
        v.SetChecked(Control::mnuToolRunNoBoards, 0, false);
        v.SetText(Control::mnuToolRunNoBoards, 0, "Emulation Mode (Currently Running with Boards)");
        for (int n = 0; n < BoardSlots; ++n)
            v.SetEnabled(Control::mnuStateDisplayInput, n, true);
        std::string address;
        for (int b = 0; b <= LastBoard; ++b) {
            const std::string other = connectedOther(b);
            address += "   B" + std::to_string(b + 1) +
                       (other.empty() ? "@H" + HexUpper(m.Board[b].BaseAddress) : " " + other);
        }
        v.SetText(Control::mnuDisplayAddress, 0, address);
    } else {  // 5
        m.RunNoBoards = True;
        v.SetText(Control::mnuDisplayAddress, 0, "Currently Running in Emulation Mode");
        v.SetChecked(Control::mnuToolRunNoBoards, 0, true);
        v.SetText(Control::mnuToolRunNoBoards, 0,
                  "Emulation Mode (Currently Running in Emulation Mode)");
        for (int n = 0; n < BoardSlots; ++n)
            v.SetEnabled(Control::mnuStateDisplayInput, n, false);
    }

    if (RunningInIDE() != 0) {  // 6
        v.SetVisible(Control::mnuDev, 0, true);
        v.SetEnabled(Control::mnuDev, 0, true);
    }

    for (int n = 1; n <= 3; ++n) {  // 7
        v.SetEnabled(Control::mnuStateManualBoard, n, false);
        v.SetEnabled(Control::mnuStateDisplayState, n, false);
        v.SetEnabled(Control::mnuStateDisplayInput, n, false);
    }

    v.SetText(Control::mnuHelpTimeWin, 0,  // 8
              m.TimeWindowShown != 0 ? "Time Window (Remove)" : "Time Window (Show)");
}

}  // namespace vantrellion

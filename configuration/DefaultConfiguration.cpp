#include "configuration/DefaultConfiguration.h"

#include "core/NumericText.h"
#include "configuration/clsConfiguration.h"

namespace vantrellion {

std::string DefaultChipSetTypeText(int board) {
    return StringTableListItem(StringId::DefaultChipSetType, board);
}

std::string DefaultAddressText(int listIndex, int board) {
    return StringTableListItem(DefaultAddressListIds.at(static_cast<size_t>(listIndex)), board);
}

std::string DefaultRelayName(int relay) {
    return "Relay: " + std::to_string(relay + 1);
}

Color DefaultStatusColor(int index) {
    return StringTableColor(StringId::DefaultStatusColor + index);
}

Color DefaultGroupColor(int group) {
    return StringTableColor(StringId::DefaultGroupColor + group);
}

void ConfigurationLoadDefaults(System& s) {
    ModRelay& m = s.modRelay;
    // The screens offer defaults for board 0 only.
    BoardRecord& board = m.Board[0];
    board.ChipSetType = DefaultChipSetTypeText(0);
    int16_t* const addresses[] = {&board.BaseAddress, &board.InputAddress, &board.CntlAddress,
                                  &board.PortConfigValue};
    for (int n = 0; n < static_cast<int>(DefaultAddressListIds.size()); ++n)
        if (const auto v = ParseHexAddress(DefaultAddressText(n, 0))) *addresses[n] = *v;
    for (int r = 0; r < RelaysPerBoard; ++r)
        board.RelayName[r] = DefaultRelayName(r);
    board.LogBoard = 1;
    board.ResetOnExit = 1;
    m.WarnOverLapTime = True;
    m.LogFilePath = DefaultLogFilePath(s);

    m.ColorNameBkgrnd = DefaultStatusColor(0);
    m.ColorRelayON = DefaultStatusColor(1);
    m.ColorRelayOFF = DefaultStatusColor(2);
    m.ColorTimeON = DefaultStatusColor(3);
    m.ColorTimeOFF = DefaultStatusColor(4);
    m.ColorManualON = DefaultStatusColor(5);
    m.ColorManualOFF = DefaultStatusColor(6);
    m.ColorInputON = DefaultStatusColor(7);
    m.ColorInputOFF = DefaultStatusColor(8);
    m.ColorTTimeBkgrnd = DefaultStatusColor(9);
    for (int g = 0; g < static_cast<int>(m.ColorRelayGroup.size()); ++g)
        m.ColorRelayGroup[g] = DefaultGroupColor(g);
}

}  // namespace vantrellion

#include <algorithm>

#include "configuration/ConfigurationValueNames.h"
#include "configuration/MachineLocation.h"
#include "configuration/ProgramLocation.h"
#include "configuration/VersionShape.h"
#include "configuration/clsConfiguration.h"
#include "configuration/modRegAPI.h"

namespace vantrellion {

namespace {

// The errors of one load: the first shows the box, the later ones nothing.
class LoadErrors {
  public:
    explicit LoadErrors(System& s) : s_(s) {}
    void Report(const RunTimeError& e) {
        if (shown_) return;
        shown_ = true;
        s_.Message(
            MessageBoxRequest{e.Description + "\r\nConfiguration Load Errors\r\n\r\n"
                                              "Correct the Problem or \r\n\r\n"
                                              "ReEnter Board Values, ('File, Configuration)\r\n"
                                              "Then 'Save', to correct",
                              Buttons::OK, Icon::Exclamation, 1, "Load Configuration Error "});
    }
    void Report(const std::optional<RunTimeError>& e) {
        if (e) Report(*e);
    }

  private:
    System& s_;
    bool shown_ = false;
};

std::string Read(System& s, const std::string& name) {
    return RegReadWithMessages(s, HKEY_LOCAL_MACHINE, ConfigKeyRead, name);
}

// A value converted to a number; one that fails its conversion keeps its earlier content.
template <typename T>
void LoadNumber(System& s, LoadErrors& errors, const std::string& name, T& target) {
    const std::string text = Read(s, name);
    Converted<T> v;
    if constexpr (sizeof(T) == 2)
        v = TextToInt16(text);
    else
        v = TextToInt32(text);
    if (v.Ok)
        target = v.Value;
    else
        errors.Report(v.Error);
}

}  // namespace

void ConfigurationLoadFromReg(System& s) {
    ModRelay& m = s.modRelay;
    // 1-2. Nothing is read from a store that holds no configuration.
    if (IsRegSentinel(m.FileVersion)) return;
    m.FileVersion = ConfigurationLoadVersionFromReg(s);
    if (IsRegSentinel(m.FileVersion)) return;  // removed since the caller's read
    LoadErrors errors(s);

    // 3. The stored shape bounds the loops, cut to this build's own. A version text without a
    // readable shape is never written by the program: it is told as a load error, and the
    // build's own bounds serve.
    const auto storedBoard = VersionShapeDigit(m.FileVersion, ShapeBoardPosition);
    const auto storedRelay = VersionShapeDigit(m.FileVersion, ShapeRelayPosition);
    if (!storedBoard || !storedRelay) errors.Report(TypeMismatchError());
    const int boardBound = std::min<int>(storedBoard.value_or(LastBoard), LastBoard);
    const int relayBound = std::min<int>(storedRelay.value_or(LastRelay), LastRelay);

    // 4. A load repairs a moved installation.
    ConfigurationInstallPathSave(s, ProgramDirectory());
    ConfigurationInstallNameSave(s, ProgramName());

    // 5-7.
    errors.Report(ConfigurationFlagLoggingLoad(s, m.LoggingOnOff));
    errors.Report(ConfigurationFlagRunNoBoardsLoad(s, m.RunNoBoards));
    m.LogFilePath = Read(s, "LogFilePath");
    m.LogFileName = Read(s, "LogFileName");
    m.DataFilePath = Read(s, "DataFilePath");
    m.DataFileName = Read(s, "DataFileName");
    {
        const auto v = TextToDouble(Read(s, "WarnOverLapTime"));
        if (!v.Ok)
            errors.Report(v.Error);
        else if (v.Value == 0)
            m.WarnOverLapTime = False;
        else if (v.Value == 1)
            m.WarnOverLapTime = True;
    }

    // 8-9. The groups stop at the stored relay bound: a narrower configuration leaves the
    // remaining groups as they were.
    for (const auto& c : NamedColors)
        LoadNumber(s, errors, c.Name, m.*c.Member);
    for (int g = 0; g <= relayBound; ++g)
        LoadNumber(s, errors, GroupColorValueName(g), m.ColorRelayGroup[g]);

    // 10. The relay names are always eight.
    for (int b = 0; b <= boardBound; ++b) {
        BoardRecord& board = m.Board[b];
        board.ChipSetType = Read(s, BoardValueName("ChipSetType", b));
        for (const auto& n : BoardNumbers)
            LoadNumber(s, errors, BoardValueName(n.Stem, b), board.*n.Member);
        for (int r = 0; r < RelaysPerBoard; ++r)
            board.RelayName[r] = Read(s, RelayNameValueName(b, r));
    }

    // The location for sun times; a store without it is a machine without one, told only
    // where a sun time is used.
    LoadMachineLocation(s);
}

}  // namespace vantrellion

#include "configuration/ConfigurationValueNames.h"
#include "configuration/clsConfiguration.h"
#include "configuration/modRegAPI.h"

namespace vantrellion {

namespace {

void Write(System& s, const std::string& name, const std::string& value) {
    RegWriteValue(s, HKEY_LOCAL_MACHINE, ConfigKeyWrite, "String", name, value);
}

// The layer refuses empty values, so an empty text is stored, and kept, as one blank.
void BlankIfEmpty(std::string& text) {
    if (text.empty()) text = " ";
}

}  // namespace

int32_t ConfigurationSaveToReg(System& s) {
    ModRelay& m = s.modRelay;
    // A value that cannot be written has been told by the layer; the save goes on regardless.
    ConfigurationFlagLoggingSave(s, m.LoggingOnOff);
    ConfigurationFlagRunNoBoardsSave(s, m.RunNoBoards);

    // Only a full save stamps the version.
    m.FileVersion = ComposeFileVersion();
    Write(s, "ConfigVersion", m.FileVersion);

    if (m.LogFilePath.empty()) m.LogFilePath = DefaultLogFilePath(s);
    Write(s, "LogFilePath", m.LogFilePath);
    if (m.LogFileName.empty()) m.LogFileName = DefaultLogFileName;
    Write(s, "LogFileName", m.LogFileName);
    if (m.DataFilePath.empty()) m.DataFilePath = s.platform.documentsDirectory;
    Write(s, "DataFilePath", m.DataFilePath);
    if (m.DataFileName.empty()) m.DataFileName = DefaultDataFileName;
    Write(s, "DataFileName", m.DataFileName);
    Write(s, "WarnOverLapTime", m.WarnOverLapTime == 0 ? "0" : "1");

    for (const auto& c : NamedColors)
        Write(s, c.Name, std::to_string(m.*c.Member));
    for (int g = 0; g < static_cast<int>(m.ColorRelayGroup.size()); ++g)
        Write(s, GroupColorValueName(g), std::to_string(m.ColorRelayGroup[g]));

    // The build's boards only: stored values of other boards stay in the key as they are.
    for (int b = 0; b <= LastBoard; ++b) {
        BoardRecord& board = m.Board[b];
        BlankIfEmpty(board.ChipSetType);
        Write(s, BoardValueName("ChipSetType", b), board.ChipSetType);
        for (const auto& n : BoardNumbers)
            Write(s, BoardValueName(n.Stem, b), std::to_string(board.*n.Member));
        for (int r = 0; r < RelaysPerBoard; ++r) {
            BlankIfEmpty(board.RelayName[r]);
            Write(s, RelayNameValueName(b, r), board.RelayName[r]);
        }
    }
    return 0;
}

}  // namespace vantrellion

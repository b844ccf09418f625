#include "configuration/BoardConnections.h"

#include "boardio/BoardDriver.h"
#include "boardio/BoardSet.h"
#include "configuration/clsConfiguration.h"
#include "configuration/modRegAPI.h"

namespace vantrellion {

std::string BoardConnectionMessage(int board, const std::string& text, const std::string& problem) {
    return "Board " + std::to_string(board + 1) + ": the connection \"" + text +
           "\" cannot be used: " + problem +
           ".\r\nThe board runs emulated until its connection "
           "is corrected in the configuration screen.";
}

void LoadBoardConnections(System& s) {
    if (!s.platform.boards) return;
    for (int b = 0; b <= LastBoard; ++b) {
        const std::string text = ConfigurationBoardConnectionLoad(s, b);
        const std::string problem = s.platform.boards->SetConnection(b, text);
        if (!problem.empty())
            s.Message(
                {.Prompt = BoardConnectionMessage(b, text, problem), .BoxIcon = Icon::Exclamation});
    }
}

bool SaveBoardConnection(System& s, int board, const std::string& text) {
    if (!text.empty()) {
        const std::string problem = CheckBoardConnection(text);
        if (!problem.empty()) {
            s.Message({.Prompt = "Board " + std::to_string(board + 1) + ": the connection \"" +
                                 text + "\" cannot be used: " + problem + ".",
                       .BoxIcon = Icon::Exclamation});
            return false;
        }
        ConfigurationBoardConnectionSave(s, board, text);
    } else if (ConfigurationBoardConnectionLoad(s, board) != "") {
        RegDeleteValue(s, HKEY_LOCAL_MACHINE, ConfigKeyRead,
                       "BoardConnection" + std::to_string(board + 1));
    }
    if (s.platform.boards) s.platform.boards->SetConnection(board, text);
    return true;
}

}  // namespace vantrellion

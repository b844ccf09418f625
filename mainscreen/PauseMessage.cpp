#include "mainscreen/PauseMessage.h"

namespace vantrellion {

std::string PauseTitle(int board, const std::string& stateWord) {
    return "System is Paused (All board " + std::to_string(board) + " Relays are " + stateWord +
           ")";
}

void PauseMessage(System& s, int board, const std::string& stateWord) {
    s.Message(MessageBoxRequest{.Prompt = "When you are ready to Continue, press 'OK' ",
                                .ButtonSet = Buttons::OK,
                                .Title = PauseTitle(board, stateWord)});
}

}  // namespace vantrellion

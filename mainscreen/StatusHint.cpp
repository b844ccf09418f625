#include "mainscreen/StatusHint.h"

namespace vantrellion {

void ShowStatusHint(System& s, const std::string& text) {
    if (s.frmRelay.RowsShown == 0) return;
    if (text.empty()) {
        s.screen().SetText(Control::StatusBar1, 5, "");
        s.screen().SetStatusFont(StatusPlainPoints, false);
    } else {
        s.screen().SetText(Control::StatusBar1, 5, "> " + text + " <");
        s.screen().SetStatusFont(StatusHintPoints, true);
    }
}

}  // namespace vantrellion

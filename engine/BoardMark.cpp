#include "engine/BoardMark.h"

#include "boardio/BoardSet.h"
#include "boardio/BoardStatusDisplay.h"

namespace vantrellion {

namespace {

bool AnyBoardDriven(const System& s) {
    for (int b = 0; b <= LastBoard; ++b) {
        if (s.platform.boards ? s.platform.boards->Driven(s, b)
                              : s.platform.ports && s.platform.ports->Reachable())
            return true;
    }
    return false;
}

}  // namespace

void ShowBoardMark(System& s) {
    const bool mark = s.modRelay.RunNoBoards == 0 && !AnyBoardDriven(s);
    const std::string text = mark ? NoBoardDrivenMark : "";
    if (text == s.frmRelay.BoardMark || !s.platform.screen) return;
    s.frmRelay.BoardMark = text;
    MainScreenView& v = s.screen();
    v.SetText(Control::StatusBar1, 1, text);
    v.SetBackColor(Control::StatusBar1, 1, mark ? NoContactColor : DefaultBackColor);
}

}  // namespace vantrellion

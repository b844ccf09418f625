// The row commands from the keyboard. Manual, Invert, the counter, the stop and the row's icon
// take the focus by Tab, after the row's schedule fields (never by a click, so that a click
// does what it always did), and wear a frame while they have it. Space on one of them is its
// click (for the counter, the left press). The Menu key or Shift+F10 on one of them opens the
// row's commands as a menu: Manual, Invert, Counter, Reset Counter (the right press), Stop and
// the choice of the icon, each doing what its click does.
#pragma once

#include "core/SharedState.h"

namespace vantrellion {

class frmRelay;

void WireRowKeyboard(frmRelay& w, System& s);

}  // namespace vantrellion

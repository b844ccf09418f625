// The events of the relay rows of the main screen, passed to the core: text changed, got
// focus, key pressed and mouse moved of the schedule fields; clicks, presses and mouse moves
// of the labels and images. Tool tips are set on the first mouse move over a control.
#pragma once

#include "core/SharedState.h"

namespace vantrellion {

class frmRelay;

// Connects every row control of the window to the core, installs the validation on leaving a
// schedule field (desktop/FieldValidation.h), and has every menu command and the close path
// validate the field with the focus first. The row commands are wired to the keyboard too
// (desktop/RowKeyboard.h).
void WireRowEvents(frmRelay& w, System& s);

}  // namespace vantrellion

// The tool tips of the row controls. They are fetched from the string table the first time the
// mouse moves over a control whose tool tip is still empty, and kept from then on.
#pragma once

#include <string>

#include "core/MainScreenView.h"

namespace vantrellion {

// The string id of a control's tool tip; 0 for a control that has none.
int ToolTipStringId(Control c);

// The tool tip a control is to carry after a mouse move: its present one when it has one,
// otherwise the text of the string table.
std::string LazyToolTip(Control c, const std::string& present);

}  // namespace vantrellion

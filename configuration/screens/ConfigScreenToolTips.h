// The tool tips of the configuration screens, fetched from the string table by control name
// when first needed. Ids and controls are not one to one: several controls share a text, and
// some fetch another control's id (lblLoggingYN shows the log directory's text, lblBackground
// the chip type's).
#pragma once

#include <string>

namespace vantrellion {

// The string id of a control's tool tip (index is the control array index); 0 for a control
// without one.
int ConfigToolTipId(const std::string& controlName, int index = 0);
// The tool tip's text; "" for a control without one.
std::string ConfigToolTip(const std::string& controlName, int index = 0);

}  // namespace vantrellion

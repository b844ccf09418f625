#pragma once

#include <string>

#include "core/SharedState.h"

namespace vantrellion {

// Unexpected errors on the main screen: the error's source as title, its description and
// number as text, with the exclamation icon. The program goes on.
void ErrorMsgbox_DefaultError(System& s, const std::string& description, int number,
                              const std::string& source);

}  // namespace vantrellion

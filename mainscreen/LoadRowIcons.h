#pragma once

#include "core/SharedState.h"

namespace vantrellion {

// Loads each row's own icon file after a schedule was loaded. Only the first failure of a
// pass is reported, and only when reportErrors is set.
void LoadRowIcons(System& s, bool reportErrors);

}  // namespace vantrellion

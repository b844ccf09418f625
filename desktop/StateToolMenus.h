// The commands of the "States/Inputs", "&Tool" and "Dev" menus and of the hidden Edit entry,
// wired to the main window's menu items.
#pragma once

#include "core/SharedState.h"
#include "desktop/frmRelay.h"

namespace vantrellion {

// Connects every State and Tool command, and the developer menu where the build has one. The
// Tool menu's log viewer, log removal and run-on-boot entries are not wired here.
void WireStateToolMenus(frmRelay& w, System& s);

}  // namespace vantrellion

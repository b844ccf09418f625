// The remembered place of a window, in one call each: RestoreFormPosition at the end of the
// window's load (before it is shown), SaveFormPosition at its unload (when it has closed, or
// just before). The window is known by its objectName, which must be one of the program's
// window names (frmAbout, frmLogFileViewer, ...).
#pragma once

#include <QWidget>

#include "core/SharedState.h"

namespace vantrellion {

void RestoreFormPosition(System& s, QWidget& window);
void SaveFormPosition(System& s, QWidget& window);

// For windows that do not hold the System: the running program's, registered by it. Without a
// registered program they do nothing.
void RegisterFormPositionSystem(System* s);
void RestoreFormPosition(QWidget& window);
void SaveFormPosition(QWidget& window);

}  // namespace vantrellion

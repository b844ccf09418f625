// modShowSubForms: one wrapper per sub-window. Each creates a new instance of the window, shows
// it modally with no owner, and drops it when the window has closed. The modal wait does not
// stop tmrCheckTime; a caller that needs the tick held suspends it around the call. The
// configuration screens and the log directory chooser have theirs in ShowConfigForms.h.
#pragma once

#include "core/SharedState.h"
#include "desktop/ShowConfigForms.h"

namespace vantrellion {

void ShowHelpGeneralForm(System& s);
void ShowHelpConfigurationForm(System& s);
void ShowLogFileDeleteForm(System& s);
void ShowLogFileViewerForm(System& s);
void ShowSplashForm();
void ShowAboutForm(System& s);

}  // namespace vantrellion

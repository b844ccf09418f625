// The program's windows by name: their default places, and the calls that restore and save a
// window's place under SOFTWARE\Vantrellion\Startup of the machine-wide root.
#pragma once

#include <string>

#include "core/FormWindow.h"
#include "core/SharedState.h"

namespace vantrellion {

// The default text of a window on its present screen, or false for a window that is not one of
// the program's.
bool DefaultFormPosition(const FormWindow& form, std::string& text);

// Applies the stored place, or the default. A window that is not one of the program's shows
// "Prior Position Not Set" and stays where it is.
void GetFormPriorPosition(System& s, FormWindow& form);
// Stores the window's place, unless it is minimised or maximised. Any window may be stored.
void SetFormCurrPosition(System& s, FormWindow& form);

// What a window calls at the end of its load and at its unload.
void RestoreFormPosition(System& s, FormWindow& form);
void SaveFormPosition(System& s, FormWindow& form);

}  // namespace vantrellion

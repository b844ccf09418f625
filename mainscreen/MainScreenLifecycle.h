// Creation, loading and closing of the main screen, in their fixed order.
#pragma once

#include "core/SharedState.h"

namespace vantrellion {

void Form_Initialize(System& s);
void Form_Load(System& s);
// The close question. True cancels the close: the program stays up and the tick resumes.
bool Form_QueryUnload(System& s);
// The clean exit: restart file removed, relays let go.
void Form_Unload(System& s);

}  // namespace vantrellion

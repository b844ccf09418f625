// The schedule fields of a loaded Run File, held to the rules of field entry. A file written
// by hand or damaged may hold a text that field entry would never have let through, such as a
// time "8:00 xm" or a code "999999"; run by the engine, such a text would end the program at
// its first tick, and at every start after from the restart file. Each such field is loaded
// blank instead, so that its pair or rule does nothing, and the rest of the schedule runs.
#pragma once

#include <string>

#include "core/SharedState.h"

namespace vantrellion {

// Blanks every schedule field of the relay records and time arrays that field entry would not
// store exactly as it stands, and names them all in one message together with the file.
// Returns the number of fields blanked.
int BlankFieldsEntryWouldRefuse(System& s, const std::string& fileName);

}  // namespace vantrellion

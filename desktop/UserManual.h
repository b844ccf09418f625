// The user's manual: one HTML file, installed with the program under
// share/doc/vantrellion/manual/ and shown by the desktop's own browser.
#pragma once

#include <QString>

#include "core/SharedState.h"

namespace vantrellion {

// Where the manual is installed by the package.
inline constexpr const char* InstalledManualFile = "/usr/share/doc/vantrellion/manual/index.html";

// The manual of this program: under share/doc/vantrellion/manual/ of the prefix that the
// program's real file is installed in (bin/, lib/vantrellion/ or lib/<multiarch>/vantrellion/),
// or of the build it was built in. Empty when none is there.
QString UserManualFile();

// Opens the manual in the desktop's browser. A manual that is not there, or that no program
// can show, is told in one box that names the file.
void OpenUserManual(System& s, const QString& file = UserManualFile());

}  // namespace vantrellion

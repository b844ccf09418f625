// Where the running program stands, as the configuration records it in InstallPath and
// InstallName: the folder of the program file without a trailing "/", and the file's name
// without its extension.
#pragma once

#include <string>

namespace vantrellion {

std::string ProgramDirectory();
std::string ProgramName();

}  // namespace vantrellion

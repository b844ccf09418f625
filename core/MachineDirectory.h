// The per-user machine directory: $XDG_DATA_HOME/vantrellion/, by default
// ~/.local/share/vantrellion/, always written with its trailing "/".
#pragma once

#include <string>

namespace vantrellion {

// The directory's name for this user, from the environment. Does not create it.
std::string DefaultMachineDirectory();

// Creates the directory and its missing parents. False when that fails.
bool EnsureDirectory(const std::string& path);

}  // namespace vantrellion

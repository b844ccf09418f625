// What is wrong with a Run File that did not load, in plain words for a person at a terminal
// rather than in the words of the program's boxes: that the file is missing or no Run File,
// or on which line it is damaged and what that line should hold.
#pragma once

#include <string>

#include "runfile/RunFileLoad.h"

namespace vantrellion {

// The text for the file named `file` (as the user named it); empty for a load that went well.
std::string RunFileProblemText(const std::string& file, const RunFileLoadProblem& problem);

}  // namespace vantrellion

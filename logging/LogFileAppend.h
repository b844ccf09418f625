// One line onto the end of a log file: open, write, close, so that a crash loses at most the
// line in hand and other windows may read, copy or delete the file between lines.
#pragma once

#include <string>

namespace vantrellion {

// Appends line (UTF-8) and CR LF to fullName, creating the file if need be. The file's text
// is Latin-1 as long as every character fits, else UTF-8. Every error is ignored: a missing
// directory, a read-only file or a full disk loses the line and nothing else.
void AppendLogLine(const std::string& fullName, const std::string& line);

}  // namespace vantrellion

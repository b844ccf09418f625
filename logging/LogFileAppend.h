// One line onto the end of a log file: open, write, close, so that a crash loses at most the
// line in hand and other windows may read, copy or delete the file between lines.
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <string>

namespace vantrellion {

// Appends line (UTF-8) and CR LF to fullName, creating the file, and its directory when that
// has gone, if need be. The line reaches the file whole or not at all: a write that comes up
// short (a full disk) is cut back off, so that no torn line runs into the next. The file's
// text is Latin-1 as long as every character fits, else UTF-8. Every error is ignored: a
// read-only file or a full disk loses the line and nothing else.
void AppendLogLine(const std::string& fullName, const std::string& line);

// The write call of the log writer; tests put in their own to make a write come up short.
using LogWriteCall = ssize_t (*)(int fd, const void* data, size_t size);
void SetLogWriteCall(LogWriteCall call);  // nullptr puts the system's write back

}  // namespace vantrellion

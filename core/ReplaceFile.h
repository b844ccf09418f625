// Writing a whole file so that a kill or a power cut at any moment leaves either the old
// contents or the new ones, never an empty or short file.
#pragma once

#include <cstddef>
#include <string>

namespace vantrellion {

struct FileWriteResult {
    enum class Stage {
        Done,
        Open,   // the file could not be opened or created; nothing was written
        Write,  // writing failed; written bytes got out before it did
    };
    Stage stage = Stage::Done;
    int error = 0;  // errno of the failure
    size_t written = 0;
};

// Replaces the contents of fullName by bytes. A regular file (or a new one) is written to a
// temporary file in the same directory, forced to the disk, renamed over the old one, and
// the directory forced to the disk too. A symbolic link is followed and stays a link; the
// file keeps its mode, and its owner where the system lets it. A file that may be written but
// whose directory takes no new file is written in place, as is anything that is not a
// regular file (a device, a pipe). A read-only file or an unwritable directory fails at the
// open, as a plain open for writing would.
FileWriteResult ReplaceFileContents(const std::string& fullName, const std::string& bytes);

}  // namespace vantrellion

// What the log viewer and the log deletion window decide without a window: the open dialog of
// the viewer, its boxes, the file pattern of the deletion list and the names it deletes.
#pragma once

#include <string>
#include <vector>

#include "core/SharedState.h"

namespace vantrellion {

// The file pattern of the deletion list, "Vantrellion*.log", compared without regard to case.
inline constexpr const char* LogFilePattern = "Vantrellion*.log";
bool MatchesLogFilePattern(const std::string& fileName);

// The regular files of directory that match the pattern, by name; none when the directory
// cannot be read.
std::vector<std::string> ListLogFiles(const std::string& directory);

// A directory of the deletion window as it holds it: with its closing "/", as a drive root
// carries its closing separator, so that the file's name joins on directly.
std::string DirectoryWithSeparator(const std::string& directory);

// The file to delete: the directory as the window holds it followed directly by the name.
std::string LogFileDeletePath(const std::string& directory, const std::string& fileName);

// The viewer's open dialog: today's log at the moment of the last write, in LogFilePath.
FileDialogRequest LogFileOpenRequest(const System& s);

// The one box for a log that cannot be read.
MessageBoxRequest UnreadableLogFileBox();

// A plain box without title: the error's description, number and source on three lines.
MessageBoxRequest DefaultErrorBox(const std::string& description, int number,
                                  const std::string& source);

}  // namespace vantrellion

// The names of the files that the schedule preview and the run-time history export (pictures
// and CSV), from their windows and from their command lines alike, and of a Run File saved
// under a new name: a name typed without an extension gets the type's, and the export
// windows' save dialogs start in the documents folder.
#pragma once

#include <optional>
#include <string>

#include "core/SharedState.h"

namespace vantrellion {

// The name with `extension` (".png") added when its file name, the part after the last "/",
// holds no "." at all: "week" and "out/week" become "week.png" and "out/week.png", while
// "week.png", "week.PNG" and "week.old" stay as they are.
std::string WithExtension(const std::string& path, const std::string& extension);

// True when two names stand for one file: the same path once "." and ".." and repeated "/"
// are resolved against the current directory, or one existing file reached by both (a link).
bool NameTheSameFile(const std::string& a, const std::string& b);

// What an export asks for: the dialog's title and filter ("PNG Picture (*.png)|*.png"), the
// name it proposes and the type's extension.
struct ExportFileRequest {
    std::string Title;
    std::string Filter;
    std::string SuggestedName;
    std::string Extension;
};

// Asks for the file to export to in the save dialog, which starts in the user's documents
// folder and asks before replacing a file. The chosen name gets the extension when it has
// none; when the name so made is an existing file that the dialog did not ask about, a box
// asks before replacing it. Nothing when the user cancels or declines, or when there are no
// dialogs.
std::optional<std::string> AskExportFileName(System& s, const ExportFileRequest& request);

}  // namespace vantrellion

// The program's side of the print module: loads it at the first print or SVG picture, and
// turns a print that did not take place into its box.
#pragma once

#include <QWidget>
#include <string>

#include "core/SharedState.h"
#include "desktop/printing/PrintFunctions.h"

namespace vantrellion {

// The boxes of a print that did not take place. No print ever ends the program: a cancel, a
// printer that cannot be started and a print module that cannot be loaded each get one box,
// and the program goes on.
inline constexpr const char* PrintCancelledText = "Printing was cancelled: nothing was printed.";
inline constexpr const char* NoPrinterText =
    "The printer could not be started: nothing was printed.\r\nSet up a printer, or choose "
    "\"Print to File (PDF)\" in the print dialog.";
std::string PrintModuleMissingText(const std::string& path, const std::string& why);

// The module beside the program's real file.
std::string DefaultPrintModulePath();
// The functions of the module in path, which stays loaded; null, with why set, when it cannot
// be loaded. The program uses the one beside it, loaded at its first print or SVG picture (and
// tried again at the next one when that failed).
const PrintFunctions* LoadPrintModule(const std::string& path, std::string& why);

// The print dialog (the selection offered when hasSelection), then paint onto the printer
// chosen; a print that did not take place gets its box. True when the document went to the
// printer.
bool PrintDocument(System& s, QWidget* parent, bool hasSelection, const PaintDocument& paint);

// An SVG picture through the module; false when the module or the file fails. When the module
// cannot be loaded, moduleProblem (if given) gets PrintModuleMissingText.
bool WriteSvgPicture(const QString& path, QSize size, const QString& title,
                     const PaintPicture& paint, std::string* moduleProblem = nullptr);

}  // namespace vantrellion

// Where a print goes. The user picks a printer (or a PDF file) in Qt's print dialog; tests put
// a choice in its place that prints to a PDF file and never reaches a real printer.
#pragma once

#include <QPrinter>
#include <QWidget>
#include <functional>

#include "core/SharedState.h"

namespace vantrellion {

class PrinterChoice {
  public:
    virtual ~PrinterChoice() = default;
    // Sets printer up for one document; false when the user cancelled. With hasSelection the
    // choice offers printing only the selection and starts with it (the printer's print range).
    virtual bool Choose(QPrinter& printer, QWidget* parent, bool hasSelection) = 0;
};

// Qt's print dialog, without page numbers.
class DialogPrinterChoice : public PrinterChoice {
  public:
    bool Choose(QPrinter& printer, QWidget* parent, bool hasSelection) override;
};

// The choice in use: Qt's print dialog unless another was set.
PrinterChoice& CurrentPrinterChoice();
// null puts Qt's print dialog back.
void SetPrinterChoice(PrinterChoice* choice);

// The boxes of a print that did not take place. No print ever ends the program: a cancel and a
// printer that cannot be started each get one box, and the program goes on.
inline constexpr const char* PrintCancelledText = "Printing was cancelled: nothing was printed.";
inline constexpr const char* NoPrinterText =
    "The printer could not be started: nothing was printed.\r\nSet up a printer, or choose "
    "\"Print to File (PDF)\" in the print dialog.";

// Puts the document onto the printer chosen; false when the printer cannot be painted on.
using PaintDocument = std::function<bool(QPrinter& printer)>;

// The choice in use (the selection offered when hasSelection), then paint onto the printer
// chosen; a print that did not take place gets its box. True when the document went to the
// printer.
bool PrintDocument(System& s, QWidget* parent, bool hasSelection, const PaintDocument& paint);

}  // namespace vantrellion

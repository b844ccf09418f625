// Where a print goes. The user picks a printer (or a PDF file) in Qt's print dialog; tests put
// a choice in its place that prints to a PDF file and never reaches a real printer.
#pragma once

#include <QPrinter>
#include <QWidget>

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

}  // namespace vantrellion

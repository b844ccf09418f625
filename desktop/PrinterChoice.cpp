#include "desktop/PrinterChoice.h"

#include <QPrintDialog>

namespace vantrellion {

namespace {

DialogPrinterChoice dialogChoice;
PrinterChoice* currentChoice = &dialogChoice;

}  // namespace

bool DialogPrinterChoice::Choose(QPrinter& printer, QWidget* parent, bool hasSelection) {
    QPrintDialog dialog(&printer, parent);
    QAbstractPrintDialog::PrintDialogOptions options = dialog.options();
    options &= ~QAbstractPrintDialog::PrintPageRange;  // no page numbers
    options.setFlag(QAbstractPrintDialog::PrintSelection, hasSelection);
    dialog.setOptions(options);
    printer.setPrintRange(hasSelection ? QPrinter::Selection : QPrinter::AllPages);
    return dialog.exec() == QDialog::Accepted;
}

PrinterChoice& CurrentPrinterChoice() {
    return *currentChoice;
}

void SetPrinterChoice(PrinterChoice* choice) {
    currentChoice = choice ? choice : &dialogChoice;
}

bool PrintDocument(System& s, QWidget* parent, bool hasSelection, const PaintDocument& paint) {
    QPrinter printer(QPrinter::HighResolution);
    if (!CurrentPrinterChoice().Choose(printer, parent, hasSelection)) {
        s.Message({PrintCancelledText});
        return false;
    }
    if (!printer.isValid() || !paint(printer) || printer.printerState() == QPrinter::Error) {
        s.Message({NoPrinterText});
        return false;
    }
    return true;
}

}  // namespace vantrellion

// What the print module (libVantrellionPrint.so, beside the program) offers the program: the
// print dialog with a print onto the printer chosen, and SVG pictures. The module alone links
// Qt's print support and SVG libraries, so a program that runs for months without printing
// never has them in its memory; the program loads it at the first print or SVG picture.
#pragma once

#include <QSize>
#include <QString>
#include <functional>

class QPagedPaintDevice;
class QPainter;
class QWidget;

namespace vantrellion {

enum class PrintOutcome { Printed, Cancelled, NoPrinter };

// Puts the document onto the printer chosen, whose resolution is dotsPerInch; false when the
// printer cannot be painted on.
using PaintDocument = std::function<bool(QPagedPaintDevice& printer, int dotsPerInch)>;
using PaintPicture = std::function<void(QPainter& painter)>;

struct PrintFunctions {
    // The print dialog (offering the selection when hasSelection), then paint onto the printer
    // chosen. Cancelled when the user cancelled; NoPrinter when the printer chosen cannot be
    // started or failed while printing.
    PrintOutcome (*Print)(QWidget* parent, bool hasSelection, const PaintDocument& paint);
    // An SVG picture of the given size and title painted by paint into path; false when the
    // file cannot be written.
    bool (*WriteSvg)(const QString& path, QSize size, const QString& title,
                     const PaintPicture& paint);
};

}  // namespace vantrellion

// The module's one entry point, looked up by this name.
extern "C" const vantrellion::PrintFunctions* VantrellionPrintFunctions();

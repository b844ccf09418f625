#include "desktop/printing/PrintFunctions.h"

#include <QFile>
#include <QPainter>
#include <QPrinter>
#include <QSvgGenerator>

#include "desktop/printing/PrinterChoice.h"

namespace vantrellion {

namespace {

PrintOutcome Print(QWidget* parent, bool hasSelection, const PaintDocument& paint) {
    QPrinter printer(QPrinter::HighResolution);
    if (!CurrentPrinterChoice().Choose(printer, parent, hasSelection))
        return PrintOutcome::Cancelled;
    if (!printer.isValid() || !paint(printer, printer.resolution()) ||
        printer.printerState() == QPrinter::Error)
        return PrintOutcome::NoPrinter;
    return PrintOutcome::Printed;
}

bool WriteSvg(const QString& path, QSize size, const QString& title, const PaintPicture& paint) {
    {
        // QSvgGenerator reports no write error; check first that the file can be written.
        QFile probe(path);
        if (!probe.open(QIODevice::WriteOnly | QIODevice::Truncate)) return false;
    }
    QSvgGenerator gen;
    gen.setFileName(path);
    gen.setSize(size);
    gen.setViewBox(QRect(QPoint(0, 0), size));
    gen.setTitle(title);
    QPainter p;
    if (!p.begin(&gen)) return false;
    paint(p);
    return p.end();
}

constexpr PrintFunctions functions{&Print, &WriteSvg};

}  // namespace

}  // namespace vantrellion

extern "C" const vantrellion::PrintFunctions* VantrellionPrintFunctions() {
    return &vantrellion::functions;
}

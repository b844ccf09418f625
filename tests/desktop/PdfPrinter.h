// A printer choice for tests: every print goes to a PDF file on A4, never to a real printer.
// It records what each choice was offered, and can answer as a user who cancels.
#pragma once

#include <QFile>
#include <QPageSize>
#include <QString>
#include <functional>
#include <string>
#include <vector>

#include "desktop/PrinterChoice.h"

namespace vantrellion::test {

class PdfPrinter : public PrinterChoice {
  public:
    explicit PdfPrinter(std::string file) : file_(std::move(file)) { SetPrinterChoice(this); }
    ~PdfPrinter() override { SetPrinterChoice(nullptr); }

    bool cancel = false;
    std::vector<bool> offeredSelection;  // one entry per choice
    std::function<void()> onChoose;      // runs while the choice is made

    bool Choose(QPrinter& printer, QWidget*, bool hasSelection) override {
        offeredSelection.push_back(hasSelection);
        if (onChoose) onChoose();
        if (cancel) return false;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(QString::fromStdString(file_));
        printer.setPageSize(QPageSize(QPageSize::A4));
        printer.setPrintRange(hasSelection ? QPrinter::Selection : QPrinter::AllPages);
        return true;
    }

    // The PDF's bytes; "" when nothing was printed.
    std::string Bytes() const {
        QFile f(QString::fromStdString(file_));
        return f.open(QIODevice::ReadOnly) ? f.readAll().toStdString() : std::string();
    }
    // The number of pages of the PDF.
    int Pages() const {
        const std::string pdf = Bytes();
        int pages = 0;
        for (size_t at = pdf.find("/Type /Page"); at != std::string::npos;
             at = pdf.find("/Type /Page", at + 1))
            if (pdf.compare(at, 12, "/Type /Pages") != 0) ++pages;
        return pages;
    }

  private:
    std::string file_;
};

}  // namespace vantrellion::test

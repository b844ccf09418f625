#include "desktop/clsPrintScreenOrForm.h"

#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QPainter>
#include <QScreen>

#include "core/MachineDirectory.h"
#include "desktop/PrinterChoice.h"
#include "desktop/QtConvert.h"

namespace vantrellion {

namespace {

constexpr double TwipsPerInch = 1440.0;

QScreen* ScreenOf(QWidget* window) {
    QScreen* screen = window ? window->screen() : nullptr;
    return screen ? screen : QGuiApplication::primaryScreen();
}

bool AllBlack(const QImage& image) {
    // A few sample points suffice: a real desktop is never black at all of them.
    const int w = image.width(), h = image.height();
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x)
            if (image.pixel(w * (2 * x + 1) / 8, h * (2 * y + 1) / 8) != qRgb(0, 0, 0))
                return false;
    return true;
}

}  // namespace

QImage GrabWindowPicture(QWidget* window) {
    return window ? window->window()->grab().toImage() : QImage();
}

QImage GrabScreenPicture(QWidget* window) {
    QScreen* screen = ScreenOf(window);
    if (!screen) return {};
    QImage picture = screen->grabWindow(0).toImage();
    if (!picture.isNull() && !AllBlack(picture)) return picture;

    // No picture from the window system (the offscreen platform, or a session that does not
    // hand out its screen): the program's visible windows in their places, the active one last.
    const QRect area = screen->geometry();
    picture = QImage(area.size(), QImage::Format_RGB32);
    picture.fill(QColor(0, 128, 128));
    QPainter painter(&picture);
    QWidget* active = QApplication::activeWindow();
    auto paint = [&](QWidget* w) {
        if (!w->isVisible() || w->isMinimized() || w->screen() != screen) return;
        painter.drawPixmap(w->geometry().topLeft() - area.topLeft(), w->grab());
    };
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w != active) paint(w);
    if (active) paint(active);
    return picture;
}

void clsPrintScreenOrForm::mPrintForm(QWidget* form) {
    Print(form, PrintedPicture::Window);
}

void clsPrintScreenOrForm::mPrintScreen(QWidget* form) {
    Print(form, PrintedPicture::Screen);
}

void clsPrintScreenOrForm::RunPendingEvents() {
    if (s_.pump().InputPending()) s_.pump().ProcessPendingEvents();
}

void clsPrintScreenOrForm::Print(QWidget* form, PrintedPicture kind) {
    QWidget* window = form ? form->window() : nullptr;
    // The menu that gave the command leaves the screen first.
    RunPendingEvents();
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    Picture =
        kind == PrintedPicture::Window ? GrabWindowPicture(window) : GrabScreenPicture(window);
    clipboard->setImage(Picture);
    RunPendingEvents();

    const bool printed = PrintDocument(s_, window, false, [&](QPrinter& printer) {
        QPainter painter;
        if (!painter.begin(&printer)) return false;
        // Lengths in twips: the printable width of the page, the picture at the screen's 15
        // twips to the pixel.
        const double dpi = printer.resolution();
        const double printerWidth = printer.width() * TwipsPerInch / dpi;
        const QSizeF size = Picture.deviceIndependentSize() * TwipsPerPixel;
        PrintedSize = kind == PrintedPicture::Window
                          ? PrintFormPictureSize(printerWidth, size.width(), size.height())
                          : PrintScreenPictureSize(printerWidth, size.width(), size.height());
        const QRectF target(0, 0, PrintedSize.Width * dpi / TwipsPerInch,
                            PrintedSize.Height * dpi / TwipsPerInch);
        painter.drawImage(target, Picture);
        painter.end();
        return true;
    });
    if (!printed) PrintedSize = {};

    const std::string program = S(QFileInfo(QCoreApplication::applicationFilePath()).baseName());
    const std::string name = window ? S(window->objectName()) : std::string();
    BitmapFile = Q(PrintBitmapFileName(s_.platform.machineDirectory, program, name, kind));
    EnsureDirectory(s_.platform.machineDirectory);
    if (!Picture.save(BitmapFile, "BMP"))
        s_.Message({"The picture could not be saved as " + S(BitmapFile) + "."});
}

}  // namespace vantrellion

// clsPrintScreenOrForm: a picture of the present window, or of the whole screen, onto the
// printer, onto the clipboard, and as a bitmap copy in the machine directory. Created for one
// call. The printer comes from the print dialog (PrintDocument); a cancel, a printer
// that cannot be started or a copy that cannot be written gets one box, and the program goes
// on.
#pragma once

#include <QImage>
#include <QString>
#include <QWidget>

#include "core/PrintPicture.h"
#include "core/SharedState.h"

namespace vantrellion {

class clsPrintScreenOrForm {
  public:
    explicit clsPrintScreenOrForm(System& s) : s_(s) {}

    // The window of form (the one whose menu gave the command), scaled down to the page width
    // when it is wider.
    void mPrintForm(QWidget* form);
    // The whole screen, scaled to the page width; form gives the window's name for the file.
    void mPrintScreen(QWidget* form);

    // What the call did: the picture taken, its size on the page in twips (zero when nothing
    // was printed) and the bitmap copy's file.
    QImage Picture;
    PictureSize PrintedSize;
    QString BitmapFile;

  private:
    void Print(QWidget* form, PrintedPicture kind);
    void RunPendingEvents();

    System& s_;
};

// The picture of a window, its frame left to the window system.
QImage GrabWindowPicture(QWidget* window);
// The picture of the screen that shows window: what the screen gives, or, where the window
// system gives no picture of its screen, the program's own visible windows drawn in their
// places.
QImage GrabScreenPicture(QWidget* window);

}  // namespace vantrellion

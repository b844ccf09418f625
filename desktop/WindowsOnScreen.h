// Every window of the program opens within the area of its screen that windows may take: the
// one place where windows are kept on the screen. An event filter on the application fits
// each window as it is shown (a default place, a remembered place on a screen that has shrunk
// since, a window that asks for more room than the screen has), so that its title bar, its
// buttons and its frame can all be reached.
#pragma once

#include <QObject>
#include <QWidget>

namespace vantrellion {

class WindowsOnScreen : public QObject {
  public:
    // Watches the application's windows for as long as it lives.
    WindowsOnScreen();
    ~WindowsOnScreen() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

// Shrinks and moves a window as little as it must to lie within its screen's available area.
// Menus, tool tips and other pop-ups are left to Qt, which places them itself.
void FitWindowToScreen(QWidget& window);

}  // namespace vantrellion

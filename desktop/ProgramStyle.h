// The style of the program's windows: the platform's own, with the arrows of the menu bar's
// overflow button drawn here. The style would read those arrows from picture files, and Qt
// reads a picture file by asking every picture plugin whether it knows the file: all of them
// (with the SVG library one of them needs) would then stay loaded for the life of the program,
// for a button that shows only when the window is too narrow for its menus.
#pragma once

#include <QIcon>
#include <QProxyStyle>

namespace vantrellion {

class ProgramStyle : public QProxyStyle {
  public:
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option = nullptr,
                       const QWidget* widget = nullptr) const override;
};

// The overflow arrows, ">>" or pointing down, in the colour of a window's text.
QIcon OverflowArrows(bool horizontal, const QPalette& palette);

}  // namespace vantrellion

// The splash window: the product's identity and the safety warning, shown while the program
// starts and again from the Help menu. A key press or a click anywhere on it closes it.
#pragma once

#include <QDialog>
#include <QLabel>

namespace vantrellion {

class frmSplash : public QDialog {
    Q_OBJECT
  public:
    explicit frmSplash(QWidget* parent = nullptr);
    QLabel* lblCompanyProduct;
    QLabel* lblProductName;
    QLabel* lblPlatform;
    QLabel* lblVersion;
    QLabel* lblCompany;
    QLabel* lblWarning;
    QLabel* imgLogo;

  protected:
    void keyPressEvent(QKeyEvent*) override { close(); }
    void mousePressEvent(QMouseEvent*) override { close(); }
    bool eventFilter(QObject* watched, QEvent* event) override;
};

// "Version 2001.5.1": major, minor and revision of the build.
QString VersionText();

}  // namespace vantrellion

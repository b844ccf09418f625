// frmTime: the floating clock beside the main screen. Not modal; the main screen owns it. The
// tick writes lblTime while TimeWindowShown is set, so the clock has the tick's resolution and
// stands still while the tick is suspended.
#pragma once

#include <QLabel>
#include <QWidget>

namespace vantrellion {

class frmTime : public QWidget {
    Q_OBJECT
  public:
    explicit frmTime(QWidget* owner);
    QLabel* lblTime;

  protected:
    // The label takes the window's whole inner size.
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void Form_Load();
    bool loaded_ = false;
};

}  // namespace vantrellion

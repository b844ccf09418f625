// frmPauseSchedule: the window of "Pause Schedule...". One check box per relay, and the end of
// the pause as a number of hours or as a date and time. OK pauses the chosen relays
// (PauseSchedulePresenter); a choice that does not make a pause keeps the window open.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <vector>

#include "core/SharedState.h"
#include "mainscreen/PauseSchedule.h"

namespace vantrellion {

class frmPauseSchedule : public QDialog {
    Q_OBJECT
  public:
    explicit frmPauseSchedule(System& s, QWidget* parent = nullptr);

    std::vector<QCheckBox*> chkRelay;
    QRadioButton* optHours;
    QRadioButton* optUntil;
    QLineEdit* txtHours;
    QLineEdit* txtUntil;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;

  private:
    PauseChoice Choice() const;

    PauseSchedulePresenter presenter_;
};

}  // namespace vantrellion

// frmDaysOff: the window of "Days Off...". The list of days off with Remove, and below it the
// fields of a new entry: first date, last date (empty for one day), every year, a note and one
// check box per relay, with Add. OK puts the list into the schedule (DaysOffEditor); Cancel
// leaves the schedule as it was.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <vector>

#include "core/SharedState.h"
#include "mainscreen/DaysOffEditor.h"

namespace vantrellion {

class frmDaysOff : public QDialog {
    Q_OBJECT
  public:
    explicit frmDaysOff(System& s, QWidget* parent = nullptr);

    QListWidget* lstDaysOff;
    QPushButton* cmdRemove;
    QLineEdit* txtFirstDate;
    QLineEdit* txtLastDate;
    QCheckBox* chkEveryYear;
    QLineEdit* txtNote;
    std::vector<QCheckBox*> chkRelay;
    QPushButton* cmdAdd;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;

  private:
    void FillList();
    void cmdAdd_Click();

    DaysOffEditor editor_;
};

}  // namespace vantrellion

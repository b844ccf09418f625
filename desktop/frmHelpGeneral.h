// frmHelpGeneral: the user's guide to the schedule screen as rich text, with "Print This Help",
// and the way into the user's manual.
#pragma once

#include <QDialog>
#include <QMenuBar>
#include <QPushButton>
#include <QTextEdit>

#include "core/SharedState.h"

namespace vantrellion {

class frmHelpGeneral : public QDialog {
    Q_OBJECT
  public:
    explicit frmHelpGeneral(System& s, QWidget* parent = nullptr);

    QTextEdit* rtbHelp;
    QPushButton* cmdManual;  // opens the user's manual
    QPushButton* cmdExit;
    QMenuBar* menuBar;

    // A menu item by its name.
    QAction* Menu(const QString& name) const;
    // Print This Help: the selection when there is one, else the whole text.
    void mnuFilePrintDoc_Click();

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void Form_Load();

    System& s_;
    bool loaded_ = false;
};

}  // namespace vantrellion

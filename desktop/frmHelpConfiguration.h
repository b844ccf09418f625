// frmHelpConfiguration: points the user to the documentation for configuring the program, and
// opens it: the user's manual.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>

#include "core/SharedState.h"

namespace vantrellion {

class frmHelpConfiguration : public QDialog {
    Q_OBJECT
  public:
    explicit frmHelpConfiguration(System& s, QWidget* parent = nullptr);

    QLabel* Label1;
    QPushButton* cmdManual;  // opens the user's manual
    QPushButton* cmdExit;
    QMenuBar* menuBar;

    QAction* Menu(const QString& name) const;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void Form_Load();

    System& s_;
    bool loaded_ = false;
};

}  // namespace vantrellion

// frmLogFileViewer: one log file as read-only text in a fixed-pitch font, with Open, Font,
// Print Log and the print entries of the window and the screen. The tick goes on while it is
// open; lines written meanwhile appear when the file is opened again.
#pragma once

#include <QDialog>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTimer>
#include <functional>

#include "core/SharedState.h"

namespace vantrellion {

class frmLogFileViewer : public QDialog {
    Q_OBJECT
  public:
    explicit frmLogFileViewer(System& s, QWidget* parent = nullptr);

    QPlainTextEdit* rtbViewLogs;
    QTimer* Timer1;  // closes the window after a cancelled first dialog
    QMenuBar* menuBar;

    QAction* Menu(const QString& name) const;

    // The open dialog, then the chosen file into view. True if a file was loaded.
    bool OpenLogFile();
    // The font dialog; the font applies to the selection, or with none to the insertion point.
    void mnuEditFont_Click();
    // Print Log: the selection when there is one, else the whole text.
    void mnuFilePrint_Click();

    // The font dialog: false when cancelled. Tests answer it in place of the user.
    std::function<bool(QFont& font, QWidget* parent)> ChooseFont;

  protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void BuildMenus();
    void Form_Load();
    // The whole file as text; false when it cannot be read.
    bool LoadText(const QString& path);

    System& s_;
    bool loaded_ = false;
    bool loading_ = false;
};

}  // namespace vantrellion

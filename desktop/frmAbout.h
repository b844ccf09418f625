// frmAbout: the program's title, version and copyright, what the product is for and its legal
// warning, and a button that starts the system's information tool.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QStringList>
#include <QTextBrowser>

#include "core/SharedState.h"

namespace vantrellion {

class frmAbout : public QDialog {
    Q_OBJECT
  public:
    explicit frmAbout(System& s, QWidget* parent = nullptr);

    QLabel* lblTitle;
    QLabel* lblVersion;
    QLabel* lblCopyright;
    QTextBrowser* rtbAboutDescription;
    QTextBrowser* rtbAboutWarning;
    QPushButton* cmdOk;
    QPushButton* cmdSysInfo;

    // Starts the first system information tool found on the PATH; without one, the box
    // "System Information Is Unavailable At This Time".
    void cmdSysInfo_Click();

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void Form_Load();

    System& s_;
    bool loaded_ = false;
};

// The system information tools of the usual Linux desktops, in the order they are tried.
QStringList SystemInformationTools();

// The rich text of a resource, for the about and help windows: fetched to a temporary
// file, loaded into view, locked against editing, and the file deleted.
void LoadRichTextResource(QTextEdit* view, int resId, const QString& resType);

}  // namespace vantrellion

// frmLogFilePath: the chooser of the log directory, opened by the Browse button of the
// configuration screens. A tree of the file system's directories stands where drive and
// directory lists would be; Text1 shows the directory chosen so far, and Select stores it in
// LogFilePath with a closing "/". Cancel changes nothing.
#pragma once

#include <QDialog>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>
#include <string>

#include "core/SharedState.h"

namespace vantrellion {

class frmLogFilePath : public QDialog {
    Q_OBJECT
  public:
    explicit frmLogFilePath(System& s, QWidget* parent = nullptr);

    QLineEdit* Text1;
    QTreeView* Dir1;
    QPushButton* cmdSelect;
    QPushButton* cmdCancel;
    // The directory chosen so far, as the tree gives it: without a closing "/" but for "/".
    std::string ChosenPath;

    // The tree's current directory; moving it is the tree's change event.
    void SetDir1Path(const QString& path);
    QString Dir1Path() const;

  private:
    void Dir1_Change();

    System& s_;
    QFileSystemModel* model_;
};

}  // namespace vantrellion

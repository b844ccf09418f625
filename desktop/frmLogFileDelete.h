// frmLogFileDelete: moves old log files to the freedesktop trash. A directory tree stands where
// drive and directory lists would be; File1 lists the directory's "Vantrellion*.log" files with
// multiple selection, and Delete sends each selected file to the trash, from where the
// desktop's trash can give it back. The tick is suspended while the window is open.
#pragma once

#include <QDialog>
#include <QFileSystemModel>
#include <QListWidget>
#include <QPushButton>
#include <QTreeView>
#include <cstdint>

#include "core/SharedState.h"

namespace vantrellion {

class frmLogFileDelete : public QDialog {
    Q_OBJECT
  public:
    explicit frmLogFileDelete(System& s, QWidget* parent = nullptr);

    QTreeView* Dir1;
    QListWidget* File1;
    QPushButton* cmdDelete;
    QPushButton* cmdCancel;
    QPushButton* cmdExit;

    // The tree's current directory; moving it is the tree's change event.
    void SetDir1Path(const QString& path);
    QString Dir1Path() const;
    // The directory File1 lists, with its closing "/".
    QString File1Path() const { return file1Path_; }

    void cmdDelete_Click();

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void Form_Load();
    void Dir1_Change();
    void SetFile1Path(const QString& path);
    void RefreshFile1();

    System& s_;
    QFileSystemModel* model_;
    QString file1Path_;
    bool loaded_ = false;
};

// Sends one file to the freedesktop trash of its file system (for the home file system
// $XDG_DATA_HOME/Trash, created first if need be) and checks that it landed in the trash's
// files/ beside its .trashinfo. 0 when it did; otherwise a non-zero result, and error says why.
int32_t RecycleFile(const QString& path, QString* error = nullptr);

}  // namespace vantrellion

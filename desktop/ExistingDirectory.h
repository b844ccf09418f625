// The directory trees of the log windows: the whole file system by directories, opened at a
// directory that may have gone since, and showing it.
#pragma once

#include <QFileSystemModel>
#include <QString>
#include <QTreeView>

namespace vantrellion {

// The directory itself when it exists, else its nearest existing parent, so that the tree
// opens where the file system still has something to show.
QString ExistingDirectory(const QString& path);

// The tree "Dir1" over model, which it fills with every directory from the root on, hidden ones
// too (the default log directory lies in one); names only, no other columns. The tree keeps its
// current directory in view while the model reads the directories in the background, until the
// user moves in it (a click, a key, the wheel, the scroll bar).
QTreeView* DirectoryTree(QWidget* parent, QFileSystemModel* model);

}  // namespace vantrellion

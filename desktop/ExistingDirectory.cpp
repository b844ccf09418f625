#include "desktop/ExistingDirectory.h"

#include <QDir>
#include <QFileInfo>

namespace vantrellion {

QString ExistingDirectory(const QString& path) {
    QString dir = QDir::cleanPath(QDir(path).absolutePath());
    while (!QFileInfo(dir).isDir()) {
        const QString parent = QFileInfo(dir).path();
        if (parent == dir) return QDir::rootPath();
        dir = parent;
    }
    return dir;
}

QTreeView* DirectoryTree(QWidget* parent, QFileSystemModel* model) {
    model->setFilter(QDir::AllDirs | QDir::Drives | QDir::Hidden | QDir::NoDotAndDotDot);
    model->setRootPath(QDir::rootPath());
    auto* tree = new QTreeView(parent);
    tree->setObjectName("Dir1");
    tree->setModel(model);
    tree->setHeaderHidden(true);
    for (int column = 1; column < model->columnCount(); ++column)
        tree->hideColumn(column);
    return tree;
}

}  // namespace vantrellion

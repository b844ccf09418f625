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

}  // namespace vantrellion

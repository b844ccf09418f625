// The directory trees of the log windows open at a directory that may have gone since.
#pragma once

#include <QString>

namespace vantrellion {

// The directory itself when it exists, else its nearest existing parent, so that the tree
// opens where the file system still has something to show.
QString ExistingDirectory(const QString& path);

}  // namespace vantrellion

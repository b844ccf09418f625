#include "desktop/UserManual.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include "desktop/QtConvert.h"

namespace vantrellion {

namespace {
constexpr const char* kTitle = "User's Manual";
}

QString UserManualFile() {
    const QString programDir = QCoreApplication::applicationDirPath();
    for (const char* up : {"/..", "/../..", "/../../.."}) {
        const QString file =
            QDir::cleanPath(programDir + up + "/share/doc/vantrellion/manual/index.html");
        if (QFileInfo(file).isFile()) return file;
    }
    return {};
}

void OpenUserManual(System& s, const QString& file) {
    if (file.isEmpty() || !QFileInfo(file).isFile()) {
        const QString where = file.isEmpty() ? QString(InstalledManualFile) : file;
        s.Message(
            {"The user's manual could not be found.\r\nIt is installed with the program as\r\n" +
                 S(where),
             Buttons::OK, Icon::Exclamation, 1, kTitle});
        return;
    }
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(file)))
        s.Message({"The user's manual\r\n" + S(file) +
                       "\r\ncould not be opened: the desktop has no program set to show web "
                       "pages (HTML files).\r\nOpen the file in a web browser.",
                   Buttons::OK, Icon::Exclamation, 1, kTitle});
}

}  // namespace vantrellion

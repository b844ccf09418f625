#include "desktop/resources/clsLoadCustomResource.h"

#include <stdlib.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QImageReader>

// The resources live in a static library: registering them by name keeps the linker from
// dropping them.
static void RegisterVantrellionResources() {
    Q_INIT_RESOURCE(vantrellion_resources);
}

namespace vantrellion {

namespace {

void EnsureResources() {
    static const bool registered = (RegisterVantrellionResources(), true);
    (void)registered;
}

QString ResourcePath(int resId, const QString& resType) {
    return QStringLiteral(":/res/%1/%2").arg(resType).arg(resId);
}

// The name to use: the caller's, or a new temporary file. A failed temporary name stays empty,
// which makes the write fail.
QString FileNameOrTemp(const QString& fileName) {
    if (!fileName.isEmpty()) return fileName;
    QString name;
    GetTempFile(QString(), TempFilePrefix, 0, name);
    return name;
}

}  // namespace

std::optional<QByteArray> LoadResourceBytes(int resId, const QString& resType) {
    EnsureResources();
    QFile f(ResourcePath(resId, resType));
    if (resType.isEmpty() || !f.open(QIODevice::ReadOnly)) return std::nullopt;
    return f.readAll();
}

QIcon LoadIconResource(int resId) {
    EnsureResources();
    // The built-in pictures are PNG, read by Qt's own PNG reader. Without a named format and
    // with detection on, Qt would find the type of a file without a suffix through the MIME
    // database and load every picture plugin to ask it; both stay in memory for good, about a
    // megabyte and a half for the life of the program.
    QImageReader reader(ResourcePath(resId, IconResourceType), "png");
    reader.setAutoDetectImageFormat(false);
    const QImage picture = reader.read();
    return picture.isNull() ? QIcon() : QIcon(QPixmap::fromImage(picture));
}

QString StripTerminator(const QString& text) {
    const qsizetype nul = text.indexOf(QChar(u'\0'));
    return nul < 0 ? text : text.left(nul);
}

Flag GetTempFile(const QString& directory, const QString& prefix, int unique, QString& fileName) {
    fileName.clear();
    QString dir = directory.isEmpty() ? QDir::tempPath() : directory;
    if (dir.isEmpty()) return False;
    if (!dir.endsWith(u'/')) dir += u'/';
    if (unique != 0) {
        fileName = StripTerminator(dir + prefix + QString::number(unique & 0xFFFF, 16).toUpper() +
                                   QStringLiteral(".tmp"));
        return True;
    }
    QByteArray pattern = QFile::encodeName(dir + prefix + QStringLiteral("XXXXXX.tmp"));
    const int fd = mkstemps(pattern.data(), 4);
    if (fd < 0) return False;
    ::close(fd);
    fileName = StripTerminator(QFile::decodeName(pattern));
    return True;
}

int32_t SaveResItemToDisk(int resId, const QString& resType, const QString& fileName) {
    const auto bytes = LoadResourceBytes(resId, resType);
    if (!bytes) return ErrResourceNotFound;
    if (fileName.isEmpty()) return ErrPathFileAccess;
    QFile f(fileName);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate)) return ErrPathFileAccess;
    const bool written = f.write(*bytes) == bytes->size() && f.flush();
    f.close();
    return written && f.error() == QFileDevice::NoError ? 0 : ErrDiskFull;
}

QPixmap LoadPictureResource(int resId, const QString& resType, QString fileName) {
    fileName = FileNameOrTemp(fileName);
    QPixmap picture;
    if (SaveResItemToDisk(resId, resType, fileName) == 0) {
        picture.load(fileName);
        QFile::remove(fileName);
    }
    return picture;
}

QString LoadRTFResource(int resId, const QString& resType, QString fileName) {
    fileName = FileNameOrTemp(fileName);
    return SaveResItemToDisk(resId, resType, fileName) == 0 ? fileName : QString();
}

QString LoadTextResourceName(int resId, const QString& resType, QString fileName) {
    return LoadRTFResource(resId, resType, fileName);
}

QString LoadTextResourceString(System& s, int resId, const QString& resType, QString fileName) {
    fileName = FileNameOrTemp(fileName);
    if (SaveResItemToDisk(resId, resType, fileName) != 0) {
        s.Message(MessageBoxRequest{"Unable to save resource item to disk!", Buttons::OK,
                                    Icon::Critical});
        return QString();
    }
    QFile f(fileName);
    QString text;
    if (f.open(QIODevice::ReadOnly)) text = QString::fromLatin1(f.readAll());
    f.close();
    QFile::remove(fileName);
    return text;
}

}  // namespace vantrellion

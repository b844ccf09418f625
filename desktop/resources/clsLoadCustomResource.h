// clsLoadCustomResource: the program's pictures and rich texts, packed as Qt resources and
// addressed by numeric id and type name ("ICON" for the icons; "rtfAboutDescription",
// "rtfAboutWarning" and "rtfHelp" for the texts of ids 101 to 103). A resource is handed out as a
// picture, as its text, or as a temporary file that holds it, named "~rs..." in the system's
// temporary directory; the caller of a file deletes it after use.
#pragma once

#include <QByteArray>
#include <QIcon>
#include <QPixmap>
#include <QString>
#include <cstdint>
#include <optional>

#include "core/SharedState.h"

namespace vantrellion {

inline constexpr const char* IconResourceType = "ICON";
inline constexpr const char* TempFilePrefix = "~rs";

// Run-time error numbers of SaveResItemToDisk.
inline constexpr int32_t ErrDiskFull = 61;
inline constexpr int32_t ErrPathFileAccess = 75;
inline constexpr int32_t ErrResourceNotFound = 326;

// The bytes of a resource, or nothing when there is none of that id and type.
std::optional<QByteArray> LoadResourceBytes(int resId, const QString& resType);

// The icon of an id (101, 110, 121 to 128, the window icons 200 to 255); a null icon when there
// is none, which a window simply goes without.
QIcon LoadIconResource(int resId);

// A picture; a null one on failure. The resource passes through fileName (a temporary file when
// none is given), which is deleted once the picture is loaded.
QPixmap LoadPictureResource(int resId, const QString& resType, QString fileName = {});

// The name of a file holding the resource, "" on failure; the caller deletes the file.
QString LoadRTFResource(int resId, const QString& resType, QString fileName = {});

// The whole resource as text, read byte for byte; "" on failure, after the box "Unable to save
// resource item to disk!".
QString LoadTextResourceString(System& s, int resId, const QString& resType, QString fileName = {});

// As LoadRTFResource, for plain text.
QString LoadTextResourceName(int resId, const QString& resType, QString fileName = {});

// Writes the resource's bytes as they are to fileName: 0 if written, else the run-time error
// number (326 no such resource, 75 the file cannot be opened, 61 the disk is full).
int32_t SaveResItemToDisk(int resId, const QString& resType, const QString& fileName);

// Makes a temporary file name of prefix in directory (the system's temporary directory when
// empty). With unique 0 the name is made unique and the file created, empty; otherwise the name
// is prefix + unique in hexadecimal + ".tmp" and nothing is created. True if a name was made;
// fileName is "" otherwise.
Flag GetTempFile(const QString& directory, const QString& prefix, int unique, QString& fileName);

// text up to its first NUL character.
QString StripTerminator(const QString& text);

}  // namespace vantrellion

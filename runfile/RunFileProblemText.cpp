#include "runfile/RunFileProblemText.h"

#include <cctype>
#include <cerrno>
#include <cstring>

#include "runfile/RunFileFields.h"

namespace vantrellion {

namespace {

std::string OpenProblem(const std::string& quoted, int error) {
    switch (error) {
        case ENOENT:
        case ENOTDIR:
            return quoted + " does not exist";
        case EISDIR:
            return quoted + " is a directory, not a Run File";
        case 0:
            return quoted + " is not a regular file (a device or a pipe), so it is no Run File";
        case EACCES:
        case EPERM:
            return quoted + " cannot be read: you have no permission to read it";
        default: {
            std::string text = std::strerror(error);
            if (!text.empty()) text[0] = static_cast<char>(std::tolower(text[0]));
            return quoted + " cannot be opened: " + text;
        }
    }
}

// The first line as it may be shown: at most 40 characters, without control characters.
std::string Shown(const std::string& line) {
    std::string out;
    for (char c : line.substr(0, 40))
        out += static_cast<unsigned char>(c) < 0x20 ? '?' : c;
    return line.size() > 40 ? out + "..." : out;
}

std::string ReadProblem(const std::string& quoted, const RunFileLoadProblem& p) {
    const std::string line = "line " + std::to_string(p.Line);
    if (p.ReadError == ErrTextPastEnd)
        return quoted + " is cut short: it ends before " + line + ", which should hold " + p.Field;
    std::string reason;
    if (p.ReadError == ErrTextTypeMismatch)
        reason = "it should be a number";
    else if (p.ReadError == ErrTextOverflow)
        reason = "its number is too large";
    else if (p.ReadError == ErrTextFieldTooLong)
        reason = "it is far too long";
    else if (p.ReadError == ErrTextSubscript)
        reason = "they are missing";
    else
        return quoted + " could not be read at " + line + " (" + p.Field + "): " + p.ReadError;
    return quoted + " is damaged at " + line + ", which holds " + p.Field + ": " + reason;
}

}  // namespace

std::string RunFileProblemText(const std::string& file, const RunFileLoadProblem& p) {
    const std::string quoted = "\"" + file + "\"";
    switch (p.Result) {
        case RunFileLoaded:
            return {};
        case RunFileOpenFailed:
            return OpenProblem(quoted, p.OpenErrno);
        case RunFileUnknownVersion:
            return quoted + " is not a Run File: " +
                   (p.Version.empty() ? std::string("its first line is empty")
                                      : "its first line is \"" + Shown(p.Version) + "\",") +
                   " where a Run File begins with its version, such as \"FV.2001.05.01\"";
        case RunFileFutureVersion:
            return quoted + " names a Run File version that does not exist yet (\"" +
                   Shown(p.Version) + "\") and cannot be read";
        default:
            return ReadProblem(quoted, p);
    }
}

}  // namespace vantrellion

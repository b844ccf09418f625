#include "core/ReplaceFile.h"

#include <fcntl.h>
#include <limits.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <vector>

namespace vantrellion {

namespace {

// The file that fullName names at the end of its chain of symbolic links. A missing file or a
// link that points nowhere gives the name where the file would be.
std::string ResolveLinks(std::string path) {
    for (int hops = 0; hops < 40; ++hops) {
        std::vector<char> buf(PATH_MAX);
        const ssize_t n = ::readlink(path.c_str(), buf.data(), buf.size());
        if (n <= 0) break;
        std::string target(buf.data(), static_cast<size_t>(n));
        if (target[0] != '/') {
            const auto slash = path.rfind('/');
            target = (slash == std::string::npos ? "" : path.substr(0, slash + 1)) + target;
        }
        path = target;
    }
    return path;
}

// Writes all bytes and forces them to the disk. False with errno set on failure; written
// counts what got out.
bool WriteAll(int fd, const std::string& bytes, size_t& written) {
    written = 0;
    while (written < bytes.size()) {
        const ssize_t n = ::write(fd, bytes.data() + written, bytes.size() - written);
        if (n < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        written += static_cast<size_t>(n);
    }
    // A file system or device that cannot sync (EINVAL, EROFS on some devices) has taken the
    // bytes all the same.
    if (::fsync(fd) != 0 && errno != EINVAL && errno != EROFS && errno != ENOTSUP) return false;
    return true;
}

FileWriteResult Failed(FileWriteResult::Stage stage, int error, size_t written = 0) {
    FileWriteResult r;
    r.stage = stage;
    r.error = error;
    r.written = written;
    return r;
}

FileWriteResult WriteInPlace(int fd, const std::string& bytes, bool truncate) {
    size_t written = 0;
    FileWriteResult r;
    if ((truncate && ::ftruncate(fd, 0) != 0) || !WriteAll(fd, bytes, written))
        r = Failed(FileWriteResult::Stage::Write, errno, written);
    ::close(fd);
    return r;
}

void SyncDirectory(const std::string& dir) {
    const int fd = ::open(dir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    ::fsync(fd);
    ::close(fd);
}

mode_t NewFileMode() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

}  // namespace

FileWriteResult ReplaceFileContents(const std::string& fullName, const std::string& bytes) {
    const std::string target = ResolveLinks(fullName);

    // The open for writing tells a read-only file, a directory or a pipe without a reader
    // apart, with the error a plain save would give. Non-blocking, so that a pipe never holds
    // the save up.
    int fd = ::open(target.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK);
    struct stat st {};
    if (fd >= 0) {
        if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) return WriteInPlace(fd, bytes, false);
    } else if (errno != ENOENT) {
        return Failed(FileWriteResult::Stage::Open, errno);
    }

    const auto slash = target.rfind('/');
    const std::string dir = slash == std::string::npos ? "./" : target.substr(0, slash + 1);
    const std::string base = slash == std::string::npos ? target : target.substr(slash + 1);
    std::string temp = dir + "." + base + ".XXXXXX";
    const int tfd = ::mkostemp(temp.data(), O_CLOEXEC);
    if (tfd < 0) {
        const int error = errno;
        // A file that may be written in a directory that takes no new file: in place.
        if (fd >= 0) return WriteInPlace(fd, bytes, true);
        return Failed(FileWriteResult::Stage::Open, error);
    }
    if (fd >= 0) {
        ::fchmod(tfd, st.st_mode & 07777);
        if (::fchown(tfd, st.st_uid, st.st_gid) != 0) {
            // Not the owner's to give away: the new file is the writer's.
        }
        ::close(fd);
    } else {
        ::fchmod(tfd, NewFileMode());
    }

    size_t written = 0;
    if (!WriteAll(tfd, bytes, written)) {
        const int error = errno;
        ::close(tfd);
        ::unlink(temp.c_str());
        return Failed(FileWriteResult::Stage::Write, error, written);
    }
    ::close(tfd);
    if (::rename(temp.c_str(), target.c_str()) != 0) {
        const int error = errno;
        ::unlink(temp.c_str());
        return Failed(FileWriteResult::Stage::Write, error, written);
    }
    SyncDirectory(dir);
    return {};
}

}  // namespace vantrellion

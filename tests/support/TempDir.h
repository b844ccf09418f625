// A scratch directory per test: made with mkdtemp under /tmp, removed with its contents when
// the object goes. Path() carries the trailing "/", as the system's directories do.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace vantrellion::test {

class TempDir {
  public:
    TempDir() {
        char pattern[] = "/tmp/vantrellion-test-XXXXXX";
        if (!::mkdtemp(pattern)) throw std::runtime_error("mkdtemp failed");
        path_ = std::string(pattern) + "/";
    }
    ~TempDir() {
        namespace fs = std::filesystem;
        std::error_code ec;
        // A test may have taken permissions away; give them back so that removal succeeds.
        fs::permissions(path_, fs::perms::owner_all, fs::perm_options::add, ec);
        for (auto it = fs::recursive_directory_iterator(path_, ec);
             !ec && it != fs::recursive_directory_iterator(); it.increment(ec)) {
            if (it->is_directory(ec) && !it->is_symlink(ec)) {
                fs::permissions(it->path(), fs::perms::owner_all, fs::perm_options::add, ec);
            }
        }
        fs::remove_all(path_, ec);
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::string& Path() const { return path_; }
    std::string File(const std::string& name) const { return path_ + name; }

    // Replaces the file by one with these bytes. (A new file, rather than truncating the old
    // one: truncation of a file with data is slow on some file systems.)
    void Write(const std::string& name, const std::string& bytes) const {
        std::error_code ec;
        std::filesystem::remove(File(name), ec);
        std::ofstream out(File(name), std::ios::binary | std::ios::trunc);
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
    // The file's bytes, or "" when it cannot be read.
    std::string Read(const std::string& name) const { return ReadFile(File(name)); }
    bool Exists(const std::string& name) const {
        std::error_code ec;
        return std::filesystem::exists(File(name), ec);
    }

    static std::string ReadFile(const std::string& fullName) {
        std::ifstream in(fullName, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }

  private:
    std::string path_;
};

}  // namespace vantrellion::test

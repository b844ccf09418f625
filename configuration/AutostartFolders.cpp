#include "configuration/AutostartFolders.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

#include "configuration/KeyValueStore.h"
#include "configuration/modRegAPI.h"
#include "core/Constants.h"

namespace vantrellion {

namespace {

constexpr const char* ListParent = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\";
constexpr std::array<const char*, 5> ListNames = {"Run", "RunOnce", "RunServices",
                                                  "RunOnceServices", "RunServicesOnce"};
constexpr const char* CommandLineKey = "X-Vantrellion-CommandLine";

std::string Lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

std::string WithSlash(std::string dir) {
    while (dir.size() > 1 && dir.back() == '/')
        dir.pop_back();
    return dir == "/" ? dir : dir + "/";
}

// An absolute directory from the environment, or "".
std::string AbsoluteFromEnv(const char* name) {
    const char* v = std::getenv(name);
    return v && *v == '/' ? std::string(v) : std::string();
}

// A value of type string, escaped as the desktop entry format asks.
std::string EscapeString(const std::string& text) {
    std::string out;
    for (char c : text) {
        switch (c) {
            case '\\':
                out += "\\\\";
                break;
            case '\n':
                out += "\\n";
                break;
            case '\t':
                out += "\\t";
                break;
            case '\r':
                out += "\\r";
                break;
            default:
                out += c;
        }
    }
    if (!out.empty() && out.front() == ' ') out.replace(0, 1, "\\s");
    return out;
}

std::string UnescapeString(const std::string& text) {
    std::string out;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            out += text[i];
            continue;
        }
        switch (text[++i]) {
            case 's':
                out += ' ';
                break;
            case 'n':
                out += '\n';
                break;
            case 't':
                out += '\t';
                break;
            case 'r':
                out += '\r';
                break;
            default:
                out += text[i];
        }
    }
    return out;
}

// One argument of Exec, before the string escape: in double quotes where it holds a character
// that the format reserves, with the four characters that stay special inside them escaped.
std::string QuoteArgument(const std::string& arg) {
    static const std::string reserved = " \t\n\"'\\><~|&;$*?#()`";
    std::string body;
    for (char c : arg) {
        if (c == '%') body += '%';  // a literal percent sign is doubled, quoted or not
        body += c;
    }
    if (!arg.empty() && arg.find_first_of(reserved) == std::string::npos) return body;
    std::string quoted = "\"";
    for (char c : body) {
        if (c == '"' || c == '`' || c == '$' || c == '\\') quoted += '\\';
        quoted += c;
    }
    return quoted + "\"";
}

bool IsExecutableFile(const std::string& path) {
    struct stat st {};
    return ::stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode) &&
           ::access(path.c_str(), X_OK) == 0;
}

std::vector<std::string> SplitWords(const std::string& text) {
    std::vector<std::string> words;
    std::istringstream in(text);
    for (std::string w; in >> w;)
        words.push_back(w);
    return words;
}

// The program and its arguments, as the platform reads a command line without quotation marks:
// the first blank after which the text so far names an executable file ends the program.
std::vector<std::string> CommandArguments(const std::string& commandLine) {
    for (size_t blank = commandLine.find(' '); blank != std::string::npos;
         blank = commandLine.find(' ', blank + 1)) {
        const std::string program = commandLine.substr(0, blank);
        if (IsExecutableFile(program)) {
            std::vector<std::string> args{program};
            for (auto& w : SplitWords(commandLine.substr(blank + 1)))
                args.push_back(std::move(w));
            return args;
        }
    }
    if (IsExecutableFile(commandLine)) return {commandLine};
    return SplitWords(commandLine);
}

bool ReadFile(const std::string& path, std::string& bytes) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return false;
    bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    return !in.bad();
}

// Writes the file next to its place and renames it there, so that a session never finds half
// an entry; flushed to the disk first.
bool WriteFileWhole(const std::string& path, const std::string& bytes) {
    const std::string temp = path + ".new";
    const int fd = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (fd < 0) return false;
    size_t done = 0;
    bool ok = true;
    while (ok && done < bytes.size()) {
        const ssize_t n = ::write(fd, bytes.data() + done, bytes.size() - done);
        if (n < 0 && errno == EINTR) continue;
        ok = n > 0;
        if (ok) done += static_cast<size_t>(n);
    }
    ok = ok && ::fsync(fd) == 0;
    ok = ::close(fd) == 0 && ok;
    ok = ok && ::rename(temp.c_str(), path.c_str()) == 0;
    if (!ok) ::unlink(temp.c_str());
    return ok;
}

bool IsDirectory(const std::string& path) {
    struct stat st {};
    return ::stat(path.c_str(), &st) == 0 && S_ISDIR(st.st_mode);
}

bool MakeDirectories(const std::string& path) {
    std::string built;
    for (size_t pos = 1; pos <= path.size(); ++pos) {
        if (pos < path.size() && path[pos] != '/') continue;
        built = path.substr(0, pos);
        if (!IsDirectory(built) && ::mkdir(built.c_str(), 0755) != 0 && errno != EEXIST)
            return false;
    }
    return IsDirectory(path);
}

// A value name that can stand in a file name.
bool UsableName(const std::string& name) {
    return !name.empty() && name.front() != '.' && name.find('/') == std::string::npos &&
           name.find('\0') == std::string::npos;
}

}  // namespace

AutostartDirectories DefaultAutostartDirectories() {
    AutostartDirectories d;
    std::string machine = "/etc/xdg";
    if (const char* dirs = std::getenv("XDG_CONFIG_DIRS")) {
        std::istringstream list(dirs);
        for (std::string dir; std::getline(list, dir, ':');) {
            if (!dir.empty() && dir.front() == '/') {
                machine = dir;
                break;
            }
        }
    }
    d.machine = WithSlash(machine) + "autostart/";
    std::string home = AbsoluteFromEnv("XDG_CONFIG_HOME");
    if (home.empty()) {
        const std::string h = AbsoluteFromEnv("HOME");
        if (!h.empty()) home = WithSlash(h) + ".config";
    }
    if (!home.empty()) d.user = WithSlash(home) + "autostart/";
    return d;
}

std::string StartupListName(const std::string& keyPath) {
    const std::string path = Lower(KeyValueStore::NormaliseKeyPath(keyPath));
    const std::string parent = Lower(ListParent);
    if (path.rfind(parent, 0) != 0) return "";
    const std::string rest = path.substr(parent.size());
    for (const char* name : ListNames)
        if (rest == Lower(name)) return name;
    return "";
}

bool IsRunOnceList(const std::string& listName) {
    return listName.find("Once") != std::string::npos;
}

std::string ExecLine(const std::vector<std::string>& arguments) {
    std::string line;
    for (const auto& a : arguments)
        line += (line.empty() ? "" : " ") + QuoteArgument(a);
    return line;
}

std::string AutostartEntryText(const std::string& listName, const std::string& commandLine,
                               const std::string& entryPath) {
    std::vector<std::string> args = CommandArguments(commandLine);
    std::string comment = "Starts " + std::string(AppTitle) + " at every login";
    if (IsRunOnceList(listName)) {
        // The entry goes before the command starts, as a run-once list is emptied.
        std::vector<std::string> once = {"/bin/sh", "-c", "rm -f -- \"$0\"; exec \"$@\"",
                                         entryPath};
        once.insert(once.end(), args.begin(), args.end());
        args = std::move(once);
        comment = "Starts " + std::string(AppTitle) + " at the next login only";
    }
    std::string text = "[Desktop Entry]\n";
    text += "Type=Application\n";
    text += "Name=" + std::string(AppTitle) + "\n";
    text += "Comment=" + comment + "\n";
    text += "Icon=vantrellion\n";
    text += "Exec=" + EscapeString(ExecLine(args)) + "\n";
    text += "Terminal=false\n";
    text += std::string(CommandLineKey) + "=" + EscapeString(commandLine) + "\n";
    return text;
}

AutostartFolders::AutostartFolders(AutostartDirectories directories)
    : directories_(std::move(directories)) {}

std::string AutostartFolders::Folder(RegRoot root) const {
    if (root == HKEY_LOCAL_MACHINE) return directories_.machine;
    if (root == HKEY_CURRENT_USER) return directories_.user;
    return "";
}

std::string AutostartFolders::EntryPath(RegRoot root, const std::string& keyPath,
                                        const std::string& name) const {
    const std::string folder = Folder(root);
    const std::string list = StartupListName(keyPath);
    if (folder.empty() || list.empty() || !UsableName(name)) return "";
    return folder + name + "-" + list + ".desktop";
}

StoreStatus AutostartFolders::KeyExists(RegRoot root, const std::string& keyPath) {
    const std::string folder = Folder(root);
    if (folder.empty() || StartupListName(keyPath).empty() || !IsDirectory(folder))
        return StoreStatus::KeyNotFound;
    return ::access(folder.c_str(), W_OK | X_OK) == 0 ? StoreStatus::Ok : StoreStatus::Failed;
}

StoreStatus AutostartFolders::CreateKey(RegRoot root, const std::string& keyPath) {
    const std::string folder = Folder(root);
    if (folder.empty() || StartupListName(keyPath).empty()) return StoreStatus::Failed;
    if (!MakeDirectories(folder)) return StoreStatus::Failed;
    return ::access(folder.c_str(), W_OK | X_OK) == 0 ? StoreStatus::Ok : StoreStatus::Failed;
}

StoreStatus AutostartFolders::QueryValue(RegRoot root, const std::string& keyPath,
                                         const std::string& name, StoredValue& out) {
    const std::string folder = Folder(root);
    if (folder.empty() || StartupListName(keyPath).empty() || !IsDirectory(folder))
        return StoreStatus::KeyNotFound;
    const std::string path = EntryPath(root, keyPath, name);
    struct stat st {};
    if (path.empty() || ::lstat(path.c_str(), &st) != 0) return StoreStatus::ValueNotFound;
    // An entry that cannot be read is a value of unknown content: the layer tells so.
    out = StoredValue{};
    out.Type = RegTypeText;
    std::string bytes;
    if (!ReadFile(path, bytes)) return StoreStatus::Ok;
    std::string exec;
    std::istringstream lines(bytes);
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        const std::string prefix = std::string(CommandLineKey) + "=";
        if (line.rfind(prefix, 0) == 0) {
            out.Kind = StoredValue::Data::Text;
            out.Text = UnescapeString(line.substr(prefix.size()));
            return StoreStatus::Ok;
        }
        if (line.rfind("Exec=", 0) == 0 && exec.empty()) exec = UnescapeString(line.substr(5));
    }
    // An entry made by hand has only its Exec line.
    out.Kind = StoredValue::Data::Text;
    out.Text = exec;
    return StoreStatus::Ok;
}

StoreStatus AutostartFolders::SetValue(RegRoot root, const std::string& keyPath,
                                       const std::string& name, const StoredValue& value) {
    const std::string path = EntryPath(root, keyPath, name);
    if (path.empty() || value.Type != RegTypeText || value.Kind != StoredValue::Data::Text)
        return StoreStatus::Refused;
    if (CreateKey(root, keyPath) != StoreStatus::Ok) return StoreStatus::Failed;
    const std::string text = AutostartEntryText(StartupListName(keyPath), value.Text, path);
    return WriteFileWhole(path, text) ? StoreStatus::Ok : StoreStatus::Failed;
}

StoreStatus AutostartFolders::DeleteValue(RegRoot root, const std::string& keyPath,
                                          const std::string& name) {
    const StoreStatus open = KeyExists(root, keyPath);
    if (open != StoreStatus::Ok) return open;
    const std::string path = EntryPath(root, keyPath, name);
    if (path.empty()) return StoreStatus::ValueNotFound;
    if (::unlink(path.c_str()) == 0) return StoreStatus::Ok;
    return errno == ENOENT ? StoreStatus::ValueNotFound : StoreStatus::Failed;
}

StoreStatus AutostartFolders::DeleteKey(RegRoot root, const std::string& keyPath) {
    return KeyExists(root, keyPath) == StoreStatus::KeyNotFound ? StoreStatus::KeyNotFound
                                                                : StoreStatus::Refused;
}

}  // namespace vantrellion

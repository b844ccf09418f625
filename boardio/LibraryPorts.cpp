#include "boardio/LibraryPorts.h"

#include <dlfcn.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace vantrellion {

namespace {

constexpr std::string_view kGoesOn =
    "Until then Vantrellion drives no board: every port reads 0 and writes are dropped. "
    "To work without a board, switch the program to running without boards (emulation).";

std::string DirectoryOf(const std::string& path) {
    const auto slash = path.rfind('/');
    if (slash == std::string::npos) return "";
    if (slash == 0) return "/";
    return path.substr(0, slash);
}

std::string FileNameOf(const std::string& path) {
    const auto slash = path.rfind('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string ProgramFileForCommand() {
    std::string exe = ExecutablePath();
    return exe.empty() ? "<the program file>" : exe;
}

std::string ErrorText(int error) {
    return std::system_category().message(error);
}

std::string LibraryMissingText(const std::string& path) {
    std::string folder = DirectoryOf(path);
    if (folder.empty()) folder = "the program's folder";
    return "The port library " + FileNameOf(path) + " was not found.\n\nIt should be at\n  " +
           path + "\nin the folder " + folder +
           ", beside the program; the boards are reached only through it.\n\nReinstall "
           "Vantrellion, or copy " +
           FileNameOf(path) +
           " (or another port library with the functions In8255 and Out8255) into that "
           "folder.\n\n" +
           std::string(kGoesOn);
}

std::string LibraryNotLoadedText(const std::string& path, const std::string& why) {
    return "The port library\n  " + path + "\ncould not be loaded:\n  " + why +
           "\n\nReplace it with a port library built for this machine, with the functions "
           "In8255 and Out8255; reinstalling Vantrellion puts the default one back.\n\n" +
           std::string(kGoesOn);
}

std::string FunctionsMissingText(const std::string& path) {
    return "The port library\n  " + path +
           "\ndoes not have the functions In8255 and Out8255, so it cannot reach the "
           "boards.\n\nReplace it with a port library that has both functions; reinstalling "
           "Vantrellion puts the default one back.\n\n" +
           std::string(kGoesOn);
}

std::string PermissionText(int error) {
    const std::string exe = ProgramFileForCommand();
    std::string text = "The boards cannot be reached: the I/O ports (/dev/port) were refused (" +
                       ErrorText(error) + ").\n\n";
    if (error == EACCES) {
        text +=
            "Only root may open /dev/port. Run Vantrellion as root, or give the program the "
            "rights to the ports once with\n  sudo setcap cap_sys_rawio,cap_dac_override+ep " +
            exe + "\n(cap_sys_rawio for the ports themselves, cap_dac_override to open /dev/port).";
    } else {
        text +=
            "Port access needs root or the raw I/O right. Run Vantrellion as root, or give the "
            "program that right once with\n  sudo setcap cap_sys_rawio+ep " +
            exe;
    }
    text +=
        "\n\nA kernel locked down by Secure Boot refuses port access with \"Operation not "
        "permitted\", even to root; on such a machine the ports can be used only with Secure "
        "Boot turned off in the firmware settings.\n\n" +
        std::string(kGoesOn);
    return text;
}

std::string NoPortDeviceText(int error) {
    return "The boards cannot be reached: this kernel has no /dev/port (" + ErrorText(error) +
           "), the device through which the port library reaches the I/O ports.\n\nUse a "
           "kernel built with /dev/port (CONFIG_DEVPORT, the rule on PCs with an I/O port "
           "space), or put in place of the port library a library that reaches the boards "
           "another way, with the functions In8255 and Out8255.\n\n" +
           std::string(kGoesOn);
}

std::string OtherErrorText(const std::string& path, int error) {
    return "The boards cannot be reached: the port library\n  " + path +
           "\nreported an error: " + ErrorText(error) + " (error " + std::to_string(error) +
           ").\n\nCheck that the board is in place and that the port library suits this "
           "machine. A port that cannot be reached reads 0, and writes to it are dropped. To "
           "work without a board, switch the program to running without boards (emulation).";
}

}  // namespace

std::string ExecutablePath() {
    std::vector<char> buf(256);
    for (;;) {
        const ssize_t n = ::readlink("/proc/self/exe", buf.data(), buf.size());
        if (n < 0) return "";
        if (static_cast<size_t>(n) < buf.size()) return std::string(buf.data(), n);
        if (buf.size() >= 65536) return "";
        buf.resize(buf.size() * 2);
    }
}

std::string ExecutableDirectory() {
    const std::string exe = ExecutablePath();
    return exe.empty() ? "" : DirectoryOf(exe);
}

std::string DefaultPortLibraryPath() {
    const std::string dir = ExecutableDirectory();
    // Without a known folder the name alone is left to the dynamic loader's search.
    if (dir.empty()) return "libVantrellion.so";
    return (dir == "/" ? dir : dir + "/") + "libVantrellion.so";
}

LibraryPorts::LibraryPorts(std::string libraryPath, MessageBoxes& messages, const Flag& runNoBoards)
    : libraryPath_(std::move(libraryPath)), messages_(messages), runNoBoards_(runNoBoards) {}

LibraryPorts::~LibraryPorts() {
    if (handle_ != nullptr) ::dlclose(handle_);
}

void LibraryPorts::Load() {
    loadTried_ = true;
    if (::access(libraryPath_.c_str(), F_OK) != 0 && libraryPath_.find('/') != std::string::npos) {
        problem_ = LibraryMissingText(libraryPath_);
        return;
    }
    handle_ = ::dlopen(libraryPath_.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (handle_ == nullptr) {
        const char* why = ::dlerror();
        problem_ = LibraryNotLoadedText(libraryPath_, why != nullptr ? why : "unknown reason");
        return;
    }
    ::dlerror();
    in_ = reinterpret_cast<decltype(in_)>(::dlsym(handle_, "In8255"));
    out_ = reinterpret_cast<decltype(out_)>(::dlsym(handle_, "Out8255"));
    if (in_ == nullptr || out_ == nullptr) {
        in_ = nullptr;
        out_ = nullptr;
        problem_ = FunctionsMissingText(libraryPath_);
    }
}

void LibraryPorts::NoteCallError(int error) {
    if (error == 0 || !problem_.empty()) return;
    switch (error) {
        case EPERM:
        case EACCES:
            problem_ = PermissionText(error);
            break;
        case ENOENT:
        case ENODEV:
        case ENXIO:
            problem_ = NoPortDeviceText(error);
            break;
        default:
            problem_ = OtherErrorText(libraryPath_, error);
            break;
    }
}

void LibraryPorts::TellIfDue() {
    if (told_ || problem_.empty() || runNoBoards_ != 0) return;
    // Marked first: the box may run events that reach the ports again.
    told_ = true;
    messages_.Show(MessageBoxRequest{
        .Prompt = problem_, .ButtonSet = Buttons::OK, .BoxIcon = Icon::Exclamation});
}

int16_t LibraryPorts::In8255(int16_t port) {
    if (!loadTried_) Load();
    int16_t value = 0;
    if (in_ != nullptr) {
        errno = 0;
        value = in_(port);
        NoteCallError(errno);
    }
    TellIfDue();
    return value;
}

int16_t LibraryPorts::Out8255(int16_t port, int16_t value) {
    if (!loadTried_) Load();
    int16_t result = 0;
    if (out_ != nullptr) {
        errno = 0;
        result = out_(port, value);
        NoteCallError(errno);
    }
    TellIfDue();
    return result;
}

}  // namespace vantrellion

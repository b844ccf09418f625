#include "configuration/StoreAtStart.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <system_error>

#include "configuration/DefaultConfiguration.h"
#include "configuration/KeyValueStore.h"
#include "configuration/clsConfiguration.h"

namespace vantrellion {

namespace {

std::string StoreBusyText(const std::string& file, const std::string& holders) {
    return "The configuration store\r\n" + file + "\r\nis locked by " +
           (holders.empty() ? std::string("another program") : holders) +
           ".\r\n\r\nVantrellion waits for it and goes on by itself as soon as it can be read."
           "\r\nClose the other program to go on now.\r\n\r\n"
           "Ignore: go on with the built-in configuration. The file then keeps what it holds; "
           "only what you change in this run is stored in it.\r\n"
           "Abort: end Vantrellion.";
}

// The name of a process as the system keeps it, without its line end.
std::string ProcessName(const std::filesystem::path& proc) {
    std::ifstream in(proc / "comm");
    std::string name;
    std::getline(in, name);
    return name.empty() ? std::string("a program") : name;
}

// The built-in configuration, as a first run that accepts every default leaves it (emulation
// and logging on), stored in memory only: it is then read as a stored configuration, and the
// user is not asked to configure. Nothing of it reaches the file.
void HoldBuiltInConfiguration(System& s) {
    ConfigurationLoadDefaults(s);
    s.modRelay.LoggingOnOff = True;
    s.modRelay.RunNoBoards = True;
    ConfigurationSaveToReg(s);
}

}  // namespace

std::string DescribeStoreHolders(const std::string& storeFile) {
    namespace fs = std::filesystem;
    std::error_code ec;
    const fs::path file = fs::weakly_canonical(storeFile, ec);
    if (ec) return "";
    const std::string own = std::to_string(::getpid());
    std::string out;
    for (auto it = fs::directory_iterator("/proc", ec); !ec && it != fs::directory_iterator();
         it.increment(ec)) {
        const std::string pid = it->path().filename().string();
        if (pid.empty() || pid.find_first_not_of("0123456789") != std::string::npos || pid == own)
            continue;
        std::error_code fdError;
        for (auto fd = fs::directory_iterator(it->path() / "fd", fdError);
             !fdError && fd != fs::directory_iterator(); fd.increment(fdError)) {
            std::error_code linkError;
            const std::string target = fs::read_symlink(fd->path(), linkError).string();
            if (linkError || target.rfind(file.string(), 0) != 0) continue;
            // The file itself, or its journal beside it ("-journal", "-wal").
            const std::string rest = target.substr(file.string().size());
            if (!rest.empty() && rest[0] != '-') continue;
            if (!out.empty()) out += ", ";
            out += ProcessName(it->path()) + " (process " + pid + ")";
            break;
        }
    }
    return out;
}

bool WaitForStoreAtStart(System& s) {
    KeyValueStore* store = s.platform.store;
    if (!store || store->CheckReadable(StoreFirstWaitMs) != KeyValueStore::Access::Busy)
        return true;
    const auto readable = [store] {
        return store->CheckReadable(0) != KeyValueStore::Access::Busy;
    };
    for (;;) {
        const MessageBoxRequest box{
            StoreBusyText(store->FilePath(), DescribeStoreHolders(store->FilePath())),
            Buttons::AbortRetryIgnore, Icon::Exclamation, 2, AppTitle};
        const std::optional<Answer> answer =
            s.platform.messages->ShowUntil(box, readable, StoreRetryIntervalMs);
        if (!answer) return true;
        switch (*answer) {
            case Answer::Abort:
                return false;
            case Answer::Ignore:
                store->GoOnWithoutFile();
                HoldBuiltInConfiguration(s);
                return true;
            default:
                // Retry: one more look, a little longer; the box comes again if still held.
                if (store->CheckReadable(StoreFirstWaitMs) != KeyValueStore::Access::Busy)
                    return true;
                break;
        }
    }
}

}  // namespace vantrellion

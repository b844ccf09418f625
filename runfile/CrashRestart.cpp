#include "runfile/CrashRestart.h"

#include <fcntl.h>
#include <unistd.h>

#include "core/MachineDirectory.h"
#include "logging/EventLog.h"
#include "runfile/RunFileLoad.h"
#include "runfile/RunFileSave.h"

namespace vantrellion {

bool TryCrashRestart(System& s) {
    if (LoadRunFile(s, s.platform.machineDirectory, RestartFileName, false) != RunFileLoaded) {
        return false;
    }
    WriteEventLog(s, "ReStart", "****** System Crashed & Restarted ******");
    return true;
}

void SaveRestartFile(System& s) {
    FrmRelay& f = s.frmRelay;
    if (f.RestartDisabled != 0) return;
    const Flag autoRestarted = f.AutoRestarted;
    // The machine directory is created on first need; if that fails, the save reports it.
    if (!s.platform.machineDirectory.empty()) EnsureDirectory(s.platform.machineDirectory);
    if (!SaveRunFile(s, s.platform.machineDirectory, RestartFileName)) {
        ShowRestartFileError(s);
        f.RestartDisabled = True;
    }
    // SaveRunFile clears it; a restored schedule stays marked as such until the user saves.
    f.AutoRestarted = autoRestarted;
}

void RemoveRestartFile(System&, const std::string& Path, const std::string& FileName) {
    const std::string fullName = Path + FileName;
    const int fd = ::open(fullName.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0) return;
    ::close(fd);
    ::unlink(fullName.c_str());
}

void ShowRestartFileError(System& s) {
    s.Message({"Restart Capability will be Disabled", Buttons::OK, Icon::Exclamation, 1,
               "Unable to Create Restart File!"});
}

}  // namespace vantrellion

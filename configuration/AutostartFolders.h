// The start-up lists of the run-on-boot entries, held in the freedesktop autostart folders.
//
// The keys SOFTWARE\Microsoft\Windows\CurrentVersion\Run, RunOnce, RunServices, RunOnceServices
// and RunServicesOnce all live in one folder per root: the machine-wide root (hex 80000002) in
// the machine's autostart folder (/etc/xdg/autostart, or the first of $XDG_CONFIG_DIRS), the
// current-user root (hex 80000001) in $XDG_CONFIG_HOME/autostart. A value is one desktop entry
// file named after the value and the key, "VantrellionRunMe-Run.desktop" for the value
// VantrellionRunMe under Run. The value's text is the command line that the session runs at
// login; the entry keeps it verbatim in X-Vantrellion-CommandLine and runs it through Exec.
// An entry of a run-once list (RunOnce, RunOnceServices, RunServicesOnce) removes its own file
// before it starts the command, so it runs at one login only.
//
// The folder of a root counts as the key: it exists, or it does not; a folder that cannot be
// written refuses to be opened for a change. There are no notices: every failure comes back as
// a status, which the access layer tells in its own words.
#pragma once

#include <string>
#include <vector>

#include "core/KeyValueBackend.h"

namespace vantrellion {

struct AutostartDirectories {
    std::string machine;  // with its trailing "/", or "" when unknown
    std::string user;
};

// The folders of this session, from $XDG_CONFIG_DIRS, $XDG_CONFIG_HOME and $HOME. Relative
// paths in these variables are ignored, as the base directory rules say.
AutostartDirectories DefaultAutostartDirectories();

// The name of the start-up list that a key path names ("Run", "RunOnce", ...), in its own
// spelling whatever the case and separators of the path; "" for any other key.
std::string StartupListName(const std::string& keyPath);

// True for the lists whose entries the platform removes once it has run them.
bool IsRunOnceList(const std::string& listName);

// The text of a desktop entry that runs commandLine at login. The program of the command is
// found by the platform's rule for a command line without quotation marks: the shortest run of
// leading words that names an executable file, else the first word. entryPath is where the
// file will stand; a run-once entry removes that file before it runs the command.
std::string AutostartEntryText(const std::string& listName, const std::string& commandLine,
                               const std::string& entryPath);

// The Exec value of a desktop entry for these arguments: each quoted where the format needs it.
std::string ExecLine(const std::vector<std::string>& arguments);

class AutostartFolders : public KeyValueBackend {
  public:
    explicit AutostartFolders(AutostartDirectories directories);

    // The file that holds value name of the list of keyPath at root, "" when there is none.
    std::string EntryPath(RegRoot root, const std::string& keyPath, const std::string& name) const;

    StoreStatus KeyExists(RegRoot root, const std::string& keyPath) override;
    StoreStatus CreateKey(RegRoot root, const std::string& keyPath) override;
    StoreStatus QueryValue(RegRoot root, const std::string& keyPath, const std::string& name,
                           StoredValue& out) override;
    // Only text values are kept; a number is refused.
    StoreStatus SetValue(RegRoot root, const std::string& keyPath, const std::string& name,
                         const StoredValue& value) override;
    StoreStatus DeleteValue(RegRoot root, const std::string& keyPath,
                            const std::string& name) override;
    // The folder is shared by all lists and other programs' entries: it is never deleted.
    StoreStatus DeleteKey(RegRoot root, const std::string& keyPath) override;

  private:
    std::string Folder(RegRoot root) const;

    AutostartDirectories directories_;
};

}  // namespace vantrellion

#include "mainscreen/FileCommands.h"

#include <sys/stat.h>

#include "boardio/BoardSetup.h"
#include "core/CheckTimeControl.h"
#include "core/ExportFileName.h"
#include "core/RecentFiles.h"
#include "core/ResetRelayRecords.h"
#include "logging/EventLog.h"
#include "mainscreen/LoadRowIcons.h"
#include "mainscreen/RefreshTitleAndMenus.h"
#include "mainscreen/RowRefill.h"
#include "runfile/CrashRestart.h"
#include "runfile/RunFileLoad.h"
#include "runfile/RunFileSave.h"

namespace vantrellion {

namespace {

void StoreDataFileLocation(System& s) {
    if (ConfigurationStore* c = s.platform.configuration) {
        c->ConfigurationDataFileNameSave();
        c->ConfigurationDataFilePathSave();
    }
}

// The text of the "Open" and "Save" events: path, a separator, name. The path keeps its own
// trailing separator, so the text holds two in a row.
std::string EventFileText(const System& s) {
    return s.modRelay.DataFilePath + "/" + s.modRelay.DataFileName;
}

void RemoveTheRestartFile(System& s) {
    RemoveRestartFile(s, s.platform.machineDirectory, RestartFileName);
}

// The common end of New and Open: the relays let go and the new schedule in the restart
// file; the tick takes it up when the command gives back its hold.
void HandOverToTheNewSchedule(System& s) {
    ResetAllRelays(s);
    s.frmRelay.RestartDisabled = False;
    s.frmRelay.FileChanged = False;
    SaveRestartFile(s);
}

void TellRecentFiles(System& s) {
    if (s.platform.recentFiles)
        s.platform.recentFiles->FileUsed(s.modRelay.DataFilePath + s.modRelay.DataFileName);
}

}  // namespace

int FormAskFileSaveCancel(System& s, const std::string& Path, const std::string& FileName) {
    MessageBoxRequest box;
    box.Prompt = "Save File?";
    box.Title = "Save?";
    box.ButtonSet = Buttons::YesNoCancel;
    box.DefaultButton = 2;
    switch (s.Message(box)) {
        case Answer::Yes:
            if (!FileName.empty())
                SaveRunFile(s, Path, FileName);
            else
                ShowFileSaveDialog(s);
            return 0;
        case Answer::Cancel:
            return 2;
        default:
            return 0;
    }
}

bool CancelledAtSaveQuestion(System& s) {
    return s.frmRelay.FileChanged != 0 &&
           FormAskFileSaveCancel(s, s.modRelay.DataFilePath, s.modRelay.DataFileName) == 2;
}

void SplitChosenFileName(System& s, const std::string& chosen) {
    const auto slash = chosen.rfind('/');
    const std::string last = slash == std::string::npos ? chosen : chosen.substr(slash + 1);
    s.modRelay.DataFileName = last;
    s.modRelay.DataFilePath = chosen.substr(0, chosen.size() - last.size());
}

void mnuFileNew(System& s) {
    FrmRelay& f = s.frmRelay;
    const CheckTimeHold hold(s);
    // Cancel (or Escape) on the question stops New and keeps the schedule.
    if (CancelledAtSaveQuestion(s)) return;
    f.AutoRestarted = False;
    RemoveTheRestartFile(s);
    s.modRelay.DataFileName = "";
    ResetRelayRecords(s);
    ResetRowVisuals(s);
    FillRowsFromRecords(s);
    RefreshTitleAndMenus(s);
    HandOverToTheNewSchedule(s);
}

void mnuFileOpen(System& s) {
    ModRelay& m = s.modRelay;
    const CheckTimeHold hold(s);
    if (CancelledAtSaveQuestion(s)) return;

    FileDialogRequest dialog;
    dialog.InitialDirectory = m.DataFilePath;
    dialog.FileName = m.DataFileName;
    dialog.Title = "Select Time-Schedule";
    dialog.Filter = "Run File (*.run)|*.run|All files (*)|*";
    dialog.Flags = 0x81000;
    const std::optional<std::string> chosen = s.platform.dialogs->ShowOpen(dialog);
    // A cancelled dialog ends the command here with nothing changed, and the relays go on
    // following the schedule on screen.
    if (!chosen) return;
    OpenChosenRunFile(s, *chosen);
}

bool mnuMRUFiles(System& s, const std::string& fileName) {
    const CheckTimeHold hold(s);
    if (CancelledAtSaveQuestion(s)) return false;
    return OpenChosenRunFile(s, fileName);
}

bool OpenChosenRunFile(System& s, const std::string& chosen) {
    const CheckTimeHold hold(s);
    FrmRelay& f = s.frmRelay;
    ModRelay& m = s.modRelay;
    SplitChosenFileName(s, chosen);
    StoreDataFileLocation(s);
    f.AutoRestarted = False;
    ResetRelayRecords(s);
    ResetRowVisuals(s);
    const bool loaded = LoadRunFile(s, m.DataFilePath, m.DataFileName, true) == RunFileLoaded;
    if (!loaded) {
        s.Message({"New, error encountered loading selected Run-Schedule"});
        m.DataFileName = "";
        ResetRelayRecords(s);
        ResetRowVisuals(s);
    } else {
        WriteEventLog(s, "Open", EventFileText(s));
        f.FileChanged = False;
        RemoveTheRestartFile(s);
        for (int i = 0; i <= LastRelay; ++i)
            f.Relay[i].Count = 0;
        SaveRestartFile(s);
        TellRecentFiles(s);
    }
    FillRowsFromRecords(s);
    LoadRowIcons(s, true);
    RefreshTitleAndMenus(s);
    HandOverToTheNewSchedule(s);
    return loaded;
}

void mnuFileSave(System& s) {
    ModRelay& m = s.modRelay;
    if (m.DataFileName == " " || m.DataFilePath.empty()) {
        ShowFileSaveDialog(s);
        return;
    }
    SaveRunFile(s, m.DataFilePath, m.DataFileName);
    WriteEventLog(s, "Save", EventFileText(s));
}

void mnuFileSaveAs(System& s) {
    ShowFileSaveDialog(s);
}

void ShowFileSaveDialog(System& s) {
    ModRelay& m = s.modRelay;
    FileDialogRequest dialog;
    dialog.InitialDirectory = m.DataFilePath;
    dialog.FileName = m.DataFileName;
    dialog.Title = "Save Time-Schedule as";
    dialog.Filter = "Run File (*.run)|*.run|Text File (*.txt)|*.txt";
    dialog.Flags = 2;
    if (std::optional<std::string> typed = s.platform.dialogs->ShowSave(dialog)) {
        // A name typed without an extension becomes a Run File, so that Open lists it.
        const std::string chosen = WithExtension(*typed, ".run");
        SplitChosenFileName(s, chosen);
        StoreDataFileLocation(s);
        const bool saved = SaveRunFile(s, m.DataFilePath, m.DataFileName);
        WriteEventLog(s, "Save", EventFileText(s));
        s.frmRelay.FileChanged = False;
        if (saved) TellRecentFiles(s);
    }
    RefreshTitleAndMenus(s);
}

void ReopenLastRunFile(System& s) {
    ModRelay& m = s.modRelay;
    const std::string last = s.platform.recentFiles ? s.platform.recentFiles->MostRecent() : "";
    if (last.empty()) return;
    struct stat st {};
    if (::stat(last.c_str(), &st) != 0 || !S_ISREG(st.st_mode)) {
        s.Message({"The Run File last used, \"" + last +
                       "\", no longer exists. The schedule starts as New.",
                   Buttons::OK, Icon::Exclamation});
        return;
    }
    // The loader's wording would be a second message: a file that raises any box did not load
    // cleanly, and the user gets the one message below.
    SplitChosenFileName(s, last);
    ResetRelayRecords(s);
    const bool clean = LoadRunFileCleanly(s, m.DataFilePath, m.DataFileName);
    if (!clean) {
        m.DataFileName = "";
        ResetRelayRecords(s);
        s.Message({"The Run File last used, \"" + last +
                       "\", is damaged and was not loaded. The schedule starts as New.",
                   Buttons::OK, Icon::Exclamation});
        return;
    }
    WriteEventLog(s, "Open", EventFileText(s));
    s.frmRelay.FileChanged = False;
    SaveRestartFile(s);
}

}  // namespace vantrellion

#include "mainscreen/RowCommands.h"

#include <optional>

#include "engine/CheckTimePairs.h"
#include "engine/RowTotals.h"
#include "mainscreen/RowRefill.h"
#include "mainscreen/StatusHint.h"
#include "mainscreen/ToolTips.h"
#include "runfile/CrashRestart.h"

namespace vantrellion {

namespace {

// The dialog's start: the directory and file of the row's icon, else the Run File's
// directory, else the user's documents folder.
void SetIconDialogStart(const System& s, int i, FileDialogRequest& request) {
    const std::string& icon = s.frmRelay.Relay[i].IconFile;
    if (!icon.empty()) {
        const std::size_t slash = icon.rfind('/');
        const std::string name = slash == std::string::npos ? icon : icon.substr(slash + 1);
        request.FileName = name;
        request.InitialDirectory = icon.substr(0, icon.size() - name.size());
    } else if (!s.modRelay.DataFilePath.empty()) {
        request.InitialDirectory = s.modRelay.DataFilePath;
    } else {
        request.InitialDirectory = s.platform.documentsDirectory;
    }
}

}  // namespace

void ClearRowTotal(System& s, int i) {
    s.display().SetTotalTimeCaption(i, " ");
    s.display().SetTotalTimeBackground(i, s.modRelay.ColorTTimeBkgrnd);
    RefreshRowTotal(s, PairIndex(i, 0));
}

void imgHardStop_Click(System& s, int i) {
    RelayRecord& rec = s.frmRelay.Relay[i];
    if (rec.HardStop == True) {
        rec.HardStop = False;
        rec.CycleStart = 0;
        EnableStoppedRowControls(s, i, true);
        ClearRowTotal(s, i);
    } else {
        // The tick writes "> STOP <" into the total.
        rec.HardStop = True;
        rec.CycleStart = 0;
        EnableStoppedRowControls(s, i, false);
    }
    SaveRestartFile(s);
}

void lblTotalTime_Click(System& s, int i) {
    if (s.frmRelay.Relay[i].HardStop == True) imgHardStop_Click(s, i);
}

void lblManual_Click(System& s, int i) {
    RelayRecord& rec = s.frmRelay.Relay[i];
    if (rec.Manual == True) {
        rec.Manual = False;
        rec.CycleStart = 0;
        ClearRowTotal(s, i);
    } else {
        rec.Manual = True;
        rec.CycleStart = 0;
    }
    SaveRestartFile(s);
}

void lblInvert_Click(System& s, int i) {
    RelayRecord& rec = s.frmRelay.Relay[i];
    // A cyclic row shows the time of its next change here; it has nothing to invert.
    if (rec.DayHrEvenOdd.IsCyclic()) return;
    // Unlike Manual and Stop, Invert leaves the cyclic mark alone.
    if (rec.Invert == True) {
        rec.Invert = False;
        ClearRowTotal(s, i);
    } else {
        rec.Invert = True;
    }
    SaveRestartFile(s);
}

void lblCounter_MouseDown(System& s, int i, int Button) {
    RelayRecord& rec = s.frmRelay.Relay[i];
    if (Button == LeftButton) {
        // Switching off keeps the count; switching on shows it again.
        if (rec.CounterOn == True) {
            rec.CounterOn = False;
            s.display().SetCounterCaption(i, "Counter");
        } else {
            rec.CounterOn = True;
            s.display().SetCounterCaption(i, std::to_string(rec.Count));
        }
    } else if (Button == RightButton) {
        // Zeroes the count also on an inactive counter, which then shows "0".
        rec.Count = 0;
        s.display().SetCounterCaption(i, std::to_string(rec.Count));
    }
    SaveRestartFile(s);
}

void imgIDIcon_Click(System& s, int i) {
    FrmRelay& f = s.frmRelay;
    // A row without an icon starts from the first row that has one; the copy stays even if
    // the user cancels.
    if (f.Relay[i].IconFile.empty()) {
        for (int r = 0; r <= RecordIndex(LastBoard, LastRelay); ++r) {
            if (!f.Relay[r].IconFile.empty()) {
                f.Relay[i].IconFile = f.Relay[r].IconFile;
                break;
            }
        }
    }
    FileDialogRequest request;
    request.Title = "Select Icon";
    request.Filter = IconDialogFilter;
    request.Flags = IconDialogFlags;
    SetIconDialogStart(s, i, request);
    const std::optional<std::string> chosen = s.platform.dialogs->ShowOpen(request);
    if (!chosen || chosen->empty()) return;
    // A picture that cannot be loaded is not reported; its path is kept all the same.
    std::string error;
    s.screen().LoadPicture(Control::imgIDIcon, i, *chosen, error);
    f.Relay[i].IconFile = *chosen;
    f.FileChanged = True;
    SaveRestartFile(s);
}

std::string RowControl_MouseMove(System& s, Control c, const std::string& caption,
                                 const std::string& toolTip) {
    const std::string tip = LazyToolTip(c, toolTip);
    switch (c) {
        case Control::lblManual:
        case Control::lblInvert:
        case Control::lblTotalTime:
        case Control::lblCounter:
            ShowStatusHint(s, caption);
            break;
        default:
            break;  // images leave the status bar alone
    }
    return tip;
}

}  // namespace vantrellion

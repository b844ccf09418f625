#include "mainscreen/MainScreenLifecycle.h"

#include "boardio/BoardSetup.h"
#include "core/CheckTimeControl.h"
#include "core/ResetRelayRecords.h"
#include "core/clsFormCoOrdsRelay.h"
#include "core/clsResizeFormCntls.h"
#include "mainscreen/FileCommands.h"
#include "mainscreen/LoadRowIcons.h"
#include "mainscreen/RefreshTitleAndMenus.h"
#include "mainscreen/RowRefill.h"
#include "runfile/CrashRestart.h"

namespace vantrellion {

namespace {
constexpr int kMainWindowIcon = 101;
}

void Form_Initialize(System& s) {
    FrmRelay& f = s.frmRelay;
    f.FileChanged = False;
    f.ResizeReady = False;
    f.ResizedOnce = True;
    f.SavePositionAtExit = False;
    InitAllBoards(s);
    s.modRelay.DataFileName = "";
    ResetRelayRecords(s);
}

void Form_Load(System& s) {
    FrmRelay& f = s.frmRelay;
    MainScreenView& v = s.screen();
    v.SetWindowIcon(kMainWindowIcon);
    if (TryCrashRestart(s))
        f.AutoRestarted = True;
    else
        ReopenLastRunFile(s);
    v.StackRelayGroups();
    ApplyRelayGroupColors(s);
    ResetRowVisuals(s);
    LoadStopPictures(s);
    LoadRelayIcons(s);
    FillRowsFromRecords(s);
    LoadRowIcons(s, f.AutoRestarted == 0);
    RefreshTitleAndMenus(s);
    FormWindow* window = v.Window();
    if (window) GetFormPriorPosition(s, *window);
    v.SizeFormToRows();
    v.ApplyRunTimeFonts();
    f.ResizeFormCntls = std::make_shared<clsResizeFormCntls>();
    f.ResizeFormCntls->SetSourceForm(window);
    f.ResizeReady = True;
    f.ResizedOnce = False;
    f.SavePositionAtExit = True;
    f.FileChanged = False;
    f.CheckTimeAllowed = True;
    // The design geometry of the resize is what the user first sees.
    f.ResizeFormCntls->ReInitialize();
    ResumeCheckTime(s);
}

bool Form_QueryUnload(System& s) {
    SuspendCheckTime(s);
    if (s.frmRelay.FileChanged != 0 &&
        FormAskFileSaveCancel(s, s.modRelay.DataFilePath, s.modRelay.DataFileName) == 2) {
        ResumeCheckTime(s);
        return true;
    }
    s.frmRelay.UnloadStarted = True;
    return false;
}

void Form_Unload(System& s) {
    s.frmRelay.UnloadStarted = True;
    RemoveRestartFile(s, s.platform.machineDirectory, RestartFileName);
    ResetAllRelays(s);
    ClearOutputPorts(s);
    // A main screen that the user has resized keeps the place stored before.
    if (s.frmRelay.SavePositionAtExit != 0)
        if (FormWindow* window = s.screen().Window()) SetFormCurrPosition(s, *window);
    s.frmRelay.ResizeFormCntls.reset();
}

}  // namespace vantrellion

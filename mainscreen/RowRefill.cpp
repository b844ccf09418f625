#include "mainscreen/RowRefill.h"

#include "engine/RowTotals.h"

namespace vantrellion {

namespace {
constexpr int kStopPicture = 110;
constexpr int kFirstRelayIcon = 121;
}  // namespace

void ApplyRelayGroupColors(System& s) {
    for (int i = 0; i <= LastRelay; ++i)
        s.screen().SetBackColor(Control::fraRelayGroup, i, s.modRelay.ColorRelayGroup[i]);
}

void ResetRowVisuals(System& s) {
    MainScreenView& v = s.screen();
    const ModRelay& m = s.modRelay;
    for (int i = 0; i <= LastRelay; ++i) {
        const int b = i / RelaysPerBoard, r = i % RelaysPerBoard;
        // The picture of the previous schedule goes; the row shows its built-in icon until
        // the new schedule's own icon replaces it.
        v.ClearPicture(Control::imgIDIcon, i);
        v.LoadResourcePicture(Control::imgIDIcon, i, kFirstRelayIcon + i);
        v.SetText(Control::lblTotalTime, i, "00:00:00");
        v.SetBackColor(Control::lblTotalTime, i, m.ColorTTimeBkgrnd);
        v.SetBackColor(Control::lblManual, i, m.ColorManualOFF);
        // A row stopped in the previous schedule gets all four controls that the stop held
        // back, not only Manual and Invert: the code field and the counter would otherwise
        // stay disabled on a row that is no longer stopped.
        EnableStoppedRowControls(s, i, true);
        v.SetText(Control::lblInvert, i, "Invert");
        v.SetText(Control::lblCounter, i, "Counter");
        v.SetBackColor(Control::shpOnOffLight, i, m.ColorRelayOFF);
        v.SetText(Control::txtDisplayName, i, m.Board[b].RelayName[r]);
        v.SetBackColor(Control::txtDisplayName, i, m.ColorNameBkgrnd);
        v.SetText(Control::txtDaysOfWeek, i, " ");
        v.SetText(Control::txtDayHrEvenOdd, i, " ");
        for (int p = 0; p <= LastTimePair; ++p) {
            const int k = PairIndex(i, p);
            v.SetText(Control::txtStartTime, k, " ");
            v.SetBackColor(Control::txtStartTime, k, m.ColorTimeOFF);
            v.SetText(Control::txtEndTime, k, " ");
            v.SetBackColor(Control::txtEndTime, k, m.ColorTimeOFF);
        }
    }
}

void LoadStopPictures(System& s) {
    for (int i = 0; i <= LastRelay; ++i)
        s.screen().LoadResourcePicture(Control::imgHardStop, i, kStopPicture);
}

void LoadRelayIcons(System& s) {
    for (int i = 0; i <= LastRelay; ++i)
        s.screen().LoadResourcePicture(Control::imgIDIcon, i, kFirstRelayIcon + i);
}

void EnableStoppedRowControls(System& s, int i, bool enabled) {
    MainScreenView& v = s.screen();
    v.SetEnabled(Control::txtDayHrEvenOdd, i, enabled);
    // A stop greys the code field's background, and nothing else would give its own back: a
    // row that runs again shows it as any field, until its code lights it again.
    if (enabled) v.SetBackColor(Control::txtDayHrEvenOdd, i, WindowBackground);
    v.SetEnabled(Control::lblManual, i, enabled);
    v.SetEnabled(Control::lblInvert, i, enabled);
    v.SetEnabled(Control::lblCounter, i, enabled);
}

void FillRowsFromRecords(System& s) {
    FrmRelay& f = s.frmRelay;
    MainScreenView& v = s.screen();
    f.RowsShown = False;
    for (int i = 0; i <= LastRelay; ++i) {
        const RelayRecord& rec = f.Relay[i];
        v.SetText(Control::txtDisplayName, i, rec.DisplayName);
        v.SetText(Control::txtDaysOfWeek, i, rec.DaysOfWeek);
        v.SetText(Control::txtDayHrEvenOdd, i, rec.DayHrEvenOdd);
        for (int p = 0; p <= LastTimePair; ++p) {
            const int k = PairIndex(i, p);
            v.SetText(Control::txtStartTime, k, f.StartTime[k]);
            v.SetText(Control::txtEndTime, k, f.EndTime[k]);
        }
        RefreshRowTotal(s, PairIndex(i, 0));
        if (rec.Manual != 0) v.SetText(Control::lblTotalTime, i, "Manual");
        if (rec.HardStop != 0) EnableStoppedRowControls(s, i, false);
    }
    f.RowsShown = True;
}

}  // namespace vantrellion

#include "core/ResetRelayRecords.h"

namespace vantrellion {

void ResetRelayRecords(System& s) {
    auto& f = s.frmRelay;
    f.Holds = ScheduleHolds{};
    for (int b = 0; b <= LastBoard; ++b) {
        for (int r = 0; r <= LastRelay; ++r) {
            const int i = RecordIndex(b, r);
            RelayRecord& rec = f.Relay[i];
            rec.DisplayName = s.modRelay.Board[b].RelayName[r];
            rec.DaysOfWeek = "All Days";
            rec.DayHrEvenOdd = "EO";
            rec.Manual = 0;
            rec.Invert = 0;
            rec.CounterOn = 0;
            rec.HardStop = 0;
            rec.IconFile = "";
            rec.OldState = 9;
            rec.NewState = 9;
            rec.CycleStart = 0;
            rec.InputState = 9;
            rec.Count = 0;
            rec.Held = Hold::None;
            for (int p = 0; p <= LastTimePair; ++p) {
                f.StartTime[PairIndex(i, p)] = "";
                f.EndTime[PairIndex(i, p)] = "";
            }
        }
    }
}

}  // namespace vantrellion

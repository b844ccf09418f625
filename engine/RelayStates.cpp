#include "engine/RelayStates.h"

#include "boardio/PortAccess.h"
#include "engine/CheckTimePairs.h"
#include "engine/HeldRelays.h"

namespace vantrellion {

namespace {

// Red of the stopped total, "&HFF&"; not a colour the user sets.
constexpr Color kStopRed = 255;

enum class Write { Nothing, On, Off, Fault };

// The two tables of resolution, by OldState (0, 1, 9) and NewState (0, 1). A pair outside
// the plain table is a fault; outside the inverted table it does nothing.
Write Resolve(int16_t oldState, int16_t newState, bool inverted) {
    struct Row {
        int16_t oldState, newState;
        Write plain, inverted;
    };
    static constexpr Row kTable[] = {
        {0, 0, Write::Nothing, Write::On},  {0, 1, Write::On, Write::Nothing},
        {1, 1, Write::Nothing, Write::Off}, {1, 0, Write::Off, Write::Nothing},
        {9, 1, Write::On, Write::Off},      {9, 0, Write::Off, Write::On},
    };
    for (const Row& row : kTable)
        if (row.oldState == oldState && row.newState == newState)
            return inverted ? row.inverted : row.plain;
    return inverted ? Write::Nothing : Write::Fault;
}

bool ColoursCodeField(const EvenOddCode& code, int p) {
    const CodeRule rule = code.Rule();
    if (p == 0 && (rule == CodeRule::TopOfHour || rule == CodeRule::MiddleOfHour ||
                   rule == CodeRule::BottomOfHour || rule == CodeRule::ThreeWindows ||
                   rule == CodeRule::Cyclic))
        return true;
    return rule == CodeRule::ThreeWindows && (p == 1 || p == 2);
}

}  // namespace

void UpdateRelayOutputs(System& s) {
    auto& f = s.frmRelay;
    for (int b = 0; b <= LastBoard; ++b) {
        const std::string& chip = s.modRelay.Board[b].ChipSetType;
        for (int r = 0; r <= LastRelay; ++r) {
            const int i = RecordIndex(b, r);
            const RelayRecord& rec = f.Relay[i];
            if (chip == "ACL-7125" || chip == "PCL-725") {
                s.modRelay.StepDelay = 1000;
                WaitStepDelay(s);
                s.modRelay.StepDelay = 0;
            }
            if (rec.HardStop == -1) {
                SetRelayOff(s, b, r);
                continue;
            }
            if (rec.Invert != 0 && rec.Invert != -1) continue;
            // A held relay stays off whatever Invert says; Manual still acts, inverted or not.
            const bool held = rec.Held != Hold::None && rec.Manual != -1;
            switch (Resolve(rec.OldState, rec.NewState, rec.Invert == -1 && !held)) {
                case Write::On:
                    SetRelayOn(s, b, r);
                    break;
                case Write::Off:
                    SetRelayOff(s, b, r);
                    break;
                case Write::Nothing:
                    break;
                case Write::Fault:
                    s.Message({"Error Did Not Evaluate Old / New State Correctly"});
                    break;
            }
        }
    }
}

void ShowRelayStates(System& s, const PortBytes& relayBytes) {
    auto& f = s.frmRelay;
    const auto& m = s.modRelay;
    RowDisplay& d = s.display();
    for (int b = 0; b < static_cast<int>(relayBytes.size()); ++b) {
        for (int r = 0; r <= 7; ++r) {
            const int i = RecordIndex(b, r);
            RelayRecord& rec = f.Relay[i];
            std::string status;
            const int16_t mask = GetANDOR(s, r);
            if ((relayBytes[b] & mask) == mask) {
                rec.OldState = 1;
                d.SetOnOffLight(i, m.ColorRelayON);
            } else {
                rec.OldState = 0;
                d.SetOnOffLight(i, m.ColorRelayOFF);
            }
            for (int p = 0; p <= 5; ++p) {
                const int k = PairIndex(i, p);
                if (f.PairActive[k] == 0) {
                    d.SetTimePairBackground(k, m.ColorTimeOFF);
                    continue;
                }
                d.SetTimePairBackground(k, m.ColorTimeON);
                if (rec.DayHrEvenOdd == "EO" || rec.DayHrEvenOdd == "") continue;
                if (ColoursCodeField(rec.DayHrEvenOdd, p))
                    d.SetDayHrEvenOddBackground(i, m.ColorTimeON);
            }
            if (rec.Manual == -1) {
                d.SetManualBackground(i, m.ColorManualON);
                if (rec.Invert == 0) {
                    d.SetInvertBackground(i, m.ColorManualOFF);
                    status = ">Manual<";
                } else {
                    d.SetInvertBackground(i, m.ColorManualON);
                    status = ">Invr-Man<";
                }
            } else {
                d.SetManualBackground(i, m.ColorManualOFF);
                if (rec.Invert != 0) {
                    d.SetInvertBackground(i, m.ColorManualON);
                    status = " Invert ";
                } else {
                    d.SetInvertBackground(i, m.ColorManualOFF);
                }
            }
            if (rec.Manual != -1 && rec.Held == Hold::Paused) {
                status = PausedCaption(f.Holds.PausedUntil[i], ToLocalSeconds(s.clock().Now()));
            } else if (rec.Manual != -1 && rec.Held == Hold::DayOff) {
                status = "Day off";
            }
            if (rec.HardStop == -1) {
                status = "> STOP <";
                d.SetTotalTimeBackground(i, kStopRed);
                d.SetManualBackground(i, m.ColorManualOFF);
                d.SetInvertBackground(i, m.ColorManualOFF);
                d.SetDayHrEvenOddBackground(i, m.ColorManualOFF);
            }
            d.SetTotalTimeCaption(i, status.empty() ? rec.TotalTime : status);
        }
    }
}

}  // namespace vantrellion

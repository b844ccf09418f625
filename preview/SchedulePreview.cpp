#include "preview/SchedulePreview.h"

#include <algorithm>
#include <bitset>
#include <map>
#include <set>

#include "boardio/PortAccess.h"
#include "core/DateTimeText.h"
#include "core/FatalError.h"
#include "core/NullRowDisplay.h"
#include "core/RelayColumns.h"
#include "engine/CheckTimePairs.h"
#include "engine/PairTimes.h"
#include "engine/RelayStates.h"
#include "preview/OnTimeStops.h"

namespace vantrellion {

namespace {

constexpr LocalSeconds Day = 86400;
constexpr int DrivenRelays = (LastBoard + 1) * RelaysPerBoard;
constexpr int DrivenPairs = DrivenRelays * (LastTimePair + 1);

// The emulated board's addresses, used when the configuration gives the board none: a board
// without a base address never switches, which would hide the whole schedule.
constexpr int16_t StandInBase = 0x300;
constexpr int16_t StandInInput = 0x301;

LocalSeconds FloorDay(LocalSeconds t) {
    LocalSeconds q = t / Day;
    if (t % Day != 0 && t < 0) --q;
    return q * Day;
}

// The clock of the simulation: date, weekday and time of the simulated second, and the tick
// count advancing 1000 per second. The date is worked out afresh only when a day begins.
class SimulatedClock : public Clock {
  public:
    void Set(LocalSeconds t, int64_t tick) {
        if (!valid_ || FloorDay(t) != dayStart_) {
            now_ = FromLocalSeconds(t);
            dayStart_ = FloorDay(t);
            valid_ = true;
        } else {
            const int secs = static_cast<int>(t - dayStart_);
            now_.Hour = secs / 3600;
            now_.Minute = secs / 60 % 60;
            now_.Second = secs % 60;
        }
        tick_ = tick;
    }
    DateTime Now() override { return now_; }
    int64_t MonotonicMs() override { return tick_; }

  private:
    DateTime now_;
    LocalSeconds dayStart_ = 0;
    bool valid_ = false;
    int64_t tick_ = 0;
};

// The preview runs in emulation mode, so no port is ever reached; should one be, it reads 0
// and writes nowhere.
class NoPorts : public Ports {
  public:
    int16_t In8255(int16_t) override { return 0; }
    int16_t Out8255(int16_t, int16_t value) override { return value; }
};

class IdleTimer : public CheckTimer {
  public:
    void SetEnabled(bool e) override { enabled_ = e; }
    bool IsEnabled() const override { return enabled_; }

  private:
    bool enabled_ = false;
};

class NoEvents : public EventPump {
  public:
    bool InputPending() override { return false; }
    void ProcessPendingEvents() override {}
};

// A message box of the engine would stop the live program until answered. The preview notes
// its text and time and answers it with the first button.
class NotedMessages : public MessageBoxes {
  public:
    LocalSeconds now = 0;
    std::vector<std::pair<LocalSeconds, std::string>> shown;
    Answer Show(const MessageBoxRequest& r) override {
        shown.emplace_back(now, r.Prompt);
        switch (r.ButtonSet) {
            case Buttons::AbortRetryIgnore:
                return Answer::Abort;
            case Buttons::YesNoCancel:
            case Buttons::YesNo:
                return Answer::Yes;
            case Buttons::RetryCancel:
                return Answer::Retry;
            default:
                return Answer::OK;
        }
    }
};

std::string PairLabel(const FrmRelay& f, int k) {
    return std::to_string(k % (LastTimePair + 1) + 1) + " (" + f.StartTime[k].Text() + " to " +
           f.EndTime[k].Text() + ")";
}

// The copy of the schedule that the simulation runs on, started as the program starts a
// schedule it has just opened: every relay and input unread, no cycle running, outputs off.
void PrepareCopy(System& sim, const ScheduleSnapshot& schedule) {
    sim.modRelay = schedule.modRelay;
    sim.frmRelay = schedule.frmRelay;
    sim.modRelay.RunNoBoards = True;
    sim.modRelay.LoggingOnOff = False;
    sim.modRelay.StepDelay = 0;
    for (int b = 0; b <= LastBoard; ++b) {
        BoardRecord& board = sim.modRelay.Board[b];
        if (board.BaseAddress == 0) {
            board.BaseAddress = StandInBase;
            board.InputAddress = StandInInput;
        }
    }
    FrmRelay& f = sim.frmRelay;
    for (int i = 0; i < DrivenRelays; ++i) {
        f.Relay[i].OldState = 9;
        f.Relay[i].NewState = 9;
        f.Relay[i].InputState = 9;
        f.Relay[i].CycleStart = 0;
    }
    f.PairActive.fill(False);
    f.EmulatedPort.fill(0);
    f.EmulatedOtherPort = 0;
    f.CheckTimeAllowed = False;  // nothing in the copy may start a timer
}

// Set pairs of one relay that overlap, by the rule that field entry warns by.
void AddOverlapWarnings(const ScheduleSnapshot& schedule, PreviewResult& result) {
    const FrmRelay& f = schedule.frmRelay;
    for (int i = 0; i < DrivenRelays; ++i) {
        for (int p = 0; p < LastTimePair; ++p) {
            const int k = PairIndex(i, p);
            if (!PairIsSet(f, k)) continue;
            for (int q = p + 1; q <= LastTimePair; ++q) {
                const int k2 = PairIndex(i, q);
                if (!PairIsSet(f, k2)) continue;
                if (!PairsOverlap(f.StartTime[k], f.EndTime[k], f.StartTime[k2], f.EndTime[k2]) &&
                    !PairsOverlap(f.StartTime[k2], f.EndTime[k2], f.StartTime[k], f.EndTime[k]))
                    continue;
                PreviewWarning w;
                w.Kind = PreviewWarningKind::PairsOverlap;
                w.Record = i;
                w.Pair = p;
                w.OtherPair = q;
                w.Text = PreviewRelayLabel(schedule, i) + ": time pairs " + PairLabel(f, k) +
                         " and " + PairLabel(f, k2) + " overlap";
                result.Warnings.push_back(w);
            }
        }
    }
}

// The days on which pairs with a sun time get no time, gathered day by day, told as one warning
// per pair and cause.
class SunlessDays {
  public:
    // Looks at every pair with a sun time that the engine would check on `date` (day d).
    void Look(System& sim, const DateTime& date, LocalSeconds dayStart) {
        const FrmRelay& f = sim.frmRelay;
        for (int i = 0; i < DrivenRelays; ++i) {
            const RelayRecord& rec = f.Relay[i];
            if (rec.HardStop != 0 || rec.Manual != 0) continue;
            if (!DaysOfWeekMatch(sim, i % RelaysPerBoard, date.Weekday)) continue;
            for (int p = 0; p <= LastTimePair; ++p) {
                const int k = PairIndex(i, p);
                if (!PairIsSet(f, k) || Known(sim, i, k, date)) continue;
                const RelaySun& kept = f.SunOfDay[i];
                const std::string why = kept.Place ? SunPhaseReason(kept.Sun.Phase)
                                                   : "no location is set for sunrise and sunset";
                Run& run = runs_[{i, p, why}];
                if (run.days == 0) run.first = dayStart;
                run.last = dayStart;
                ++run.days;
            }
        }
    }
    // Whether a pair was found without a time on some day: that says why it never switched on.
    bool Explains(int i, int p) const {
        const auto it = runs_.lower_bound({i, p, ""});
        return it != runs_.end() && std::get<0>(it->first) == i && std::get<1>(it->first) == p;
    }
    void Tell(const ScheduleSnapshot& schedule, PreviewResult& result) const {
        for (const auto& [key, run] : runs_) {
            const auto& [i, p, why] = key;
            PreviewWarning w;
            w.Kind = PreviewWarningKind::SunGivesNoTime;
            w.Record = i;
            w.Pair = p;
            w.At = run.first;
            const std::string days = run.days == 1
                                         ? "on " + DateText(run.first)
                                         : "on " + std::to_string(run.days) + " days from " +
                                               DateText(run.first) + " to " + DateText(run.last);
            w.Text = PreviewRelayLabel(schedule, i) + ": time pair " +
                     PairLabel(schedule.frmRelay, PairIndex(i, p)) + " does not switch " + days +
                     ": " + why;
            result.Warnings.push_back(w);
        }
    }

  private:
    // A clock time that cannot be read is left to the evaluation, which tells it as the end.
    static bool Known(System& sim, int i, int k, const DateTime& date) {
        try {
            return PairTimesKnown(sim, i, k, date, false);
        } catch (const FatalError&) {
            return true;
        }
    }
    struct Run {
        LocalSeconds first = 0, last = 0;
        int days = 0;
    };
    std::map<std::tuple<int, int, std::string>, Run> runs_;
};

}  // namespace

ScheduleSnapshot TakeSnapshot(const System& s) {
    return {s.modRelay, s.frmRelay};
}

int64_t TickCountAt(LocalSeconds at, LocalSeconds now, int64_t tickNow) {
    return tickNow + (at - now) * 1000;
}

std::string PreviewRelayName(const ScheduleSnapshot& schedule, int record) {
    return PreviewRelayName(schedule.frmRelay, schedule.modRelay, record);
}

std::string PreviewRelayName(const FrmRelay& f, const ModRelay& m, int record) {
    const std::string& name = f.Relay[record].DisplayName;
    if (name.find_first_not_of(' ') != std::string::npos) return name;
    return RelayShownName(m.Board[record / RelaysPerBoard].RelayName[record % RelaysPerBoard],
                          record);
}

std::string PreviewRelayLabel(const ScheduleSnapshot& schedule, int record) {
    return "Relay " + std::to_string(record + 1) + " \"" + PreviewRelayName(schedule, record) +
           "\"";
}

PreviewResult RunPreview(const ScheduleSnapshot& schedule, const PreviewRequest& request,
                         const std::atomic<bool>* cancel) {
    PreviewResult result;
    const LocalSeconds length = std::max<LocalSeconds>(0, request.Length);
    result.Range = {request.From, request.From + length};
    for (LocalSeconds d = FloorDay(request.From); d < result.Range.To; d += Day)
        result.DayStarts.push_back(std::max(d, request.From));

    SimulatedClock clock;
    NullRowDisplay display;
    NoPorts ports;
    IdleTimer timer;
    NoEvents events;
    NotedMessages messages;
    System sim;
    sim.platform.clock = &clock;
    sim.platform.display = &display;
    sim.platform.ports = &ports;
    sim.platform.timer = &timer;
    sim.platform.pump = &events;
    sim.platform.messages = &messages;
    PrepareCopy(sim, schedule);

    result.Relays.resize(DrivenRelays);
    for (int i = 0; i < DrivenRelays; ++i) {
        RelayPreview& r = result.Relays[static_cast<size_t>(i)];
        r.Record = i;
        r.Name = PreviewRelayName(schedule, i);
        r.GroupColor = schedule.modRelay.ColorRelayGroup[static_cast<size_t>(i % 8)];
        r.OnSecondsPerDay.assign(result.DayStarts.size(), 0);
        r.DaysOff = DayOffSpans(schedule.frmRelay.Holds, i, result.Range);
        r.Paused = PausedSpans(schedule.frmRelay.Holds, i, result.Range);
    }

    std::bitset<DrivenPairs> everActive;
    std::array<bool, DrivenRelays> daysMatched{};
    std::array<int8_t, DrivenRelays> last{};
    last.fill(-1);
    size_t day = 0;
    LocalSeconds nextDay = result.DayStarts.empty() ? result.Range.To : FloorDay(request.From);
    const FrmRelay& f = sim.frmRelay;
    SunlessDays sunless;

    LocalSeconds t = request.From;
    for (; t < result.Range.To; ++t) {
        if (t >= nextDay) {
            if (t > request.From) ++day;
            nextDay = FloorDay(t) + Day;
            if (cancel && cancel->load(std::memory_order_relaxed)) {
                result.Cancelled = true;
                break;
            }
            const DateTime date = FromLocalSeconds(t);
            for (int i = 0; i < DrivenRelays; ++i)
                if (DaysOfWeekMatch(sim, i % RelaysPerBoard, date.Weekday)) daysMatched[i] = true;
            sunless.Look(sim, date, FloorDay(t));
        } else if (cancel && (t - request.From) % 3600 == 0 &&
                   cancel->load(std::memory_order_relaxed)) {
            result.Cancelled = true;
            break;
        }
        clock.Set(t, TickCountAt(t, request.From, request.StartTick));
        messages.now = t;
        try {
            CheckTimePairs(sim);
            UpdateRelayOutputs(sim);
            ShowRelayStates(sim, ReadRelayPorts(sim));
        } catch (const FatalError& e) {
            result.Ended = true;
            PreviewWarning w;
            w.Kind = PreviewWarningKind::ProgramEnds;
            w.At = t;
            w.Text = "At " + DateTimeText(t) + " the evaluation ends the program: " + e.what() +
                     " (error " + std::to_string(e.Number()) + ")";
            result.Warnings.push_back(w);
            break;
        }
        ++result.Evaluations;
        for (int k = 0; k < DrivenPairs; ++k)
            if (f.PairActive[k] != 0) everActive.set(static_cast<size_t>(k));
        for (int i = 0; i < DrivenRelays; ++i) {
            const int8_t on = f.Relay[i].OldState == 1 ? 1 : 0;
            RelayPreview& r = result.Relays[static_cast<size_t>(i)];
            if (on != last[i]) {
                r.Switches.push_back({t, on == 1});
                last[i] = on;
            }
            if (on) ++r.OnSecondsPerDay[day];
        }
    }
    if (result.Ended || result.Cancelled) result.EndedAt = t;

    // What the user should know about the span that was evaluated.
    for (const auto& [at, text] : messages.shown) {
        if (std::any_of(result.Warnings.begin(), result.Warnings.end(), [&](const auto& w) {
                return w.Kind == PreviewWarningKind::MessageShown && w.Text.ends_with(text);
            })) {
            continue;
        }
        PreviewWarning w;
        w.Kind = PreviewWarningKind::MessageShown;
        w.At = at;
        w.Text = "At " + DateTimeText(at) + " the engine shows a message and waits: " + text;
        result.Warnings.push_back(w);
    }
    const LocalSeconds evaluatedTo = result.Ended || result.Cancelled ? t : result.Range.To;
    const std::string span =
        " from " + DateTimeText(request.From) + " to " + DateTimeText(evaluatedTo);
    const FrmRelay& given = schedule.frmRelay;
    for (int i = 0; i < DrivenRelays && result.Evaluations > 0; ++i) {
        const RelayRecord& rec = given.Relay[i];
        if (rec.HardStop != 0 || rec.Manual != 0) continue;  // the pairs are not consulted
        bool anySet = false;
        for (int p = 0; p <= LastTimePair; ++p)
            anySet = anySet || PairIsSet(given, PairIndex(i, p));
        if (!anySet) continue;
        if (!daysMatched[i]) {
            PreviewWarning w;
            w.Kind = PreviewWarningKind::DaysNeverMatch;
            w.Record = i;
            w.Text = PreviewRelayLabel(schedule, i) + ": its days of the week \"" +
                     rec.DaysOfWeek.Text() + "\" match no day" + span +
                     ", so its time pairs are never checked";
            result.Warnings.push_back(w);
            continue;
        }
        for (int p = 0; p <= LastTimePair; ++p) {
            const int k = PairIndex(i, p);
            if (!PairIsSet(given, k) || everActive.test(static_cast<size_t>(k))) continue;
            if (sunless.Explains(i, p)) continue;
            PreviewWarning w;
            w.Kind = PreviewWarningKind::PairNeverOn;
            w.Record = i;
            w.Pair = p;
            w.Text = PreviewRelayLabel(schedule, i) + ": time pair " + PairLabel(given, k) +
                     " never switches on" + span + " (days \"" + rec.DaysOfWeek.Text() +
                     "\", code \"" + rec.DayHrEvenOdd.Text() + "\")";
            const RelayPreview& r = result.Relays[static_cast<size_t>(i)];
            if (!r.DaysOff.empty() || !r.Paused.empty())
                w.Text += "; the relay has days off or a pause in this span";
            result.Warnings.push_back(w);
        }
    }
    sunless.Tell(schedule, result);
    AddOnTimeStopWarnings(schedule, result);
    AddOverlapWarnings(schedule, result);
    return result;
}

Timeline PreviewTimeline(const PreviewResult& result) {
    Timeline t;
    t.Range = result.Range;
    const LocalSeconds known = result.Ended || result.Cancelled ? result.EndedAt : result.Range.To;
    for (const RelayPreview& r : result.Relays) {
        TimelineLane lane;
        lane.Name = r.Name;
        lane.GroupColor = r.GroupColor;
        bool on = false;
        LocalSeconds onSince = 0;
        for (const RelaySwitch& s : r.Switches) {
            if (s.On && !on) onSince = s.At;
            if (!s.On && on) lane.On.push_back({onSince, s.At});
            on = s.On;
        }
        if (on && onSince < known) lane.On.push_back({onSince, known});
        lane.DaysOff = r.DaysOff;
        lane.Paused = r.Paused;
        t.Lanes.push_back(std::move(lane));
    }
    if (known < result.Range.To) t.Gaps.push_back({known, result.Range.To});
    return t;
}

}  // namespace vantrellion

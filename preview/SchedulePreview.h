// The schedule preview: what the relays will do over a span of days, worked out by the engine
// that drives the board. It runs the real evaluation and state resolution once per simulated
// second over a copy of the schedule, with a simulated clock and an emulated board, and never
// touches the running program's state, its ports, the restart file or the log.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

#include "core/SharedState.h"
#include "core/Timeline.h"

namespace vantrellion {

// The part of the shared state a preview needs: the relay records and time pairs, the board
// records, names and colours. Taken on the thread of the main screen; the preview may then run
// on any thread.
struct ScheduleSnapshot {
    ModRelay modRelay;
    FrmRelay frmRelay;
};
ScheduleSnapshot TakeSnapshot(const System& s);

struct PreviewRequest {
    LocalSeconds From = 0;
    LocalSeconds Length = 86400;  // seconds, one evaluation each
    // The monotonic millisecond count at From. It advances 1000 per simulated second, as the
    // live program's does.
    int64_t StartTick = 1000;
};

// The monotonic count expected at `at`, if the machine keeps running from the moment whose
// local time is `now` and count is `tickNow`.
int64_t TickCountAt(LocalSeconds at, LocalSeconds now, int64_t tickNow);

struct RelaySwitch {
    LocalSeconds At = 0;  // the second from which the relay reads this state
    bool On = false;
    bool operator==(const RelaySwitch&) const = default;
};

struct RelayPreview {
    int Record = 0;  // record index, board times 8 plus relay
    std::string Name;
    Color GroupColor = 0;
    // The state read back at the first evaluation, then every change, in time order.
    std::vector<RelaySwitch> Switches;
    // Seconds on per calendar day of the span (see PreviewResult::DayStarts).
    std::vector<int64_t> OnSecondsPerDay;
    // Where the relay does not follow its schedule: its days off, and its pause.
    std::vector<TimeSpan> DaysOff;
    std::vector<TimeSpan> Paused;
};

enum class PreviewWarningKind {
    PairNeverOn,     // a set time pair that never switches on in the span
    DaysNeverMatch,  // the relay's days of the week match no day of the span
    PairsOverlap,    // two time pairs of one relay share seconds
    ProgramEnds,     // an evaluation would end the program
    MessageShown,    // an evaluation would show a message box and wait for the user
    OnTimeStops,     // a relay that was on gets no on-time any more from some day on
    SunGivesNoTime,  // a pair with a sun time does not switch on some days: no location, or
                     // the sun does not rise or set there
};

struct PreviewWarning {
    PreviewWarningKind Kind = PreviewWarningKind::PairNeverOn;
    int Record = -1;
    int Pair = -1;       // pair number 0 to 5 of the relay
    int OtherPair = -1;  // the second pair of an overlap
    LocalSeconds At = 0;
    std::string Text;  // for the user, complete in itself
};

struct PreviewResult {
    TimeSpan Range;
    // The first second of each calendar day that the span touches; day d runs to the next
    // start (the last to Range.To), and the first begins at Range.From.
    std::vector<LocalSeconds> DayStarts;
    std::vector<RelayPreview> Relays;
    std::vector<PreviewWarning> Warnings;
    bool Ended = false;  // an evaluation ended the program at EndedAt
    LocalSeconds EndedAt = 0;
    bool Cancelled = false;  // stopped at EndedAt by the caller; nothing after it is known
    int64_t Evaluations = 0;
};

// Runs the preview. `cancel`, when given and set, stops it at the next simulated hour.
PreviewResult RunPreview(const ScheduleSnapshot& schedule, const PreviewRequest& request,
                         const std::atomic<bool>* cancel = nullptr);

// The result as a timeline: one lane per relay, on where it is on; after an end or a cancel,
// the rest of the span is a gap.
Timeline PreviewTimeline(const PreviewResult& result);

// The name a relay is shown under: its display name, else the board's name for it, else
// "Relay n" (n from 1).
std::string PreviewRelayName(const ScheduleSnapshot& schedule, int record);
std::string PreviewRelayName(const FrmRelay& f, const ModRelay& m, int record);
// The relay as warnings name it: Relay 3 "Fan".
std::string PreviewRelayLabel(const ScheduleSnapshot& schedule, int record);

}  // namespace vantrellion

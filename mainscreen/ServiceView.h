// The main screen as a read-only view of the running service: the schedule read from the
// service's restart file and the live state from the service's state lines in today's log.
// Nothing is written: not the boards, not the restart file, not the log, not the store.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "core/SharedState.h"

namespace vantrellion {

inline constexpr const char* ServiceViewTitle = "Viewing the running service";

// What a state line says: its time and, for each relay of a logged board, whether it is on.
struct LoggedState {
    std::string Time;
    std::array<std::optional<bool>, RelaySlots> On{};
};

// Reads a state line ("14:07:00 <1 - 3 - - - - 8>R><I<...>I "): the boards with LogBoard on
// are in it in order. nullopt for any other line.
std::optional<LoggedState> ParseStateLine(const System& s, const std::string& line);

// The last state line of a log's text, "" when there is none.
std::string LastStateLine(const std::string& logText);

class ServiceView {
  public:
    explicit ServiceView(System& s) : s_(s) {}
    // One refresh, at every tick of the view: the schedule again when the restart file has
    // changed, the lights and the clock panel from the last state line, and the title.
    void Refresh();
    bool ScheduleLoaded() const { return loaded_; }

  private:
    void LoadSchedule();

    System& s_;
    bool loaded_ = false;
    int64_t restartStamp_ = -1;  // stamp of the restart file read
    std::string logRead_;        // the day's log last read
    int64_t logStamp_ = -1;      // its stamp then
};

}  // namespace vantrellion

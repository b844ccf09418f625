// "Days Off..." of the States/Inputs menu: the list of dates on which chosen relays do not
// follow their schedule and stay off (Manual and Hard Stop still act). A day off is a single
// date or a range, optionally every year. The window edits a copy of the list and puts it
// into the schedule when the user presses OK. The window is a small Qt dialog; what it does
// lives here.
#pragma once

#include <string>
#include <vector>

#include "core/SharedState.h"

namespace vantrellion {

inline constexpr const char* DaysOffWindowTitle = "Days Off";

struct DayOffFields {
    std::string FirstText;  // "2026-12-25"
    std::string LastText;   // empty for a single date
    bool EveryYear = false;
    uint32_t Relays = 0;  // bit i: record i
    std::string Note;
};

class DaysOffEditor {
  public:
    explicit DaysOffEditor(System& s) : s_(s), list_(s.frmRelay.Holds.DaysOff) {}

    int RelayCount() const;
    std::string RelayCaption(int i) const;  // "1 Pump"
    const std::vector<DayOff>& Entries() const { return list_; }
    // An entry as the list shows it: "12-25 every year - Christmas: relays 1 2 8".
    std::string EntryText(int index) const;

    // Adds an entry. False, with a box that says why, when the fields do not make one: no
    // relay, a date that is not a real calendar date (YYYY-MM-DD), or a last date before the
    // first (except every year, where a range may run over the turn of the year).
    bool Add(const DayOffFields& fields);
    void Remove(int index);

    // Puts the edited list into the schedule: the schedule counts as changed, the restart file
    // is written and the rows show the days off at once.
    void Apply();

  private:
    System& s_;
    std::vector<DayOff> list_;
};

}  // namespace vantrellion

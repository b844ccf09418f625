#include "mainscreen/DaysOffEditor.h"

#include <optional>

#include "core/DateTimeText.h"
#include "engine/HeldRelays.h"
#include "engine/Tick.h"
#include "mainscreen/RefreshTitleAndMenus.h"
#include "runfile/CrashRestart.h"

namespace vantrellion {

namespace {

bool Refuse(System& s, const std::string& why) {
    s.Message({why, Buttons::OK, Icon::Exclamation, 1, DaysOffWindowTitle});
    return false;
}

// A date alone, "2026-12-25": its midnight.
std::optional<LocalSeconds> ParseDate(const std::string& text) {
    const auto t = ParseDateTimeText(text);
    if (!t || *t % 86400 != 0 || text.find(':') != std::string::npos) return std::nullopt;
    return t;
}

}  // namespace

int DaysOffEditor::RelayCount() const {
    return (LastBoard + 1) * RelaysPerBoard;
}

std::string DaysOffEditor::RelayCaption(int i) const {
    return std::to_string(i + 1) + " " + s_.frmRelay.Relay[i].DisplayName;
}

std::string DaysOffEditor::EntryText(int index) const {
    const DayOff& d = list_[static_cast<size_t>(index)];
    std::string relays;
    for (int i = 0; i < RelayCount(); ++i)
        if (HoldsRelay(d, i)) relays += " " + std::to_string(i + 1);
    return DayOffText(d) + ": relays" + relays;
}

bool DaysOffEditor::Add(const DayOffFields& fields) {
    if ((fields.Relays & ((1u << RelayCount()) - 1)) == 0) {
        return Refuse(s_, "Choose at least one relay that has the day off.");
    }
    const auto first = ParseDate(fields.FirstText);
    const bool single = fields.LastText.find_first_not_of(' ') == std::string::npos;
    const auto last = single ? first : ParseDate(fields.LastText);
    if (!first || !last) {
        return Refuse(s_,
                      "Type the dates in the form YYYY-MM-DD, for example 2026-12-25. "
                      "Leave the last date empty for a single day.");
    }
    if (*last < *first && !fields.EveryYear) {
        return Refuse(s_, "The last date comes before the first.");
    }
    DayOff d;
    d.First = *first;
    d.Last = *last;
    d.EveryYear = fields.EveryYear;
    d.Relays = fields.Relays & ((1u << RelayCount()) - 1);
    d.Note = fields.Note;
    list_.push_back(d);
    return true;
}

void DaysOffEditor::Remove(int index) {
    if (index < 0 || index >= static_cast<int>(list_.size())) return;
    list_.erase(list_.begin() + index);
}

void DaysOffEditor::Apply() {
    FrmRelay& f = s_.frmRelay;
    if (f.Holds.DaysOff == list_) return;
    f.Holds.DaysOff = list_;
    f.FileChanged = True;
    MarkHeldRelays(s_, ToLocalSeconds(s_.clock().Now()));
    RefreshTitleAndMenus(s_);
    SaveRestartFile(s_);
    RefreshNow(s_);
}

}  // namespace vantrellion

#include "mainscreen/PauseSchedule.h"

#include <cmath>

#include "core/DateTimeText.h"
#include "core/NumericText.h"
#include "engine/HeldRelays.h"
#include "engine/Tick.h"
#include "runfile/CrashRestart.h"

namespace vantrellion {

namespace {

constexpr double kMostHours = 24.0 * 366;

LocalSeconds Now(System& s) {
    return ToLocalSeconds(s.clock().Now());
}

bool Refuse(System& s, const std::string& why) {
    s.Message({why, Buttons::OK, Icon::Exclamation, 1, PauseWindowTitle});
    return false;
}

// "1.5" or "24": hours above 0; nothing otherwise. The point is the decimal point in every
// locale, as the stored numbers have it.
bool ParseHours(const std::string& text, double& hours) {
    const std::optional<double> value = ParseNumericText(text);
    if (!value) return false;
    hours = *value;
    return std::isfinite(hours) && hours > 0 && hours <= kMostHours;
}

}  // namespace

int PauseSchedulePresenter::RelayCount() const {
    return (LastBoard + 1) * RelaysPerBoard;
}

std::string PauseSchedulePresenter::RelayCaption(int i) const {
    std::string caption = std::to_string(i + 1) + " " + s_.frmRelay.Relay[i].DisplayName;
    const LocalSeconds until = s_.frmRelay.Holds.PausedUntil[i];
    if (IsPaused(s_.frmRelay.Holds, i, Now(s_))) {
        caption += " (paused until " + DateTimeText(until).substr(0, 16) + ")";
    }
    return caption;
}

PauseChoice PauseSchedulePresenter::Initial() const {
    PauseChoice c;
    c.HoursText = "24";
    const LocalSeconds now = Now(s_);
    c.UntilText = DateTimeText(now - now % 3600 + 86400).substr(0, 16);
    return c;
}

bool PauseSchedulePresenter::Apply(const PauseChoice& c) {
    if ((c.Relays & ((1u << RelayCount()) - 1)) == 0) {
        return Refuse(s_, "Choose at least one relay to pause.");
    }
    const LocalSeconds now = Now(s_);
    LocalSeconds until = 0;
    if (c.ForHours) {
        double hours = 0;
        if (!ParseHours(c.HoursText, hours)) {
            return Refuse(s_,
                          "Type the length of the pause in hours, a number above 0 and at "
                          "most 8784 (for example 24 or 1.5).");
        }
        until = now + std::llround(hours * 3600);
    } else {
        const auto t = ParseDateTimeText(c.UntilText);
        if (!t || *t <= now) {
            return Refuse(s_, std::string("Type the end of the pause as a date and time later "
                                          "than now, in the form ") +
                                  DateTimeForms + ".");
        }
        until = *t;
    }
    StartPause(s_, c.Relays, until);
    SaveRestartFile(s_);
    RefreshNow(s_);
    return true;
}

void mnuStateEndPause(System& s) {
    if (EndPauseEarly(s, ~0u) == 0) {
        s.Message({"No relay is paused.", Buttons::OK, Icon::Information, 1, PauseWindowTitle});
        return;
    }
    SaveRestartFile(s);
    RefreshNow(s);
}

}  // namespace vantrellion

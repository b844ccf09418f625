#include "mainscreen/ValidateFields.h"

#include <optional>

#include "configuration/MachineLocation.h"
#include "core/TextEncoding.h"
#include "engine/CheckTimePairs.h"
#include "engine/RowTotals.h"
#include "runfile/CrashRestart.h"

namespace vantrellion {

namespace {

constexpr const char* kEntryError = "Entry Error";

// Every message of field entry has the exclamation icon and a single OK button.
void ShowEntryMessage(System& s, const std::string& prompt, const std::string& title) {
    s.Message({prompt, Buttons::OK, Icon::Exclamation, 1, title});
}

bool Reject(System& s, const std::string& prompt) {
    ShowEntryMessage(s, prompt, kEntryError);
    return false;
}

// A time text that stands for "no time".
bool IsBlankEntry(const std::string& text) {
    return text.empty() || text == " ";
}

// Changes the text of the field and of the caller's copy; the field's change event follows.
void ReplaceFieldText(System& s, Control field, int index, std::string& text,
                      const std::string& replacement) {
    if (replacement == text) return;
    text = replacement;
    s.screen().SetText(field, index, text);
}

void ShowStartTimeRequired(System& s) {
    // The title is that of the restart file's message; it has always been shown so.
    ShowEntryMessage(s,
                     "Start time Required with End time\r\n"
                     "To Remove time-pair...\r\n"
                     "   Remove End time first\r\n"
                     "To create Time-pair...\r\n"
                     "   Enter Start time first",
                     "Unable to Create Restart File!");
}

// A text that starts as a sun time gets the sun forms; any other the clock forms.
std::string BadTimeMessage(const std::string& text) {
    const size_t first = text.find_first_not_of(' ');
    if (first != std::string::npos && (text[first] == 'S' || text[first] == 's'))
        return "Sun Time Entered is NOT a valid Time, please re-enter\r\n\r\n"
               "Format is SR or SS (sunrise, sunset), optionally with +H:MM or -H:MM";
    return "Time Entered is NOT a valid Time, please re-enter\r\n\r\n"
           "Format is HH:MM:SS or HH:MM am/pm (:SS is optional)";
}

// A sun time is kept without a location (the schedule may be made for another machine), but
// it does not switch until one is set.
void ShowLocationNeeded(System& s) {
    ShowEntryMessage(s,
                     std::string("Sunrise and sunset times need the location of this machine.\r\n"
                                 "Set ") +
                         LocationPlace + ".\r\nUntil then this time pair does not switch.",
                     "Location Needed");
}

// The two validators of a time-pair share every step; the end side adds the warning for a
// missing start time.
bool ValidateTime(System& s, Control field, int k, std::string& text) {
    FrmRelay& f = s.frmRelay;
    const bool isStart = field == Control::txtStartTime;
    TimeField& own = isStart ? f.StartTime[k] : f.EndTime[k];
    const TimeField& other = isStart ? f.EndTime[k] : f.StartTime[k];

    if (own == text) return true;
    if (IsBlankEntry(text)) {
        // Clearing one side unsets the pair; nothing to check.
        own = "";
    } else {
        ReplaceFieldText(s, field, k, text, TimeEntryForm(text));
        const TimeField entered(text);
        if (!entered.IsTime()) return Reject(s, BadTimeMessage(text));
        // A warning only: the end time is kept, and the pair stays unset until it has a start.
        if (!isStart && other.IsBlank()) ShowStartTimeRequired(s);
        if (!other.IsBlank()) {
            // Compared where the order does not depend on the day: two clock times, or two
            // times from the same sun event.
            const auto order =
                isStart ? SameDayOrder(entered, other) : SameDayOrder(other, entered);
            if (order == 0) return Reject(s, "ON time same as OFF");
            if (order == 1) return Reject(s, "ON time must be earlier then OFF time");
        }
        if (entered.IsSunTime() && !s.modRelay.Location) ShowLocationNeeded(s);
        own = text;
    }
    if (CheckTimePairOverlap(s, k) && s.modRelay.WarnOverLapTime != 0)
        ShowEntryMessage(s, "Your Last Entry Over-Laps another Time-Pair", "Warning !");
    RefreshRowTotal(s, k);
    f.FileChanged = True;
    SaveRestartFile(s);
    return true;
}

}  // namespace

bool ValidateDisplayName(System& s, int i, std::string& text) {
    RelayRecord& rec = s.frmRelay.Relay[i];
    if (text != rec.DisplayName) {
        rec.DisplayName = text;
        s.frmRelay.FileChanged = True;
        SaveRestartFile(s);
    }
    return true;
}

bool ValidateDaysOfWeek(System& s, int i, std::string& text) {
    if (!IsDaysOfWeekText(text)) return Reject(s, "Invalid Days of Week Entered, please re-enter");
    RelayRecord& rec = s.frmRelay.Relay[i];
    if (text != rec.DaysOfWeek) {
        rec.DaysOfWeek = text;
        rec.CycleStart = 0;
        s.display().SetInvertCaption(i, "Invert");
        s.frmRelay.FileChanged = True;
        SaveRestartFile(s);
    }
    return true;
}

bool ValidateDayHrEvenOdd(System& s, int i, std::string& text) {
    ReplaceFieldText(s, Control::txtDayHrEvenOdd, i, text, EvenOddEntryForm(text));
    if (!IsEvenOddCode(text)) return Reject(s, "Invalid Even/Odd Entered, please re-enter");
    RelayRecord& rec = s.frmRelay.Relay[i];
    if (text != rec.DayHrEvenOdd) {
        rec.DayHrEvenOdd = text;
        rec.CycleStart = 0;
        s.frmRelay.FileChanged = True;
        SaveRestartFile(s);
    }
    RefreshRowTotal(s, PairIndex(i, 0));
    // A cyclic row shows the time of its next change where Invert stands, and cannot invert.
    if (rec.DayHrEvenOdd.IsCyclic()) {
        rec.Invert = False;
    } else {
        s.display().SetInvertCaption(i, "Invert");
    }
    return true;
}

bool ValidateStartTime(System& s, int k, std::string& text) {
    return ValidateTime(s, Control::txtStartTime, k, text);
}

bool ValidateEndTime(System& s, int k, std::string& text) {
    return ValidateTime(s, Control::txtEndTime, k, text);
}

bool CheckTimePairOverlap(System& s, int k) {
    const FrmRelay& f = s.frmRelay;
    const int first = k - k % PairsPerRelay;
    for (int a = first; a <= first + LastTimePair; ++a) {
        if (!PairIsSet(f, a)) continue;
        for (int b = first; b <= first + LastTimePair; ++b) {
            if (b == a || !PairIsSet(f, b)) continue;
            if (PairsOverlap(f.StartTime[a], f.EndTime[a], f.StartTime[b], f.EndTime[b]))
                return true;
        }
    }
    return false;
}

}  // namespace vantrellion

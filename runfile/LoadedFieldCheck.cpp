#include "runfile/LoadedFieldCheck.h"

namespace vantrellion {

namespace {

// A time text as field entry would store it: blank, or at most eight characters that read as
// a time of day or a sun time.
bool EntryWouldStore(const TimeField& t) {
    return t.IsBlank() || (t.IsTime() && TimeEntryForm(t.Text()) == t.Text());
}

std::string Quoted(const std::string& text) {
    return "\"" + text + "\"";
}

}  // namespace

int BlankFieldsEntryWouldRefuse(System& s, const std::string& fileName) {
    FrmRelay& f = s.frmRelay;
    std::string lines;
    int count = 0;
    for (int b = 0; b <= LastBoard; ++b) {
        for (int r = 0; r <= LastRelay; ++r) {
            const int i = RecordIndex(b, r);
            RelayRecord& rec = f.Relay[i];
            const auto report = [&](const std::string& field, const std::string& text,
                                    const std::string& why = "") {
                lines += "\r\nRelay " + std::to_string(i + 1) + " " + Quoted(rec.DisplayName) +
                         ", " + field + ": " + Quoted(text) + why;
                ++count;
            };
            if (!IsDaysOfWeekText(rec.DaysOfWeek.Text())) {
                report("Days of Week", rec.DaysOfWeek.Text());
                rec.DaysOfWeek = "";
            }
            const std::string& code = rec.DayHrEvenOdd.Text();
            if (!IsEvenOddCode(code) || EvenOddEntryForm(code) != code) {
                report("Even/Odd", code);
                rec.DayHrEvenOdd = "";
            }
            for (int p = 0; p <= LastTimePair; ++p) {
                const int k = PairIndex(i, p);
                const std::string pair = std::to_string(p + 1);
                if (!EntryWouldStore(f.StartTime[k])) {
                    report("Start Time " + pair, f.StartTime[k].Text());
                    f.StartTime[k] = "";
                }
                if (!EntryWouldStore(f.EndTime[k])) {
                    report("End Time " + pair, f.EndTime[k].Text());
                    f.EndTime[k] = "";
                }
                // Field entry refuses an end that is not later than its start, where the order
                // does not depend on the day.
                if (PairIsSet(f, k) &&
                    SameDayOrder(f.StartTime[k], f.EndTime[k]).value_or(-1) >= 0) {
                    report("End Time " + pair, f.EndTime[k].Text(),
                           " (not later than the start " + Quoted(f.StartTime[k].Text()) + ")");
                    f.EndTime[k] = "";
                }
            }
        }
    }
    if (count > 0) {
        s.Message({"These fields of " + fileName +
                       " cannot be used; they were loaded blank, and the rest of the schedule "
                       "runs:" +
                       lines,
                   Buttons::OK, Icon::Exclamation, 1, "Error Reading Run File"});
    }
    return count;
}

}  // namespace vantrellion

// The events of the schedule fields of a relay row, other than the validation on leaving
// (mainscreen/ValidateFields.h): text changed, got focus, key pressed and mouse moved. The
// fields are txtDisplayName, txtDaysOfWeek and txtDayHrEvenOdd (index i, the record) and
// txtStartTime and txtEndTime (index k, the pair).
#pragma once

#include <string>

#include "core/SharedState.h"

namespace vantrellion {

// Whether a control is one of the five kinds of schedule field.
bool IsScheduleField(Control c);

// Text changed, by typing or by the program. activeControl is the name of the control that
// has the focus ("" for none); most reactions happen only while the user is in such a field,
// so a refill of the rows stays quiet.
void txtDisplayName_Change(System& s, int i, const std::string& text,
                           const std::string& activeControl);
void txtDaysOfWeek_Change(System& s, int i, const std::string& text,
                          const std::string& activeControl);
void txtDayHrEvenOdd_Change(System& s, int i, const std::string& text,
                            const std::string& activeControl);
void txtStartTime_Change(System& s, int k, const std::string& text,
                         const std::string& activeControl);
void txtEndTime_Change(System& s, int k, const std::string& text, const std::string& activeControl);
// The change event of any schedule field.
void Field_Change(System& s, Control field, int index, const std::string& text,
                  const std::string& activeControl);

// Got focus: the echo of the text in the status bar. The window selects the whole text.
void Field_GotFocus(System& s, Control field, int index, const std::string& text);

// Key codes of the key press event.
inline constexpr int KeyEnter = 13;
inline constexpr int KeyBlank = 32;
inline constexpr int KeyDot = 46;

struct KeyPressResult {
    int KeyAscii = 0;      // the key to let through; 0 drops it
    bool SendTab = false;  // send one Tab key press, so the focus moves by the tab order
};
// Key pressed in a field. Enter leads to a Tab and still goes on; in the even/odd field "."
// is dropped, a blank becomes "0" and every key restarts the cyclic method; in the time
// fields "." becomes ":".
KeyPressResult Field_KeyPress(System& s, Control field, int index, int KeyAscii);

// Mouse moved over a field: answers the tool tip the field is to carry (fetched on the first
// move) and echoes the field's text.
std::string Field_MouseMove(System& s, Control field, const std::string& text,
                            const std::string& toolTip);

// The validation of a field that is about to lose the focus; see mainscreen/ValidateFields.h.
bool Field_Validate(System& s, Control field, int index, std::string& text);

}  // namespace vantrellion

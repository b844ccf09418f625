#include "mainscreen/FieldEntry.h"

#include "mainscreen/StatusHint.h"
#include "mainscreen/ToolTips.h"
#include "mainscreen/ValidateFields.h"

namespace vantrellion {

namespace {

// A blanked label shows one blank.
void BlankTotalTime(System& s, int i) {
    s.display().SetTotalTimeCaption(i, " ");
}

// The pair fields: typing in the first pair of a row restarts the cyclic method and blanks
// the total until the validation refreshes it.
void TimeFieldChange(System& s, const char* fieldName, int k, const std::string& text,
                     const std::string& activeControl) {
    if (activeControl != fieldName) return;
    if (k % PairsPerRelay == 0) {
        const int i = k / PairsPerRelay;
        s.frmRelay.Relay[i].CycleStart = 0;
        BlankTotalTime(s, i);
    }
    ShowStatusHint(s, text);
}

}  // namespace

bool IsScheduleField(Control c) {
    switch (c) {
        case Control::txtDisplayName:
        case Control::txtDaysOfWeek:
        case Control::txtDayHrEvenOdd:
        case Control::txtStartTime:
        case Control::txtEndTime:
            return true;
        default:
            return false;
    }
}

void txtDisplayName_Change(System& s, int, const std::string& text,
                           const std::string& activeControl) {
    // Typing a name shows no echo: the test names another field. The echo comes with the
    // focus.
    if (activeControl == "txtEndTime") ShowStatusHint(s, text);
}

void txtDaysOfWeek_Change(System& s, int, const std::string& text,
                          const std::string& activeControl) {
    if (activeControl == "txtDaysOfWeek") ShowStatusHint(s, text);
}

void txtDayHrEvenOdd_Change(System& s, int i, const std::string& text,
                            const std::string& activeControl) {
    if (activeControl == "txtDayHrEvenOdd") BlankTotalTime(s, i);
    ShowStatusHint(s, text);
}

void txtStartTime_Change(System& s, int k, const std::string& text,
                         const std::string& activeControl) {
    TimeFieldChange(s, "txtStartTime", k, text, activeControl);
}

void txtEndTime_Change(System& s, int k, const std::string& text,
                       const std::string& activeControl) {
    TimeFieldChange(s, "txtEndTime", k, text, activeControl);
}

void Field_Change(System& s, Control field, int index, const std::string& text,
                  const std::string& activeControl) {
    switch (field) {
        case Control::txtDisplayName:
            txtDisplayName_Change(s, index, text, activeControl);
            break;
        case Control::txtDaysOfWeek:
            txtDaysOfWeek_Change(s, index, text, activeControl);
            break;
        case Control::txtDayHrEvenOdd:
            txtDayHrEvenOdd_Change(s, index, text, activeControl);
            break;
        case Control::txtStartTime:
            txtStartTime_Change(s, index, text, activeControl);
            break;
        case Control::txtEndTime:
            txtEndTime_Change(s, index, text, activeControl);
            break;
        default:
            break;
    }
}

void Field_GotFocus(System& s, Control field, int, const std::string& text) {
    if (IsScheduleField(field)) ShowStatusHint(s, text);
}

KeyPressResult Field_KeyPress(System& s, Control field, int index, int KeyAscii) {
    KeyPressResult r;
    r.KeyAscii = KeyAscii;
    if (!IsScheduleField(field)) return r;
    r.SendTab = KeyAscii == KeyEnter;
    switch (field) {
        case Control::txtDayHrEvenOdd:
            if (KeyAscii == KeyDot)
                r.KeyAscii = 0;
            else if (KeyAscii == KeyBlank)
                r.KeyAscii = '0';
            s.frmRelay.Relay[index].CycleStart = 0;
            break;
        case Control::txtStartTime:
        case Control::txtEndTime:
            if (KeyAscii == KeyDot) r.KeyAscii = ':';
            break;
        default:
            break;
    }
    return r;
}

std::string Field_MouseMove(System& s, Control field, const std::string& text,
                            const std::string& toolTip) {
    const std::string tip = LazyToolTip(field, toolTip);
    ShowStatusHint(s, text);
    return tip;
}

bool Field_Validate(System& s, Control field, int index, std::string& text) {
    switch (field) {
        case Control::txtDisplayName:
            return ValidateDisplayName(s, index, text);
        case Control::txtDaysOfWeek:
            return ValidateDaysOfWeek(s, index, text);
        case Control::txtDayHrEvenOdd:
            return ValidateDayHrEvenOdd(s, index, text);
        case Control::txtStartTime:
            return ValidateStartTime(s, index, text);
        case Control::txtEndTime:
            return ValidateEndTime(s, index, text);
        default:
            return true;
    }
}

}  // namespace vantrellion

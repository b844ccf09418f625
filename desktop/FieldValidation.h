// Validation when a schedule field of the main screen is about to be left. Qt has no such
// event, so one mechanism serves every way of leaving a field: when the focus moves from a
// schedule field to another control of the main screen (Tab, Enter turned into a Tab, a click
// into another field), the field's validator runs; a refusal puts the focus back and selects
// the whole text. Menu commands and the close path ask for the same validation first through
// ValidateActiveField. A click on a label takes no focus and validates nothing; nor does the
// focus going to another window (a message box, a dialog, another program).
#pragma once

#include <QObject>
#include <map>
#include <optional>

#include "core/SharedState.h"

class QLineEdit;
class QWidget;

namespace vantrellion {

class frmRelay;

// A row control of the main screen by its array and index.
struct RowControlRef {
    Control control;
    int index;
};

// The schedule field (txtDisplayName, txtDaysOfWeek, txtDayHrEvenOdd, txtStartTime,
// txtEndTime) that an object is, if it is one.
std::optional<RowControlRef> ScheduleFieldOf(const frmRelay& w, const QObject* object);

class FieldValidation : public QObject {
    Q_OBJECT
  public:
    // Lives as a child of the window and watches the focus of the application.
    FieldValidation(frmRelay& w, System& s);

    // Validates the schedule field that has the focus in the main screen, if there is one.
    // False when the field refused its text: the message has been shown, the focus stays in
    // the field with the text selected, and the caller drops its command.
    bool ValidateActiveField();

  private:
    void OnFocusChanged(QWidget* old, QWidget* now);
    bool Validate(QLineEdit* field, RowControlRef ref);

    frmRelay& w_;
    System& s_;
    // The window's schedule fields, looked up without the window, which may be in its
    // destructor when the focus last changes.
    std::map<const QObject*, RowControlRef> fields_;
    bool busy_ = false;  // a validation is running, or the focus is being put back
};

// The validation of the window's field with the focus; true when there is nothing to refuse.
bool ValidateActiveField(frmRelay& w);

}  // namespace vantrellion

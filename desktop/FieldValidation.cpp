#include "desktop/FieldValidation.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>

#include "desktop/EventGuard.h"
#include "desktop/QtConvert.h"
#include "desktop/frmRelay.h"
#include "mainscreen/FieldEntry.h"

namespace vantrellion {

namespace {

template <std::size_t N>
std::optional<int> IndexIn(const std::array<QLineEdit*, N>& fields, const QObject* object) {
    for (std::size_t n = 0; n < N; ++n)
        if (fields[n] == object) return static_cast<int>(n);
    return std::nullopt;
}

// Sets a flag for the length of a scope, also when the scope is left by an exception.
class BusyScope {
  public:
    explicit BusyScope(bool& flag) : flag_(flag) { flag_ = true; }
    ~BusyScope() { flag_ = false; }
    BusyScope(const BusyScope&) = delete;
    BusyScope& operator=(const BusyScope&) = delete;

  private:
    bool& flag_;
};

}  // namespace

std::optional<RowControlRef> ScheduleFieldOf(const frmRelay& w, const QObject* object) {
    if (!object) return std::nullopt;
    if (auto n = IndexIn(w.txtDisplayName, object))
        return RowControlRef{Control::txtDisplayName, *n};
    if (auto n = IndexIn(w.txtDaysOfWeek, object)) return RowControlRef{Control::txtDaysOfWeek, *n};
    if (auto n = IndexIn(w.txtDayHrEvenOdd, object))
        return RowControlRef{Control::txtDayHrEvenOdd, *n};
    if (auto n = IndexIn(w.txtStartTime, object)) return RowControlRef{Control::txtStartTime, *n};
    if (auto n = IndexIn(w.txtEndTime, object)) return RowControlRef{Control::txtEndTime, *n};
    return std::nullopt;
}

FieldValidation::FieldValidation(frmRelay& w, System& s) : QObject(&w), w_(w), s_(s) {
    setObjectName("FieldValidation");
    for (const auto* array : {&w.txtDisplayName, &w.txtDaysOfWeek, &w.txtDayHrEvenOdd})
        for (QLineEdit* field : *array)
            fields_.emplace(field, *ScheduleFieldOf(w, field));
    for (const auto* array : {&w.txtStartTime, &w.txtEndTime})
        for (QLineEdit* field : *array)
            fields_.emplace(field, *ScheduleFieldOf(w, field));
    connect(qApp, &QApplication::focusChanged, this, &FieldValidation::OnFocusChanged);
}

bool FieldValidation::Validate(QLineEdit* field, RowControlRef ref) {
    std::string text = S(field->text());
    // An unexpected error is shown by the guard and lets the focus go, as an error in a
    // handler of the main screen always has.
    bool accepted = true;
    RunCommand(s_, [&] { accepted = Field_Validate(s_, ref.control, ref.index, text); });
    // The validator writes a changed text through the screen; make sure the field shows it.
    if (S(field->text()) != text) field->setText(Q(text));
    if (!accepted) {
        field->setFocus(Qt::OtherFocusReason);
        field->selectAll();
    }
    return accepted;
}

void FieldValidation::OnFocusChanged(QWidget* old, QWidget* now) {
    // Only a move to another control of the main screen leaves the field. The menus validate
    // through ValidateActiveField when a command runs.
    if (busy_ || !old || !now || now->window() != old->window()) return;
    if (qobject_cast<QMenuBar*>(now) || qobject_cast<QMenu*>(now)) return;
    const auto it = fields_.find(old);
    if (it == fields_.end()) return;
    BusyScope busy(busy_);
    Validate(static_cast<QLineEdit*>(old), it->second);
}

bool FieldValidation::ValidateActiveField() {
    if (busy_) return true;
    QWidget* focus = w_.focusWidget();
    const auto it = fields_.find(focus);
    if (it == fields_.end()) return true;
    BusyScope busy(busy_);
    return Validate(static_cast<QLineEdit*>(focus), it->second);
}

bool ValidateActiveField(frmRelay& w) {
    auto* v = w.findChild<FieldValidation*>("FieldValidation", Qt::FindDirectChildrenOnly);
    return v ? v->ValidateActiveField() : true;
}

}  // namespace vantrellion

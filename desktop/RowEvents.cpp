#include "desktop/RowEvents.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <map>

#include "desktop/EventGuard.h"
#include "desktop/FieldValidation.h"
#include "desktop/QtConvert.h"
#include "desktop/RowKeyboard.h"
#include "desktop/frmRelay.h"
#include "mainscreen/FieldEntry.h"
#include "mainscreen/RowCommands.h"

namespace vantrellion {

namespace {

// The key code of a key press as the field events see it: Enter, Backspace, Escape, or the
// one printable Latin-1 character the key makes; 0 for keys that make none (arrows, Delete,
// Tab, function keys, control combinations).
int KeyAscii(const QKeyEvent& e) {
    switch (e.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return KeyEnter;
        case Qt::Key_Backspace:
            return 8;
        case Qt::Key_Escape:
            return 27;
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
        case Qt::Key_Delete:
            return 0;
        default:
            break;
    }
    const QString text = e.text();
    if (text.size() != 1) return 0;
    const char16_t c = text[0].unicode();
    return c >= 32 && c != 127 && c <= 0xFF ? c : 0;
}

// The mouse button by its classic number; the extra buttons count as other buttons.
int ButtonNumber(Qt::MouseButton b) {
    switch (b) {
        case Qt::LeftButton:
            return LeftButton;
        case Qt::RightButton:
            return RightButton;
        case Qt::MiddleButton:
            return MiddleButton;
        default:
            return 8;
    }
}

class RowEventFilter : public QObject {
  public:
    RowEventFilter(frmRelay& w, System& s) : QObject(&w), w_(w), s_(s) {
        setObjectName("RowEvents");
        for (int i = 0; i <= LastRelay; ++i) {
            AddField(w.txtDisplayName[i], Control::txtDisplayName, i);
            AddField(w.txtDaysOfWeek[i], Control::txtDaysOfWeek, i);
            AddField(w.txtDayHrEvenOdd[i], Control::txtDayHrEvenOdd, i);
            AddControl(w.lblManual[i], Control::lblManual, i);
            AddControl(w.lblInvert[i], Control::lblInvert, i);
            AddControl(w.lblTotalTime[i], Control::lblTotalTime, i);
            AddControl(w.lblCounter[i], Control::lblCounter, i);
            AddControl(w.imgHardStop[i], Control::imgHardStop, i);
            AddControl(w.imgIDIcon[i], Control::imgIDIcon, i);
            for (int p = 0; p <= LastTimePair; ++p) {
                const int k = PairIndex(i, p);
                AddField(w.txtStartTime[k], Control::txtStartTime, k);
                AddField(w.txtEndTime[k], Control::txtEndTime, k);
            }
        }
    }

  protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        const auto it = controls_.find(object);
        if (it == controls_.end()) return false;
        const RowControlRef ref = it->second;
        auto* widget = static_cast<QWidget*>(object);
        auto* field = qobject_cast<QLineEdit*>(widget);
        switch (event->type()) {
            case QEvent::FocusIn:
                if (field) GotFocus(field, ref);
                return false;
            case QEvent::KeyPress:
                return field && KeyPress(field, ref, static_cast<QKeyEvent*>(event));
            case QEvent::MouseMove:
                MouseMove(widget, ref);
                return false;
            case QEvent::MouseButtonPress:
            case QEvent::MouseButtonDblClick:
                return !field && MousePress(widget, ref, static_cast<QMouseEvent*>(event));
            case QEvent::MouseButtonRelease:
                return !field && MouseRelease(widget, ref, static_cast<QMouseEvent*>(event));
            default:
                return false;
        }
    }

  private:
    void AddField(QLineEdit* field, Control c, int index) {
        AddControl(field, c, index);
        connect(field, &QLineEdit::textChanged, this, [this, c, index](const QString& text) {
            RunCommand(s_, [&] { Field_Change(s_, c, index, S(text), ActiveControlName()); });
        });
    }

    void AddControl(QWidget* widget, Control c, int index) {
        controls_[widget] = RowControlRef{c, index};
        widget->setMouseTracking(true);  // mouse moves arrive without a button held
        widget->installEventFilter(this);
    }

    // The name of the control with the focus in the main screen, "" for none.
    std::string ActiveControlName() const {
        const QWidget* focus = w_.focusWidget();
        return focus ? S(focus->objectName()) : std::string();
    }

    void GotFocus(QLineEdit* field, RowControlRef ref) {
        field->selectAll();
        RunCommand(s_, [&] { Field_GotFocus(s_, ref.control, ref.index, S(field->text())); });
    }

    // True when the key is consumed here.
    bool KeyPress(QLineEdit* field, RowControlRef ref, QKeyEvent* e) {
        const int ascii = KeyAscii(*e);
        if (ascii == 0) return false;
        KeyPressResult r;
        r.KeyAscii = ascii;
        RunCommand(s_, [&] { r = Field_KeyPress(s_, ref.control, ref.index, ascii); });
        // Enter moves on as a Tab would, by the tab order, and so runs the validation; the
        // move is queued behind the Enter, which goes on.
        if (r.SendTab)
            QMetaObject::invokeMethod(
                this, [this, from = QPointer<QLineEdit>(field)] { MoveToNextField(from); },
                Qt::QueuedConnection);
        if (r.KeyAscii == ascii) return false;
        if (r.KeyAscii != 0) field->insert(QString(QChar(r.KeyAscii)));
        return true;
    }

    // The next schedule field by the tab order, as Tab goes, but past the row commands that
    // Tab also reaches: Enter goes from field to field.
    void MoveToNextField(QLineEdit* from) {
        if (!from) return;
        for (QWidget* next = from->nextInFocusChain(); next != from;
             next = next->nextInFocusChain()) {
            if (qobject_cast<QLineEdit*>(next) && controls_.count(next) && next->isEnabled() &&
                next->isVisible() && (next->focusPolicy() & Qt::TabFocus)) {
                next->setFocus(Qt::TabFocusReason);
                return;
            }
        }
    }

    void MouseMove(QWidget* widget, RowControlRef ref) {
        std::string tip = S(widget->toolTip());
        RunCommand(s_, [&] {
            if (auto* field = qobject_cast<QLineEdit*>(widget)) {
                tip = Field_MouseMove(s_, ref.control, S(field->text()), tip);
            } else {
                auto* label = qobject_cast<QLabel*>(widget);
                tip = RowControl_MouseMove(s_, ref.control, label ? S(label->text()) : "", tip);
            }
        });
        if (widget->toolTip() != Q(tip)) widget->setToolTip(Q(tip));
    }

    // The counter reacts to the press of any button; the other controls to a click, a press
    // and release of the left button on the same control. A disabled control takes neither.
    bool MousePress(QWidget* widget, RowControlRef ref, QMouseEvent* e) {
        if (!widget->isEnabled()) return false;
        if (ref.control == Control::lblCounter) {
            const int button = ButtonNumber(e->button());
            RunCommand(s_, [&] { lblCounter_MouseDown(s_, ref.index, button); });
            return true;
        }
        if (e->type() == QEvent::MouseButtonPress && e->button() == Qt::LeftButton)
            pressed_ = widget;
        return true;
    }

    bool MouseRelease(QWidget* widget, RowControlRef ref, QMouseEvent* e) {
        const bool click = e->button() == Qt::LeftButton && pressed_ == widget &&
                           widget->rect().contains(e->position().toPoint());
        if (e->button() == Qt::LeftButton) pressed_ = nullptr;
        if (!click || !widget->isEnabled()) return false;
        RunCommand(s_, [&] { Click(ref); });
        return true;
    }

    void Click(RowControlRef ref) {
        switch (ref.control) {
            case Control::imgHardStop:
                imgHardStop_Click(s_, ref.index);
                break;
            case Control::lblTotalTime:
                lblTotalTime_Click(s_, ref.index);
                break;
            case Control::lblManual:
                lblManual_Click(s_, ref.index);
                break;
            case Control::lblInvert:
                lblInvert_Click(s_, ref.index);
                break;
            case Control::imgIDIcon:
                imgIDIcon_Click(s_, ref.index);
                break;
            default:
                break;
        }
    }

    frmRelay& w_;
    System& s_;
    std::map<const QObject*, RowControlRef> controls_;
    QPointer<QWidget> pressed_;
};

}  // namespace

void WireRowEvents(frmRelay& w, System& s) {
    new RowEventFilter(w, s);
    WireRowKeyboard(w, s);
    auto* validation = new FieldValidation(w, s);
    w.ValidateBeforeCommand = [validation] { return validation->ValidateActiveField(); };
}

}  // namespace vantrellion

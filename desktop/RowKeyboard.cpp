#include "desktop/RowKeyboard.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QPointer>
#include <map>

#include "desktop/EventGuard.h"
#include "desktop/frmRelay.h"
#include "mainscreen/RowCommands.h"

namespace vantrellion {

namespace {

// The frame of the row command that has the focus: a child of the control, over its whole
// area, which lets the mouse through and paints only its border.
class FocusMark : public QWidget {
  public:
    FocusMark() {
        setObjectName("RowFocusMark");
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
    }

    void Mark(QWidget* control) {
        if (parentWidget() != control) setParent(control);
        setGeometry(control->rect());
        show();
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        QPen pen(palette().color(QPalette::Highlight), 2);
        p.setPen(pen);
        p.drawRect(rect().adjusted(1, 1, -1, -1));
    }
};

enum class Command { Manual, Invert, Counter, ResetCounter, Stop, Icon };

struct RowCommand {
    int row;
    Command command;
};

class RowKeyboard : public QObject {
  public:
    RowKeyboard(frmRelay& w, System& s) : QObject(&w), w_(w), s_(s) {
        setObjectName("RowKeyboard");
        for (int i = 0; i <= LastRelay; ++i) {
            // After the row's last end time, in the order they stand in the row.
            QWidget* previous = w.txtEndTime[PairIndex(i, LastTimePair)];
            const std::pair<QWidget*, Command> commands[] = {
                {w.imgIDIcon[i], Command::Icon},   {w.lblManual[i], Command::Manual},
                {w.lblInvert[i], Command::Invert}, {w.lblCounter[i], Command::Counter},
                {w.imgHardStop[i], Command::Stop},
            };
            for (const auto& [control, command] : commands) {
                control->setFocusPolicy(Qt::TabFocus);
                control->installEventFilter(this);
                commands_[control] = RowCommand{i, command};
                QWidget::setTabOrder(previous, control);
                previous = control;
            }
        }
    }

  protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        const auto it = commands_.find(object);
        if (it == commands_.end()) return false;
        auto* control = static_cast<QWidget*>(object);
        switch (event->type()) {
            case QEvent::FocusIn:
                // One frame, moved from control to control; it goes with the window.
                if (!mark_) mark_ = new FocusMark;
                mark_->Mark(control);
                return false;
            case QEvent::FocusOut:
                if (mark_ && mark_->parentWidget() == control) mark_->hide();
                return false;
            case QEvent::Resize:
                if (mark_ && mark_->parentWidget() == control) mark_->setGeometry(control->rect());
                return false;
            case QEvent::KeyPress:
                return KeyPress(control, it->second, *static_cast<QKeyEvent*>(event));
            case QEvent::ContextMenu:
                // A right click keeps its meaning; only the keyboard's menu request is taken.
                if (static_cast<QContextMenuEvent*>(event)->reason() != QContextMenuEvent::Keyboard)
                    return false;
                OpenRowMenu(control, it->second.row);
                return true;
            default:
                return false;
        }
    }

  private:
    bool KeyPress(QWidget* control, RowCommand ref, const QKeyEvent& e) {
        const bool menuKey = e.key() == Qt::Key_Menu ||
                             (e.key() == Qt::Key_F10 && e.modifiers() == Qt::ShiftModifier);
        if (menuKey) {
            OpenRowMenu(control, ref.row);
            return true;
        }
        if (e.key() != Qt::Key_Space || e.modifiers() != Qt::NoModifier) return false;
        if (!e.isAutoRepeat() && control->isEnabled()) Run(ref);
        return true;
    }

    void Run(RowCommand ref) {
        RunCommand(s_, [&] {
            switch (ref.command) {
                case Command::Manual:
                    lblManual_Click(s_, ref.row);
                    break;
                case Command::Invert:
                    lblInvert_Click(s_, ref.row);
                    break;
                case Command::Counter:
                    lblCounter_MouseDown(s_, ref.row, LeftButton);
                    break;
                case Command::ResetCounter:
                    lblCounter_MouseDown(s_, ref.row, RightButton);
                    break;
                case Command::Stop:
                    imgHardStop_Click(s_, ref.row);
                    break;
                case Command::Icon:
                    imgIDIcon_Click(s_, ref.row);
                    break;
            }
        });
    }

    // The row's commands, enabled as their controls are and checked as the record stands.
    void OpenRowMenu(QWidget* control, int row) {
        if (menu_ && menu_->isVisible()) return;  // the Menu key's key press after its request
        const RelayRecord& rec = s_.frmRelay.Relay[row];
        auto* menu = new QMenu(&w_);
        menu->setObjectName("mnuRowCommands");
        menu->setAttribute(Qt::WA_DeleteOnClose);
        const auto add = [&](const QString& caption, Command command, const QWidget* enabledBy,
                             int checked) {
            QAction* a = menu->addAction(caption);
            a->setEnabled(enabledBy->isEnabled());
            if (checked >= 0) {
                a->setCheckable(true);
                a->setChecked(checked != 0);
            }
            connect(a, &QAction::triggered, this, [this, row, command] { Run({row, command}); });
        };
        add("&Manual", Command::Manual, w_.lblManual[row], rec.Manual == True);
        add("&Invert", Command::Invert, w_.lblInvert[row], rec.Invert == True);
        add("&Counter", Command::Counter, w_.lblCounter[row], rec.CounterOn == True);
        add("&Reset Counter", Command::ResetCounter, w_.lblCounter[row], -1);
        menu->addSeparator();
        add("&Stop", Command::Stop, w_.imgHardStop[row], rec.HardStop == True);
        add("Choose Ic&on...", Command::Icon, w_.imgIDIcon[row], -1);
        menu_ = menu;
        menu->popup(control->mapToGlobal(QPoint(0, control->height())));
    }

    frmRelay& w_;
    System& s_;
    std::map<const QObject*, RowCommand> commands_;
    QPointer<FocusMark> mark_;
    QPointer<QMenu> menu_;
};

}  // namespace

void WireRowKeyboard(frmRelay& w, System& s) {
    new RowKeyboard(w, s);
}

}  // namespace vantrellion

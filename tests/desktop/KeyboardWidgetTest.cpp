// The main window from the keyboard: menus by their letters, the shortcuts, an Alt+letter that
// opens no menu, and the row commands reached by Tab and worked with Space and the row's menu.
#include <gtest/gtest.h>

#include <QMenu>
#include <QSignalSpy>

#include "desktop/AltLetterGuard.h"
#include "tests/desktop/RowWindowFixture.h"

namespace vantrellion::test {
namespace {

class KeyboardWidgetTest : public RowWindowTest {
  protected:
    AltLetterGuard guard;

    // The menu that the keys open; the menu bar opens its menus queued.
    static QString Opened(QWidget* at, int key, Qt::KeyboardModifiers mods = Qt::AltModifier) {
        QTest::keyClick(at, static_cast<Qt::Key>(key), mods);
        QCoreApplication::processEvents();
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        return menu ? menu->objectName() : QString();
    }
    static void Choose(int key) {
        QTest::keyClick(QApplication::activePopupWidget(), static_cast<Qt::Key>(key));
    }
};

TEST_F(KeyboardWidgetTest, MenusOpenByTheirLettersShortcutsRunAndOtherAltLettersTypeNothing) {
    QLineEdit* field = w->txtDisplayName[3];
    Focus(field);
    for (auto [key, menu] : {std::pair{Qt::Key_F, "mnuFile"}, std::pair{Qt::Key_T, "mnuTool"},
                             std::pair{Qt::Key_S, "mnuState"}, std::pair{Qt::Key_H, "mnuHelp"}}) {
        EXPECT_EQ(Opened(field, key), menu);
        Choose(Qt::Key_Escape);
    }
    const QString name = field->text();
    EXPECT_EQ(Opened(field, Qt::Key_Z), "");
    EXPECT_EQ(field->text(), name);

    for (auto [keys, item] :
         {std::pair{"Ctrl+N", "mnuFileNew"}, std::pair{"Ctrl+O", "mnuFileOpen"},
          std::pair{"Ctrl+S", "mnuFileSave"}, std::pair{"Ctrl+Shift+S", "mnuFileSaveAs"},
          std::pair{"Ctrl+P", "mnuFilePrintForm"}, std::pair{"Ctrl+Q", "mnuFileExit"}}) {
        QSignalSpy ran(w->Menu(item), &QAction::triggered);
        QTest::keySequence(w.get(), QKeySequence(keys));
        EXPECT_EQ(ran.count(), 1) << keys;
    }
}

TEST_F(KeyboardWidgetTest, RowCommandsAreReachedByTabAndWorkedWithSpaceAndTheRowMenu) {
    // Tab goes on from the row's last field to its commands and the next row; Enter passes
    // the commands.
    QLineEdit* lastEnd = w->txtEndTime[PairIndex(0, 5)];
    Focus(lastEnd);
    for (QWidget* next : std::initializer_list<QWidget*>{w->imgIDIcon[0], w->lblManual[0],
                                                         w->lblInvert[0], w->lblCounter[0],
                                                         w->imgHardStop[0], w->txtDisplayName[1]}) {
        QTest::keyClick(Focused(), Qt::Key_Tab);
        EXPECT_EQ(Focused(), next) << next->objectName().toStdString();
    }
    Focus(lastEnd);
    PressEnter(lastEnd);
    EXPECT_EQ(Focused(), w->txtDisplayName[1]);

    // Space is the click (the counter's left press); the command with the focus wears a frame.
    w->lblManual[0]->setFocus(Qt::TabFocusReason);
    auto* mark = w->lblManual[0]->findChild<QWidget*>("RowFocusMark");
    EXPECT_TRUE(mark && mark->isVisible());
    QTest::keyClick(w->lblManual[0], Qt::Key_Space);
    QTest::keyClick(w->lblCounter[0], Qt::Key_Space);
    EXPECT_EQ(t.relay(0).Manual, True);
    EXPECT_EQ(t.relay(0).CounterOn, True);
    EXPECT_TRUE(RestartWritten());

    // The row's menu: Reset Counter is the right press; Stop holds Manual, greyed in the menu.
    t.relay(0).Count = 5;
    EXPECT_EQ(Opened(w->lblCounter[0], Qt::Key_F10, Qt::ShiftModifier), "mnuRowCommands");
    Choose(Qt::Key_R);
    EXPECT_EQ(t.relay(0).Count, 0);
    EXPECT_EQ(Opened(w->lblCounter[0], Qt::Key_Menu, {}), "mnuRowCommands");
    Choose(Qt::Key_S);
    EXPECT_EQ(t.relay(0).HardStop, True);
    EXPECT_EQ(Opened(w->imgHardStop[0], Qt::Key_Menu, {}), "mnuRowCommands");
    Choose(Qt::Key_M);
    EXPECT_EQ(t.relay(0).Manual, True);
}

}  // namespace
}  // namespace vantrellion::test

// A main window on a test system, shown and active on the offscreen platform, with its rows
// filled and its row events wired to the core. Message boxes and file dialogs are the fakes of
// the test system; the machine directory is a scratch directory.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <memory>

#include "desktop/RowEvents.h"
#include "desktop/frmRelay.h"
#include "mainscreen/RowRefill.h"
#include "mainscreen/RowTestSupport.h"

namespace vantrellion::test {

class RowWindowTest : public RowTest {
  protected:
    std::unique_ptr<frmRelay> w;

    void SetUp() override {
        t.frm().CheckTimeAllowed = True;
        w = std::make_unique<frmRelay>(t.s);
        t.s.platform.screen = w.get();
        t.s.platform.display = w.get();
        WireRowEvents(*w, t.s);
        ResetRowVisuals(t.s);
        FillRowsFromRecords(t.s);
        w->StackRelayGroups();
        w->SizeFormToRows();
        w->show();
        QApplication::setActiveWindow(w.get());
        ASSERT_TRUE(QTest::qWaitForWindowActive(w.get()));
    }
    void TearDown() override { w.reset(); }

    static QWidget* Focused() { return QApplication::focusWidget(); }

    // Puts the focus in a field the way a program does, with the text selected; leaving the
    // field that had the focus validates it.
    void Focus(QLineEdit* field) {
        field->setFocus(Qt::OtherFocusReason);
        ASSERT_EQ(Focused(), field);
    }
    // Types a text over the field's whole content, key by key.
    void Type(QLineEdit* field, const char* text) {
        Focus(field);
        field->selectAll();
        QTest::keyClick(field, Qt::Key_Delete);
        QTest::keyClicks(field, text);
    }
    void PressEnter(QLineEdit* field) {
        QTest::keyClick(field, Qt::Key_Return);
        QCoreApplication::processEvents();  // the Tab that Enter sends
    }
    void PressTab(QLineEdit* field) { QTest::keyClick(field, Qt::Key_Tab); }

    // Moves the mouse over the middle of a control, through the window as a real move comes.
    void MoveMouseOver(QWidget* widget) {
        QTest::mouseMove(w->windowHandle(), widget->mapTo(w.get(), widget->rect().center()));
    }

    std::vector<std::string> Prompts() const { return t.messages.Prompts(); }
    std::string Echo() const { return w->StatusPanel[4]->text().toStdString(); }
};

}  // namespace vantrellion::test

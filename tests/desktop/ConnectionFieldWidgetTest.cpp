// The Connection field of the board configuration: it shows the text the board runs by, lists
// the boards found, enables Save when changed, and stores only what the user typed.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <memory>

#include "boardio/BoardSet.h"
#include "configuration/clsConfiguration.h"
#include "desktop/ConfigScreenWindow.h"
#include "support/Fakes.h"
#include "support/TempStore.h"

namespace vantrellion::test {
namespace {

struct ConnectionFieldWidgetTest : ::testing::Test {
    TestSystem t;
    TempStore temp{t.s};
    BoardSet boards;
    std::unique_ptr<ConfigScreenWindow> w;

    void SetUp() override {
        t.s.platform.boards = &boards;
        // As a Save of the screens leaves it, so that the screen opens unchanged.
        t.mod().Board[0].LogBoard = t.mod().Board[0].ResetOnExit = 1;
        t.mod().WarnOverLapTime = False;
        t.mod().LogFilePath = temp.dir().Path();
        ConfigurationSaveToReg(t.s);
        w = std::make_unique<ConfigScreenWindow>(t.s, ConfigScreenKind::ConfigBoards);
        w->show();
    }
    QComboBox* Field() { return w->Boards->cmbConnection[0]; }
    void Type(const char* text) {
        Field()->setFocus();
        Field()->lineEdit()->selectAll();
        QTest::keyClicks(Field()->lineEdit(), text);
    }
};

TEST_F(ConnectionFieldWidgetTest, ShowsTheBoardsTextListsTheBoardsFoundAndStoresAnEdit) {
    EXPECT_EQ(Field()->currentText(), "ports://768");
    EXPECT_GE(Field()->findText("emulated://"), 0);
    EXPECT_FALSE(w->cmdSave->isEnabled());
    EXPECT_FALSE(w->Boards->cmbConnection[1]->isEnabled());

    QTest::mouseClick(w->cmdSave, Qt::LeftButton);  // nothing changed: nothing stored
    EXPECT_EQ(ConfigurationBoardConnectionLoad(t.s, 0), "");

    Type("modbus-tcp://10.0.0.5:502?unit=2");
    EXPECT_TRUE(w->cmdSave->isEnabled());
    QTest::mouseClick(w->cmdSave, Qt::LeftButton);
    EXPECT_EQ(ConfigurationBoardConnectionLoad(t.s, 0), "modbus-tcp://10.0.0.5:502?unit=2");
    EXPECT_EQ(boards.Connection(0), "modbus-tcp://10.0.0.5:502?unit=2");

    Type("modbus-tcp://10.0.0.5:502?unit=2&coil");
    QTest::mouseClick(w->cmdSave, Qt::LeftButton);
    ASSERT_EQ(t.messages.Prompts().size(), 1u);
    EXPECT_NE(t.messages.Prompts()[0].find("\"coil\" is not of the form name=value"),
              std::string::npos);
    EXPECT_EQ(ConfigurationBoardConnectionLoad(t.s, 0), "modbus-tcp://10.0.0.5:502?unit=2");
    EXPECT_TRUE(w->cmdSave->isEnabled());

    // Closing the screen and answering Yes stores an edited connection too.
    Type("emulated://");
    t.messages.answers = {Answer::Yes};
    w->close();
    EXPECT_EQ(ConfigurationBoardConnectionLoad(t.s, 0), "emulated://");
}

}  // namespace
}  // namespace vantrellion::test

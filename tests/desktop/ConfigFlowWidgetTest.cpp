// The log directory chooser behind Browse of the board screen. Windows are real and modal;
// message boxes are the fakes of the test support.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QTest>

#include "configuration/clsConfiguration.h"
#include "desktop/frmConfigBoards.h"
#include "desktop/frmLogFilePath.h"
#include "support/Fakes.h"
#include "support/TempDir.h"
#include "support/TempStore.h"
#include "tests/desktop/ModalSteps.h"

namespace vantrellion::test {
namespace {

void Activate(QWidget& w) {
    QApplication::setActiveWindow(&w);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&w));
}
void Click(QAbstractButton* b) {
    QTest::mouseClick(b, Qt::LeftButton);
}

class LogDirectoryChooser : public ::testing::Test {
  protected:
    TestSystem t;
    TempStore temp{t.s};
    TempDir logs;
    void SetUp() override {
        QDir(QString::fromStdString(logs.Path())).mkpath(QString::fromStdString(kDaily));
        t.mod().LogFilePath = logs.Path();
        t.mod().Board[0].LogBoard = t.mod().Board[0].ResetOnExit = 1;
        ConfigurationSaveToReg(t.s);
    }
    // A directory named beyond Latin-1: the path comes back exactly as the system names it.
    const std::string kDaily = "\xD0\xB6\xD1\x83\xD1\x80\xD0\xBD\xD0\xB0\xD0\xBB \xE2\x82\xAC";
    std::string Daily() const { return logs.Path() + kDaily; }
};

// Browse opens the chooser on the log directory, or the nearest one still there; Cancel changes
// nothing, Select stores the directory with a closing separator. Either marks the screen changed.
TEST_F(LogDirectoryChooser, BrowseOpensOnTheNearestDirectoryAndSelectAddsTheSeparator) {
    frmConfigBoards w(t.s);
    w.show();
    Activate(w);
    ASSERT_FALSE(w.cmdSave->isEnabled());
    ModalSteps steps;
    steps.On<frmLogFilePath>([this](frmLogFilePath& chooser) {
        EXPECT_EQ(chooser.ChosenPath + "/", logs.Path());
        EXPECT_EQ(chooser.Text1->text().toStdString() + "/", logs.Path());
        Click(chooser.cmdCancel);
    });
    Click(w.Boards->cmdLogFilePathBrowse);
    EXPECT_EQ(t.mod().LogFilePath, logs.Path());
    EXPECT_TRUE(w.cmdSave->isEnabled());

    t.mod().LogFilePath = Daily() + "/gone/";
    steps.On<frmLogFilePath>([this](frmLogFilePath& chooser) {
        EXPECT_EQ(chooser.ChosenPath, Daily());
        chooser.SetDir1Path(QString::fromStdString(Daily()));
        Click(chooser.cmdSelect);
    });
    Click(w.Boards->cmdLogFilePathBrowse);
    EXPECT_TRUE(steps.Done());
    EXPECT_EQ(t.mod().LogFilePath, Daily() + "/");
    EXPECT_EQ(w.Boards->txtLogFilePath->text().toStdString(), Daily() + "/");
}

}  // namespace
}  // namespace vantrellion::test

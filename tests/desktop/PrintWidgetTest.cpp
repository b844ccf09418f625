// Printing the main window and the screen from the File menu: the tick is held meanwhile and a
// bitmap copy lands in the machine directory.
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>

#include "desktop/HelpAndLogMenus.h"
#include "support/Fakes.h"
#include "support/TempDir.h"
#include "tests/desktop/PdfPrinter.h"
#include "tests/desktop/RowWindowFixture.h"

namespace vantrellion::test {
namespace {

// The main screen holds the tick while it prints, and lets it go again.
class MainScreenPrintTest : public RowWindowTest {
  protected:
    TempDir dir;
    PdfPrinter printer{dir.File("main.pdf")};
};

TEST_F(MainScreenPrintTest, PrintWindowAndScreenSuspendTheTickAndResumeIt) {
    t.s.platform.machineDirectory = dir.Path();
    WireHelpAndLogMenus(t.s, *w);
    std::vector<bool> timerDuringPrint;
    printer.onChoose = [&] { timerDuringPrint.push_back(t.timer.enabled); };
    t.timer.enabled = true;
    w->Menu("mnuFilePrintForm")->trigger();
    w->Menu("mnuFilePrintScreen")->trigger();
    EXPECT_EQ(timerDuringPrint, (std::vector<bool>{false, false}));
    EXPECT_TRUE(t.timer.enabled);
    EXPECT_TRUE(dir.Exists("test_desktop_frmRelay_Window.BMP"));
    EXPECT_TRUE(dir.Exists("test_desktop_frmRelay_Screen.BMP"));
    EXPECT_EQ(QImage(QString::fromStdString(dir.File("test_desktop_frmRelay_Window.BMP"))).size(),
              w->size());
}

}  // namespace
}  // namespace vantrellion::test

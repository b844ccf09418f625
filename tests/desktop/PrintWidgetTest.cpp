// Printing a window and the screen: the picture onto a PDF printer with the page-width rule,
// onto the clipboard, and as a bitmap copy in the machine directory; a cancel ends in a box.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QPrintDialog>
#include <QScreen>
#include <QTest>

#include "desktop/HelpAndLogMenus.h"
#include "desktop/clsPrintScreenOrForm.h"
#include "support/Fakes.h"
#include "support/TempDir.h"
#include "tests/desktop/ModalSteps.h"
#include "tests/desktop/PdfPrinter.h"
#include "tests/desktop/RowWindowFixture.h"

namespace vantrellion::test {
namespace {

const QColor kFill(10, 200, 30);

class PrintTest : public ::testing::Test {
  protected:
    TempDir dir;
    TestSystem t;
    PdfPrinter printer{dir.File("out.pdf")};

    void SetUp() override { t.s.platform.machineDirectory = dir.File("machine/"); }

    // A plain window of one colour.
    std::unique_ptr<QWidget> Window(const char* name, int width, int height) {
        auto w = std::make_unique<QWidget>();
        w->setObjectName(name);
        QPalette pal = w->palette();
        pal.setColor(QPalette::Window, kFill);
        w->setPalette(pal);
        w->setAutoFillBackground(true);
        w->resize(width, height);
        w->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(w.get()));
        return w;
    }
    // The printable width of the chosen A4 page, in twips, from its layout.
    double PageWidthTwips() {
        QPrinter p(QPrinter::HighResolution);
        p.setOutputFormat(QPrinter::PdfFormat);
        p.setPageSize(QPageSize(QPageSize::A4));
        return p.pageLayout().paintRectPoints().width() * 20.0;
    }
};

TEST_F(PrintTest, WindowWiderThanThePageIsScaledAndANarrowOneKeepsItsSize) {
    const double page = PageWidthTwips();
    struct Case {
        const char* name;
        int width, height;
        bool scaled;
    };
    for (const Case& c : {Case{"frmWide", 1200, 300, true}, Case{"frmNarrow", 300, 200, false}}) {
        auto w = Window(c.name, c.width, c.height);
        clsPrintScreenOrForm job(t.s);
        job.mPrintForm(w.get());
        if (c.scaled) {
            EXPECT_NEAR(job.PrintedSize.Width, page, 2) << c.name;
            EXPECT_NEAR(job.PrintedSize.Height, page / (c.width * 15.0) * c.height * 15.0, 2);
        } else {
            EXPECT_EQ(job.PrintedSize, (PictureSize{c.width * 15, c.height * 15})) << c.name;
        }
        // An A4 page in the PDF, carrying the window's picture at its own pixels.
        const std::string pdf = printer.Bytes();
        EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
        EXPECT_NE(pdf.find("/MediaBox [0 0 595"), std::string::npos);
        EXPECT_NE(pdf.find("/Width " + std::to_string(c.width)), std::string::npos);

        // The bitmap copy holds the window's pixels, and so does the clipboard.
        const QString bmp =
            QString::fromStdString(dir.File("machine/")) + "test_desktop_" + c.name + "_Window.BMP";
        EXPECT_EQ(job.BitmapFile, bmp);
        const QImage copy(bmp, "BMP");
        ASSERT_EQ(copy.size(), QSize(c.width, c.height)) << c.name;
        EXPECT_EQ(copy.pixelColor(c.width / 2, c.height / 2), kFill);
        EXPECT_EQ(QGuiApplication::clipboard()->image().size(), copy.size());
    }
    EXPECT_TRUE(t.messages.shown.empty());
}

TEST_F(PrintTest, ScreenFillsThePageWidthAndIsCopiedUnderTheScreenName) {
    auto w = Window("frmNarrow", 300, 200);
    clsPrintScreenOrForm job(t.s);
    job.mPrintScreen(w.get());
    const QSize screen = w->screen()->geometry().size();
    EXPECT_EQ(job.Picture.size(), screen);
    EXPECT_NEAR(job.PrintedSize.Width, PageWidthTwips(), 2);
    EXPECT_NEAR(job.PrintedSize.Height, PageWidthTwips() / screen.width() * screen.height(), 2);
    EXPECT_EQ(QImage(job.BitmapFile, "BMP").size(), screen);
    EXPECT_TRUE(job.BitmapFile.endsWith("test_desktop_frmNarrow_Screen.BMP"));
    // The window stands on the picture where it stands on the screen.
    const QPoint inside = w->geometry().center() - w->screen()->geometry().topLeft();
    EXPECT_EQ(job.Picture.pixelColor(inside), kFill);
}

TEST_F(PrintTest, BitmapThatCannotBeWrittenGivesABox) {
    dir.Write("machine", "a file where the directory should be");
    auto w = Window("frmNarrow", 300, 200);
    clsPrintScreenOrForm(t.s).mPrintForm(w.get());
    ASSERT_EQ(t.messages.shown.size(), 1u);
    EXPECT_NE(t.messages.shown[0].Prompt.find("could not be saved"), std::string::npos);
    EXPECT_NE(printer.Bytes(), "");
}

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

namespace vantrellion::test {
namespace {

// Qt's own print dialog, cancelled as a user would: one box, and the picture is still on the
// clipboard and on disk.
TEST(PrintDialog, CancelOfTheRealDialogGivesTheBox) {
    TempDir dir;
    TestSystem t;
    t.s.platform.machineDirectory = dir.Path();
    QWidget w;
    w.setObjectName("frmSmall");
    w.resize(200, 100);
    w.show();
    QGuiApplication::clipboard()->setText("earlier");
    ModalSteps steps;
    QAbstractPrintDialog::PrintDialogOptions offered;
    steps.On<QPrintDialog>([&](QPrintDialog& d) {
        offered = d.options();
        d.reject();
    });
    clsPrintScreenOrForm(t.s).mPrintForm(&w);
    EXPECT_TRUE(steps.Done());
    EXPECT_FALSE(offered.testFlag(QAbstractPrintDialog::PrintPageRange));
    EXPECT_FALSE(offered.testFlag(QAbstractPrintDialog::PrintSelection));
    EXPECT_EQ(t.messages.Prompts(), std::vector<std::string>{PrintCancelledText});
    EXPECT_TRUE(dir.Exists("test_desktop_frmSmall_Window.BMP"));
    EXPECT_EQ(QGuiApplication::clipboard()->image().size(), QSize(200, 100));
}

}  // namespace
}  // namespace vantrellion::test

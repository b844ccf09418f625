// The log viewer and the log deletion window on real widgets: opening, cancelling, reading a
// large log, printing it to a PDF, and moving logs to a freedesktop trash in a scratch
// $XDG_DATA_HOME.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTest>
#include <QTextBlock>
#include <iostream>

#include "desktop/frmLogFileDelete.h"
#include "desktop/frmLogFileViewer.h"
#include "logging/EventLog.h"
#include "logging/LogFileName.h"
#include "support/Fakes.h"
#include "support/TempDir.h"
#include "tests/desktop/PdfPrinter.h"
#include "tests/desktop/ScopedEnv.h"

namespace vantrellion::test {
namespace {

std::string LogLines(int count) {
    std::string text;
    for (int n = 0; n < count; ++n)
        text += "09:" + std::to_string(10 + n % 50) +
                ":00 11/16/2026 RelayState 1 : - 2 - - - - - -" +
                " InputState 1 : - - - - - - - -\r\n";
    return text;
}

class LogViewerTest : public ::testing::Test {
  protected:
    TempDir dir;
    TestSystem t;
    void SetUp() override {
        t.clock.now = DateTime{2026, 11, 16, 9, 30, 0, 2};
        t.mod().LogFilePath = dir.Path();
        t.mod().LogFileName = LogFileNameForDate("11/16/2026");
    }
    std::string TodaysLog() { return t.mod().LogFilePath + t.mod().LogFileName; }
};

TEST_F(LogViewerTest, OpensTodaysLogReadOnlyInAFixedPitchFont) {
    dir.Write(t.mod().LogFileName, "09:30:00 11/16/2026 Open x.run\r\nsecond line\r\n");
    t.dialogs.answers.push_back(TodaysLog());
    frmLogFileViewer v(t.s);
    v.show();
    ASSERT_EQ(t.dialogs.opened.size(), 1u);
    EXPECT_EQ(t.dialogs.opened[0].FileName, TodaysLog());
    EXPECT_EQ(t.dialogs.opened[0].InitialDirectory, dir.Path());
    EXPECT_EQ(v.windowTitle().toStdString(), TodaysLog());
    EXPECT_EQ(v.rtbViewLogs->toPlainText(), "09:30:00 11/16/2026 Open x.run\nsecond line\n");
    EXPECT_TRUE(v.rtbViewLogs->isReadOnly());
    EXPECT_TRUE(QFontInfo(v.rtbViewLogs->font()).fixedPitch());
    EXPECT_FALSE(v.Timer1->isActive());

    // A cancelled later Open leaves the file in view; a file that cannot be read (a
    // directory) gets the one box.
    v.Menu("mnuFileOpen")->trigger();
    EXPECT_EQ(v.rtbViewLogs->document()->blockCount(), 3);
    EXPECT_TRUE(t.messages.shown.empty());
    t.dialogs.answers.push_back(dir.Path());
    v.Menu("mnuFileOpen")->trigger();
    ASSERT_EQ(t.messages.shown.size(), 1u);
    EXPECT_EQ(t.messages.shown[0].Title, "MS Scripting Runtime Not Installed");
    EXPECT_TRUE(v.isVisible());
}

TEST_F(LogViewerTest, CancelledFirstDialogClosesTheWindowAfterHalfASecond) {
    frmLogFileViewer v(t.s);
    QElapsedTimer clock;
    clock.start();
    v.show();
    EXPECT_EQ(v.Timer1->interval(), 500);
    QTest::qWait(300);
    EXPECT_TRUE(v.isVisible());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !v.isVisible(); }, 2000));
    EXPECT_GE(clock.elapsed(), 500);
    EXPECT_TRUE(t.messages.shown.empty());
}

TEST_F(LogViewerTest, MultiMegabyteLogLoadsWholeAndTheTimersRunMeanwhile) {
    const int lines = 60000;  // about 5 MB
    const std::string log = LogLines(lines);
    dir.Write(t.mod().LogFileName, log);
    t.dialogs.answers.push_back(TodaysLog());
    frmLogFileViewer v(t.s);
    // A timer beside the load measures the longest gap between its turns.
    QElapsedTimer clock, sinceLast;
    qint64 longestGap = 0;
    QTimer beat;
    beat.setInterval(10);
    QObject::connect(&beat, &QTimer::timeout,
                     [&] { longestGap = std::max(longestGap, sinceLast.restart()); });
    clock.start();
    sinceLast.start();
    beat.start();
    v.show();
    const qint64 ms = clock.elapsed();
    std::cout << "[ viewer   ] " << log.size() / 1000 << " kB in " << ms
              << " ms, longest wait of a timer " << longestGap << " ms\n";
    EXPECT_EQ(v.rtbViewLogs->document()->blockCount(), lines + 1);
    EXPECT_EQ(v.rtbViewLogs->toPlainText().size(), static_cast<qsizetype>(log.size() - lines));
    EXPECT_EQ(v.rtbViewLogs->document()->findBlockByNumber(lines - 1).text().toStdString(),
              log.substr(log.size() - 2 - (log.size() / lines - 2), log.size() / lines - 2));
    EXPECT_LT(longestGap, 500);
}

TEST_F(LogViewerTest, PrintLogPrintsTheSelectionOrTheWholeText) {
    dir.Write(t.mod().LogFileName, LogLines(300));
    t.dialogs.answers.push_back(TodaysLog());
    frmLogFileViewer v(t.s);
    v.show();
    {
        PdfPrinter whole(dir.File("whole.pdf"));
        v.Menu("mnuFilePrint")->trigger();
        EXPECT_EQ(whole.offeredSelection, std::vector<bool>{false});
        EXPECT_GT(whole.Pages(), 1);
    }
    {
        PdfPrinter selection(dir.File("selection.pdf"));
        QTextCursor c = v.rtbViewLogs->textCursor();
        c.movePosition(QTextCursor::EndOfLine, QTextCursor::KeepAnchor);
        v.rtbViewLogs->setTextCursor(c);
        v.Menu("mnuFilePrint")->trigger();
        EXPECT_EQ(selection.offeredSelection, std::vector<bool>{true});
        EXPECT_EQ(selection.Pages(), 1);
    }
    {
        PdfPrinter cancelled(dir.File("cancelled.pdf"));
        cancelled.cancel = true;
        v.Menu("mnuFilePrint")->trigger();
        EXPECT_EQ(t.messages.Prompts(), std::vector<std::string>{PrintCancelledText});
    }
}

TEST_F(LogViewerTest, FontAppliesToTheSelectionAndMenusStandInTheirOrder) {
    dir.Write(t.mod().LogFileName, "first line\r\nsecond line\r\n");
    t.dialogs.answers.push_back(TodaysLog());
    frmLogFileViewer v(t.s);
    v.ChooseFont = [](QFont& f, QWidget*) {
        f = QFont("DejaVu Sans Mono", 14);
        f.setBold(true);
        return true;
    };
    v.show();
    QTextCursor c = v.rtbViewLogs->textCursor();
    c.movePosition(QTextCursor::Start);
    c.movePosition(QTextCursor::EndOfWord, QTextCursor::KeepAnchor);
    v.rtbViewLogs->setTextCursor(c);
    v.Menu("mnuEditFont")->trigger();
    const QTextBlock first = v.rtbViewLogs->document()->firstBlock();
    const QTextCharFormat chosen = first.begin().fragment().charFormat();
    EXPECT_EQ(first.begin().fragment().text(), "first");
    EXPECT_EQ(chosen.fontPointSize(), 14);
    EXPECT_EQ(chosen.fontWeight(), QFont::Bold);
    EXPECT_NE(first.next().begin().fragment().charFormat().fontWeight(), QFont::Bold);

    QStringList bar;
    for (QAction* a : v.menuBar->actions())
        bar << a->objectName() + "=" + a->text().trimmed();
    EXPECT_EQ(bar.join(" "),
              "mnuFile=File mnuEdit=Edit mnuHelp=Help mnuBlank1= mnuBlank2= mnuEXIT=&EXIT");
    v.Menu("mnuHelpHelp")->trigger();
    EXPECT_EQ(t.messages.Prompts(), std::vector<std::string>{"To Do"});
    v.Menu("mnuEXIT")->trigger();
    EXPECT_FALSE(v.isVisible());
}

class LogDeleteTest : public ::testing::Test {
  protected:
    TempDir dir;
    TestSystem t;
    ScopedEnv home{"HOME", dir.File("home")};
    ScopedEnv dataHome{"XDG_DATA_HOME", dir.File("home/data")};  // not there yet
    std::string logs = dir.File("logs/");

    void SetUp() override {
        std::filesystem::create_directories(logs);
        std::filesystem::create_directories(dir.File("home"));
        t.clock.now = DateTime{2026, 11, 16, 9, 30, 0, 2};
        t.mod().LogFilePath = logs;
        t.mod().LoggingOnOff = True;
    }
    static void Write(const std::string& path, const std::string& bytes) {
        std::ofstream(path, std::ios::binary) << bytes;
    }
    void ClickEntry(frmLogFileDelete& w, const QString& name, Qt::KeyboardModifiers keys = {}) {
        const auto found = w.File1->findItems(name, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << name.toStdString();
        QTest::mouseClick(w.File1->viewport(), Qt::LeftButton, keys,
                          w.File1->visualItemRect(found[0]).center());
    }
    QStringList Entries(frmLogFileDelete& w) {
        QStringList names;
        for (int i = 0; i < w.File1->count(); ++i)
            names << w.File1->item(i)->text();
        return names;
    }
};

TEST_F(LogDeleteTest, TwoSelectedLogsGoToTheTrashAndTodaysComesBackWithTheNextLine) {
    const std::string today = LogFileNameForDate("11/16/2026");
    Write(logs + "Vantrellion_2026_11_15.Log", "old\r\n");
    Write(logs + today, "today\r\n");
    Write(logs + "vantrellion_2026_11_14.LOG", "older\r\n");
    Write(logs + "notes.txt", "not a log\r\n");

    frmLogFileDelete w(t.s);
    w.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&w));
    EXPECT_EQ(w.windowTitle(), "Delete Log File(s)");
    EXPECT_EQ(w.File1Path().toStdString(), logs);
    EXPECT_EQ(Entries(w), (QStringList{"Vantrellion_2026_11_15.Log", QString::fromStdString(today),
                                       "vantrellion_2026_11_14.LOG"}));
    EXPECT_FALSE(w.cmdDelete->isEnabled());

    ClickEntry(w, "Vantrellion_2026_11_15.Log");
    ClickEntry(w, QString::fromStdString(today), Qt::ControlModifier);
    EXPECT_TRUE(w.cmdDelete->isEnabled());
    QTest::mouseClick(w.cmdDelete, Qt::LeftButton);

    EXPECT_TRUE(t.messages.shown.empty()) << t.messages.Prompts()[0];
    EXPECT_EQ(Entries(w), QStringList{"vantrellion_2026_11_14.LOG"});
    EXPECT_FALSE(w.cmdDelete->isEnabled());
    const std::string trash = dir.File("home/data/Trash/");
    for (const std::string& name : {std::string("Vantrellion_2026_11_15.Log"), today}) {
        EXPECT_FALSE(std::filesystem::exists(logs + name));
        EXPECT_TRUE(std::filesystem::exists(trash + "files/" + name)) << name;
        const std::string info = TempDir::ReadFile(trash + "info/" + name + ".trashinfo");
        EXPECT_EQ(info.substr(0, 12), "[Trash Info]") << name;
        EXPECT_NE(info.find("Path=" + logs + name), std::string::npos) << info;
        EXPECT_NE(info.find("DeletionDate=20"), std::string::npos) << info;
    }
    EXPECT_EQ(TempDir::ReadFile(trash + "files/" + today), "today\r\n");

    WriteEventLog(t.s, "Open", "x.run");
    EXPECT_NE(TempDir::ReadFile(logs + today).find("Open x.run"), std::string::npos);

    // A directory without logs: an empty list and no Delete.
    ClickEntry(w, "vantrellion_2026_11_14.LOG");
    w.SetDir1Path(QString::fromStdString(dir.File("home")));
    EXPECT_EQ(w.File1Path().toStdString(), dir.File("home/"));
    EXPECT_EQ(w.File1->count(), 0);
    EXPECT_FALSE(w.cmdDelete->isEnabled());
}

TEST_F(LogDeleteTest, AFileThatCannotBeOpenedIsReportedAndTheNextOneStillGoes) {
    Write(logs + "Vantrellion_a.log", "a");
    Write(logs + "Vantrellion_b.log", "b");
    frmLogFileDelete w(t.s);
    w.show();
    std::filesystem::remove(logs + "Vantrellion_a.log");  // gone since the list was made
    ClickEntry(w, "Vantrellion_a.log");
    ClickEntry(w, "Vantrellion_b.log", Qt::ShiftModifier);
    QTest::mouseClick(w.cmdDelete, Qt::LeftButton);
    ASSERT_EQ(t.messages.shown.size(), 1u);
    EXPECT_EQ(t.messages.shown[0].Title, "");
    EXPECT_NE(t.messages.shown[0].Prompt.find("Vantrellion_a.log"), std::string::npos);
    EXPECT_NE(t.messages.shown[0].Prompt.find("\r\n53\r\nVantrellion"), std::string::npos);
    EXPECT_TRUE(std::filesystem::exists(dir.File("home/data/Trash/files/Vantrellion_b.log")));
    EXPECT_TRUE(Entries(w).isEmpty());
}

}  // namespace
}  // namespace vantrellion::test

// The log viewer and the log deletion window on real widgets: reading a large log whole, and
// moving logs to a freedesktop trash in a scratch $XDG_DATA_HOME.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QTest>
#include <QTextBlock>

#include "desktop/frmLogFileDelete.h"
#include "desktop/frmLogFileViewer.h"
#include "logging/EventLog.h"
#include "logging/LogFileName.h"
#include "support/Fakes.h"
#include "support/TempDir.h"
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

TEST_F(LogViewerTest, MultiMegabyteLogLoadsWhole) {
    const int lines = 60000;  // about 5 MB
    const std::string log = LogLines(lines);
    dir.Write(t.mod().LogFileName, log);
    t.dialogs.answers.push_back(TodaysLog());
    frmLogFileViewer v(t.s);
    v.show();
    EXPECT_EQ(v.rtbViewLogs->document()->blockCount(), lines + 1);
    EXPECT_EQ(v.rtbViewLogs->toPlainText().size(), static_cast<qsizetype>(log.size() - lines));
    EXPECT_EQ(v.rtbViewLogs->document()->findBlockByNumber(lines - 1).text().toStdString(),
              log.substr(log.size() - 2 - (log.size() / lines - 2), log.size() / lines - 2));
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

}  // namespace
}  // namespace vantrellion::test

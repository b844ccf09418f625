#include <gtest/gtest.h>
#include <stdlib.h>

#include <QDir>
#include <QFile>
#include <optional>
#include <tuple>

#include "desktop/resources/clsLoadCustomResource.h"
#include "support/Fakes.h"
#include "support/TempStore.h"

namespace vantrellion {
namespace {

// Every test gets its own temporary directory, which also serves as the system's one.
class Resources : public ::testing::Test {
  protected:
    void SetUp() override {
        if (const char* old = getenv("TMPDIR")) savedTmp_ = old;
        setenv("TMPDIR", Tmp().toStdString().c_str(), 1);
    }
    void TearDown() override {
        if (savedTmp_)
            setenv("TMPDIR", savedTmp_->c_str(), 1);
        else
            unsetenv("TMPDIR");
    }
    // The temporary directory without its trailing "/", with what follows.
    QString Tmp(const char* rest = "") const {
        return QString::fromStdString(dir.Path()).chopped(1) + rest;
    }
    QStringList TempFiles() const { return QDir(Tmp()).entryList(QDir::Files); }
    static QByteArray Read(const QString& file) {
        QFile f(file);
        f.open(QIODevice::ReadOnly);
        return f.readAll();
    }

    test::TempDir dir;

  private:
    std::optional<std::string> savedTmp_;
};

TEST_F(Resources, EveryIconOfTheProgramLoads) {
    const int ids[] = {101, 110, 121, 122, 123, 124, 125, 126, 127, 128,
                       200, 205, 210, 215, 225, 230, 235, 250, 255};
    for (int id : ids) {
        EXPECT_FALSE(LoadIconResource(id).isNull()) << id;
        const QPixmap picture = LoadPictureResource(id, IconResourceType);
        EXPECT_EQ(picture.size(), QSize(32, 32)) << id;
    }
    EXPECT_TRUE(TempFiles().isEmpty()) << TempFiles().join(",").toStdString();
    EXPECT_TRUE(LoadIconResource(999).isNull());
}

TEST_F(Resources, RichTextsComeAsTemporaryFilesForTheCaller) {
    const std::tuple<int, const char*, const char*> cases[] = {
        {101, "rtfAboutDescription", "hydroponics"},
        {102, "rtfAboutWarning", "NOT FOR LIFE SUPPORT SYSTEMS"},
        {103, "rtfHelp", "REMEMBER:   NEVER USE Vantrellion for LIFE SUPPORT SYSTEMS"},
    };
    for (const auto& [id, type, holds] : cases) {
        SCOPED_TRACE(type);
        const QString file = LoadRTFResource(id, type);
        ASSERT_FALSE(file.isEmpty());
        EXPECT_TRUE(file.startsWith(Tmp("/~rs")));
        EXPECT_TRUE(Read(file).contains(holds));
        EXPECT_EQ(Read(file), *LoadResourceBytes(id, type));
        QFile::remove(file);
    }
    const QString plain = LoadTextResourceName(103, "rtfHelp");
    EXPECT_EQ(Read(plain), *LoadResourceBytes(103, "rtfHelp"));
    QFile::remove(plain);
    EXPECT_TRUE(TempFiles().isEmpty());
}

TEST_F(Resources, AMissingResourceGivesNothingAndLeavesTheEmptyTemporaryFile) {
    EXPECT_TRUE(LoadRTFResource(104, "rtfHelp").isEmpty());
    EXPECT_TRUE(LoadRTFResource(101, "rtfHelp").isEmpty());  // the id exists under another type
    EXPECT_TRUE(LoadPictureResource(999, IconResourceType).isNull());
    const QStringList left = TempFiles();
    ASSERT_EQ(left.size(), 3);
    for (const auto& name : left) {
        EXPECT_TRUE(name.startsWith("~rs"));
        EXPECT_EQ(QFile(Tmp("/") + name).size(), 0);
    }
}

TEST_F(Resources, TextAsAStringOrABoxWhenItCannotBeWritten) {
    test::TestSystem t;
    const QString help = LoadTextResourceString(t.s, 103, "rtfHelp");
    EXPECT_TRUE(help.contains("Counter"));
    EXPECT_TRUE(TempFiles().isEmpty());
    EXPECT_TRUE(t.messages.shown.empty());

    EXPECT_TRUE(LoadTextResourceString(t.s, 103, "rtfHelp", "/dev/full").isEmpty());
    EXPECT_EQ(t.messages.shown.size(), 1u);
}

TEST_F(Resources, SaveResItemToDiskGivesTheErrorNumber) {
    const QString good = Tmp("/copy.html");
    const std::pair<QString, int32_t> cases[] = {
        {good, 0},
        {"/dev/full", ErrDiskFull},
        {Tmp("/no/such/folder/x"), ErrPathFileAccess},
        {QString(), ErrPathFileAccess},
    };
    for (const auto& [file, result] : cases)
        EXPECT_EQ(SaveResItemToDisk(102, "rtfAboutWarning", file), result) << file.toStdString();
    EXPECT_EQ(Read(good), *LoadResourceBytes(102, "rtfAboutWarning"));
    EXPECT_EQ(SaveResItemToDisk(7, "rtfAboutWarning", good), ErrResourceNotFound);
    EXPECT_EQ(Read(good), *LoadResourceBytes(102, "rtfAboutWarning"));  // left as it was
}

TEST_F(Resources, TemporaryNames) {
    QString name, second;
    EXPECT_EQ(GetTempFile(QString(), "~rs", 0, name), True);
    EXPECT_TRUE(name.startsWith(Tmp("/~rs")));
    EXPECT_TRUE(QFile::exists(name));
    GetTempFile(Tmp("/"), "~rs", 0, second);
    EXPECT_NE(second, name);
    EXPECT_EQ(GetTempFile("/somewhere", "~rs", 0x1A2B, name), True);
    EXPECT_EQ(name, "/somewhere/~rs1A2B.tmp");
    EXPECT_EQ(GetTempFile(Tmp("/missing"), "~rs", 0, name), False);
    EXPECT_TRUE(name.isEmpty());
    EXPECT_EQ(StripTerminator(QString("abc") + QChar(u'\0') + "def"), "abc");
}

}  // namespace
}  // namespace vantrellion

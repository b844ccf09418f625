#include <gtest/gtest.h>
#include <stdlib.h>

#include <QDir>
#include <optional>

#include "desktop/resources/clsLoadCustomResource.h"
#include "support/Fakes.h"
#include "support/TempDir.h"

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

}  // namespace
}  // namespace vantrellion

// A system whose rows are shown, with its machine directory in a scratch directory, a way to
// read back what reached the restart file, and the check of an entry's message box.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "runfile/CrashRestart.h"
#include "runfile/RunFileLoad.h"
#include "support/Fakes.h"
#include "support/TempDir.h"

namespace vantrellion::test {

// A fresh system that writes its restart file into dir, with its rows shown.
struct RowSystem : TestSystem {
    explicit RowSystem(const TempDir& dir) {
        s.platform.machineDirectory = dir.Path();
        frm().RowsShown = True;
    }
};

// Exactly one box was shown: this text and title, an exclamation icon and a single OK button.
inline void ExpectOneBox(const TestSystem& u, const std::string& prompt, const std::string& title) {
    ASSERT_EQ(u.messages.shown.size(), 1u) << prompt;
    const MessageBoxRequest& m = u.messages.shown[0];
    EXPECT_EQ(m.Prompt, prompt);
    EXPECT_EQ(m.Title, title);
    EXPECT_EQ(m.BoxIcon, Icon::Exclamation);
    EXPECT_EQ(m.ButtonSet, Buttons::OK);
}

class RowTest : public ::testing::Test {
  protected:
    bool RestartWritten() const { return dir.Exists(RestartFileName); }

    // Loads the restart file into a fresh system, as the next start after a crash would.
    void ReadRestart(TestSystem& u) const {
        u.s.platform.machineDirectory = dir.Path();
        ASSERT_EQ(LoadRunFile(u.s, dir.Path(), RestartFileName, true), RunFileLoaded);
    }

    TempDir dir;
    RowSystem t{dir};
};

}  // namespace vantrellion::test

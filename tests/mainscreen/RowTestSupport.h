// A system whose rows are shown, with its machine directory in a scratch directory, and a way
// to read back what reached the restart file.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "runfile/CrashRestart.h"
#include "runfile/RunFileLoad.h"
#include "support/Fakes.h"
#include "support/TempDir.h"

namespace vantrellion::test {

class RowTest : public ::testing::Test {
  protected:
    RowTest() {
        t.s.platform.machineDirectory = dir.Path();
        t.frm().RowsShown = True;
    }

    bool RestartWritten() const { return dir.Exists(RestartFileName); }

    // Loads the restart file into a fresh system, as the next start after a crash would.
    void ReadRestart(TestSystem& u) const {
        u.s.platform.machineDirectory = dir.Path();
        ASSERT_EQ(LoadRunFile(u.s, dir.Path(), RestartFileName, true), RunFileLoaded);
    }

    TempDir dir;
    TestSystem t;
};

}  // namespace vantrellion::test

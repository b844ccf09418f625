// A configuration in a test's store.db as a Save of the configuration screen leaves it (board 1
// at 0x300 with its inputs at 0x301, logs and Run Files in the test's directory), so that a
// started program finds it configured.
#pragma once

#include <gtest/gtest.h>

#include "configuration/KeyValueStore.h"
#include "configuration/clsConfiguration.h"
#include "support/Fakes.h"
#include "support/TempDir.h"

namespace vantrellion::test {

inline void SaveTestConfiguration(const TempDir& dir, Flag runNoBoards, Flag logging) {
    KeyValueStore store(dir.File("store.db"));
    TestSystem t;
    t.s.platform.store = &store;
    t.s.platform.machineDirectory = dir.Path();
    t.mod().LoggingOnOff = logging;
    t.mod().RunNoBoards = runNoBoards;
    t.mod().LogFilePath = dir.Path();
    t.mod().DataFilePath = dir.Path();
    ConfigurationSaveToReg(t.s);
    EXPECT_TRUE(t.messages.shown.empty());
}

}  // namespace vantrellion::test

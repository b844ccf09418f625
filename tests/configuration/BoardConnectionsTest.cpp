// Connection texts between the store and the board set: a missing one stays missing, a
// malformed one is told and never stored, an emptied field removes the value.
#include <gtest/gtest.h>

#include "boardio/BoardSet.h"
#include "configuration/BoardConnections.h"
#include "configuration/clsConfiguration.h"
#include "support/Fakes.h"
#include "support/TempStore.h"

namespace vantrellion {
namespace {

struct BoardConnectionsTest : ::testing::Test {
    test::TestSystem t;
    test::TempStore store{t.s};
    BoardSet boards;
    void SetUp() override { t.s.platform.boards = &boards; }
};

TEST_F(BoardConnectionsTest, AtStartAMissingTextIsLeftMissingAndAMalformedOneIsToldOnly) {
    LoadBoardConnections(t.s);
    EXPECT_TRUE(t.messages.shown.empty());
    EXPECT_EQ(ConfigurationBoardConnectionLoad(t.s, 0), "");
    EXPECT_EQ(boards.EffectiveConnection(t.s, 0), "ports://768");

    ConfigurationBoardConnectionSave(t.s, 0, "gpio://gpiochip0?out=17,,18");
    LoadBoardConnections(t.s);
    ASSERT_EQ(t.messages.Prompts().size(), 1u);
    EXPECT_EQ(t.messages.Prompts()[0],
              "Board 1: the connection \"gpio://gpiochip0?out=17,,18\" cannot be used: the "
              "option out=17,,18 is not a list of up to 8 line numbers, as in 17,18,27.\r\nThe "
              "board runs emulated until its connection is corrected in the configuration "
              "screen.");
    EXPECT_EQ(t.messages.shown[0].BoxIcon, Icon::Exclamation);
    EXPECT_EQ(boards.Status(t.s, 0), "emulated: connection text not valid");
    EXPECT_EQ(ConfigurationBoardConnectionLoad(t.s, 0), "gpio://gpiochip0?out=17,,18");
}

TEST_F(BoardConnectionsTest, TheUsersTextIsStoredCheckedFirstAndAnEmptyOneRemovesIt) {
    EXPECT_TRUE(SaveBoardConnection(t.s, 0, "emulated://"));
    EXPECT_EQ(ConfigurationBoardConnectionLoad(t.s, 0), "emulated://");
    EXPECT_EQ(boards.Connection(0), "emulated://");

    EXPECT_FALSE(SaveBoardConnection(t.s, 0, "serial:///dev/ttyUSB0"));
    EXPECT_EQ(t.messages.Prompts().size(), 1u);
    EXPECT_EQ(ConfigurationBoardConnectionLoad(t.s, 0), "emulated://");
    EXPECT_EQ(boards.Connection(0), "emulated://");

    EXPECT_TRUE(SaveBoardConnection(t.s, 0, ""));
    EXPECT_EQ(ConfigurationBoardConnectionLoad(t.s, 0), "");
    EXPECT_EQ(boards.Connection(0), "");
    EXPECT_EQ(t.messages.Prompts().size(), 1u);
}

}  // namespace
}  // namespace vantrellion

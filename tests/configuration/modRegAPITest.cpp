#include <gtest/gtest.h>

#include <fstream>

#include "configuration/modRegAPI.h"
#include "core/FatalError.h"
#include "support/Fakes.h"
#include "support/TempStore.h"

namespace vantrellion {
namespace {

using test::TempStore;
using test::TestSystem;

constexpr const char* kKey = "SOFTWARE\\Vantrellion\\Config";
constexpr const char* kKeyWrite = "\\SOFTWARE\\Vantrellion\\Config\\";

class RegApi : public ::testing::Test {
  protected:
    TestSystem t;
    TempStore temp{t.s};
    System& s = t.s;
    std::vector<std::string> Prompts() const { return t.messages.Prompts(); }
    void ExpectLayerBoxes() const {
        for (const auto& box : t.messages.shown) {
            EXPECT_EQ(box.ButtonSet, Buttons::OK);
            EXPECT_EQ(box.BoxIcon, Icon::None);
            EXPECT_EQ(box.Title, "Vantrellion");
        }
    }
};

TEST_F(RegApi, NumbersAreStoredAsRounded32BitValues) {
    const std::pair<const char*, const char*> cases[] = {
        {"5", " 5"},
        {"-12", "-12"},
        {"2.5", " 2"},
        {"0", " 0"},
        {"0.5", " 0"},
        {"-0.5", " 0"},
        {"3.5", " 4"},
        {"&HFF&", " 255"},
        {"-2147483648", "-2147483648"},
        {"2147483647", " 2147483647"},
    };
    for (const auto& [in, out] : cases) {
        RegWriteValue(s, HKEY_LOCAL_MACHINE, kKeyWrite, "Number", "N", in);
        EXPECT_EQ(RegReadWithSentinels(s, HKEY_LOCAL_MACHINE, kKey, "N"), out) << in;
    }
    EXPECT_TRUE(t.messages.shown.empty());
    // The layer has no handler there: the conversion's fault reaches the caller.
    try {
        RegWriteValue(s, HKEY_LOCAL_MACHINE, kKeyWrite, "Number", "N", "five");
        ADD_FAILURE() << "no fault";
    } catch (const FatalError& e) {
        EXPECT_EQ(e.Number(), 13);
    }
    EXPECT_THROW(RegWriteValue(s, HKEY_LOCAL_MACHINE, kKeyWrite, "Number", "N", "2147483648"),
                 FatalError);
    EXPECT_EQ(RegReadWithSentinels(s, HKEY_LOCAL_MACHINE, kKey, "N"), " 2147483647");
}

TEST_F(RegApi, DeletesTellWhatCouldNotBeDone) {
    RegWriteValue(s, HKEY_LOCAL_MACHINE, kKeyWrite, "String", "A", "1");
    RegWriteValue(s, HKEY_LOCAL_MACHINE, kKeyWrite, "String", "B", "2");
    RegDeleteValue(s, HKEY_LOCAL_MACHINE, kKeyWrite, "A");         // done
    RegDeleteValue(s, HKEY_LOCAL_MACHINE, kKey, "A");              // the value has gone
    RegDeleteValue(s, HKEY_LOCAL_MACHINE, "SOFTWARE\\None", "A");  // no such key
    RegDeleteKey(s, HKEY_LOCAL_MACHINE, kKey);                     // done, with its values
    RegDeleteKey(s, HKEY_LOCAL_MACHINE, kKey);        // the delete still runs after the failed open
    RegDeleteKey(s, HKEY_LOCAL_MACHINE, "SOFTWARE");  // a key with subkeys is not deleted
    EXPECT_EQ(Prompts(),
              (std::vector<std::string>{"Could not delete key value", "Could not open key",
                                        "Could not open key", "Could not delete key",
                                        "Could not delete key"}));
    ExpectLayerBoxes();
    EXPECT_EQ(RegReadWithSentinels(s, HKEY_LOCAL_MACHINE, kKey, "B"), "REGKEYNOTFOUND");
    EXPECT_EQ(temp.store().KeyExists(HKEY_LOCAL_MACHINE, "SOFTWARE\\Vantrellion"), StoreStatus::Ok);
}

}  // namespace
}  // namespace vantrellion

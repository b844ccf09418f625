#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <string>

#include "boardio/LibraryPorts.h"
#include "boardio/PortAccess.h"
#include "support/Fakes.h"
#include "support/TempDir.h"

namespace vantrellion {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
namespace fs = std::filesystem;

// Makes the test library leave an error number behind after every call, like a library whose
// port space is not available. The handle stays open, so that the library keeps its state.
void SetFakeLibraryError(int error) {
    static void* const handle = ::dlopen(FAKE_PORT_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(handle, nullptr) << ::dlerror();
    auto set = reinterpret_cast<void (*)(int)>(::dlsym(handle, "FakePortLibrarySetError"));
    ASSERT_NE(set, nullptr);
    set(error);
}

struct LoaderTest : ::testing::Test {
    test::TempDir dir;
    test::FakeMessages messages;
    Flag runNoBoards = False;
};

TEST_F(LoaderTest, TheRelayOperationsReachTheLibraryAndNothingIsSaid) {
    test::TestSystem t;
    LibraryPorts ports(FAKE_PORT_LIBRARY, t.messages, t.mod().RunNoBoards);
    t.s.platform.ports = &ports;
    EXPECT_EQ(ports.Out8255(-2, 0xC3), 0xC3);  // the upper half of the port space
    EXPECT_EQ(ports.In8255(-2), 0xC3);
    t.mod().Board[0].BaseAddress = 0x2B0;
    ports.Out8255(0x2B0, 0);
    SetRelayOn(t.s, 0, 2);
    SetRelayOn(t.s, 0, 7);
    SetRelayOff(t.s, 0, 2);
    EXPECT_EQ(ReadRelayPorts(t.s)[0], 0x80);
    EXPECT_FALSE(ports.Unavailable());
    EXPECT_THAT(t.messages.shown, IsEmpty());
}

// A library that is missing, damaged or without the port functions. Nothing is loaded before
// the first access, and nothing is said while the program runs without boards; then the user
// is told once, and every port reads 0 and takes no write.
TEST_F(LoaderTest, AnUnusableLibraryIsToldOnceWhenTheBoardsAreTurnedOn) {
    const std::string missing = dir.File("missing/libVantrellion.so");
    const std::string damaged = dir.File("libVantrellion.so");
    dir.Write("libVantrellion.so", "this is not a shared library\n");
    const struct {
        std::string path;
        std::vector<std::string> says;
    } cases[] = {
        {missing,
         {"libVantrellion.so was not found", missing, "in the folder " + dir.File("missing"),
          "every port reads 0 and writes are dropped"}},
        {damaged, {"could not be loaded", damaged}},
        {"libc.so.6", {"does not have the functions In8255 and Out8255"}},
    };
    for (const auto& c : cases) {
        test::FakeMessages box;
        runNoBoards = True;
        LibraryPorts ports(c.path, box, runNoBoards);
        ports.Out8255(0x300, 0);  // the final write at exit goes out in emulation too
        ports.In8255(0x300);
        EXPECT_THAT(box.shown, IsEmpty()) << c.path;

        runNoBoards = False;
        for (int n = 0; n < 2; ++n) {
            EXPECT_EQ(ports.Out8255(0x300, 0xFF), 0);
            EXPECT_EQ(ports.In8255(0x300), 0);
        }
        EXPECT_TRUE(ports.Unavailable());
        ASSERT_EQ(box.shown.size(), 1u) << c.path;
        for (const std::string& text : c.says)
            EXPECT_THAT(box.shown[0].Prompt, HasSubstr(text));
        EXPECT_EQ(box.shown[0].ButtonSet, Buttons::OK);
        EXPECT_EQ(box.shown[0].Title, "Vantrellion");
    }
}

// What the library leaves in errno after a call selects the cause and cure of the message.
TEST_F(LoaderTest, ErrorNumbersLeftByTheLibraryNameCauseAndCure) {
    const std::string exe = ExecutablePath();
    const struct {
        int error;
        std::vector<std::string> says;
    } cases[] = {
        {EPERM,
         {"Operation not permitted", "as root", "setcap cap_sys_rawio+ep " + exe, "Secure Boot"}},
        {EACCES, {"Permission denied", "as root", "cap_sys_rawio,cap_dac_override+ep " + exe}},
        {ENOENT, {"this kernel has no /dev/port"}},
        {EIO, {"Input/output error", "(error 5)", FAKE_PORT_LIBRARY}},
    };
    for (const auto& c : cases) {
        test::FakeMessages box;
        LibraryPorts ports(FAKE_PORT_LIBRARY, box, runNoBoards);
        ports.Out8255(0x2C0, 0x11);
        SetFakeLibraryError(c.error);
        EXPECT_EQ(ports.In8255(0x2C0), 0) << c.error;
        ports.Out8255(0x2C0, 0x22);
        SetFakeLibraryError(0);
        EXPECT_EQ(ports.In8255(0x2C0), 0x11) << c.error;  // the dropped write did not land
        ASSERT_EQ(box.shown.size(), 1u) << c.error;
        for (const std::string& text : c.says)
            EXPECT_THAT(box.shown[0].Prompt, HasSubstr(text)) << c.error;
    }
}

TEST_F(LoaderTest, TheInstalledLibraryOnThisMachine) {
    if (fs::exists("/dev/port")) GTEST_SKIP() << "this machine has /dev/port: left untouched";
    LibraryPorts ports(REAL_PORT_LIBRARY, messages, runNoBoards);
    runNoBoards = True;
    EXPECT_EQ(ports.In8255(0x80), 0);
    EXPECT_THAT(messages.shown, IsEmpty());
    runNoBoards = False;
    EXPECT_EQ(ports.Out8255(0x80, 0x12), 0);
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_THAT(messages.shown[0].Prompt, HasSubstr("this kernel has no /dev/port"));
    EXPECT_THAT(messages.shown[0].Prompt, Not(HasSubstr("setcap")));
}

TEST(PortLibraryPath, StandsBesideTheProgram) {
    const std::string exe = ExecutablePath();
    ASSERT_FALSE(exe.empty());
    EXPECT_EQ(ExecutableDirectory(), fs::path(exe).parent_path().string());
    EXPECT_EQ(DefaultPortLibraryPath(), ExecutableDirectory() + "/libVantrellion.so");
    // The build puts the test programs and the port library in one folder, as installed.
    EXPECT_EQ(fs::canonical(DefaultPortLibraryPath()), fs::canonical(REAL_PORT_LIBRARY));
}

}  // namespace
}  // namespace vantrellion

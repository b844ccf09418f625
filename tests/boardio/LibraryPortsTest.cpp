#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "boardio/LibraryPorts.h"
#include "boardio/PortAccess.h"
#include "support/Fakes.h"

namespace vantrellion {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
namespace fs = std::filesystem;

// A fresh directory under /tmp, removed at the end of the test.
class TempDir {
  public:
    TempDir() {
        char tmpl[] = "/tmp/vantrellion-ports-XXXXXX";
        const char* made = ::mkdtemp(tmpl);
        if (made != nullptr) path_ = made;
    }
    ~TempDir() {
        std::error_code ec;
        if (!path_.empty()) fs::remove_all(path_, ec);
    }
    const std::string& path() const { return path_; }

  private:
    std::string path_;
};

// Makes the test library leave an error number behind after every call, like a library whose
// port space is not available. The handle keeps the library, and so its state, loaded.
class FakeLibraryError {
  public:
    FakeLibraryError() {
        handle_ = ::dlopen(FAKE_PORT_LIBRARY, RTLD_NOW | RTLD_LOCAL);
        if (handle_ != nullptr)
            set_ = reinterpret_cast<void (*)(int)>(::dlsym(handle_, "FakePortLibrarySetError"));
    }
    ~FakeLibraryError() {
        if (set_ != nullptr) set_(0);
        if (handle_ != nullptr) ::dlclose(handle_);
    }
    bool ok() const { return set_ != nullptr; }
    void Set(int error) { set_(error); }

  private:
    void* handle_ = nullptr;
    void (*set_)(int) = nullptr;
};

struct LoaderTest : ::testing::Test {
    test::FakeMessages messages;
    Flag runNoBoards = False;
};

TEST_F(LoaderTest, FakeLibraryRoundTripSaysNothing) {
    LibraryPorts ports(FAKE_PORT_LIBRARY, messages, runNoBoards);
    EXPECT_EQ(ports.Out8255(0x2A0, 0x5A), 0x5A);
    EXPECT_EQ(ports.In8255(0x2A0), 0x5A);
    EXPECT_EQ(ports.Out8255(-2, 0xC3), 0xC3);  // the upper half of the port space
    EXPECT_EQ(ports.In8255(-2), 0xC3);
    EXPECT_FALSE(ports.Unavailable());
    EXPECT_THAT(messages.shown, IsEmpty());
}

TEST_F(LoaderTest, TheRelayOperationsReachTheLibrary) {
    test::TestSystem t;
    LibraryPorts ports(FAKE_PORT_LIBRARY, t.messages, t.mod().RunNoBoards);
    t.s.platform.ports = &ports;
    t.mod().Board[0].BaseAddress = 0x2B0;
    ports.Out8255(0x2B0, 0);
    SetRelayOn(t.s, 0, 2);
    SetRelayOn(t.s, 0, 7);
    SetRelayOff(t.s, 0, 2);
    EXPECT_EQ(ReadRelayPorts(t.s)[0], 0x80);
    EXPECT_THAT(t.messages.shown, IsEmpty());
}

TEST_F(LoaderTest, MissingLibraryIsToldOnceAndThePortsGoQuiet) {
    TempDir dir;
    ASSERT_FALSE(dir.path().empty());
    const std::string path = dir.path() + "/libVantrellion.so";
    LibraryPorts ports(path, messages, runNoBoards);
    EXPECT_THAT(messages.shown, IsEmpty());  // nothing is loaded before the first access

    EXPECT_EQ(ports.In8255(0x300), 0);
    ASSERT_EQ(messages.shown.size(), 1u);
    const MessageBoxRequest& box = messages.shown[0];
    EXPECT_THAT(box.Prompt, HasSubstr("libVantrellion.so was not found"));
    EXPECT_THAT(box.Prompt, HasSubstr(path));
    EXPECT_THAT(box.Prompt, HasSubstr("in the folder " + dir.path()));
    EXPECT_THAT(box.Prompt, HasSubstr("every port reads 0 and writes are dropped"));
    EXPECT_EQ(box.ButtonSet, Buttons::OK);
    EXPECT_EQ(box.Title, "Vantrellion");

    EXPECT_EQ(ports.Out8255(0x300, 0xFF), 0);
    EXPECT_EQ(ports.In8255(0x300), 0);
    EXPECT_EQ(messages.shown.size(), 1u);
    EXPECT_TRUE(ports.Unavailable());
}

TEST_F(LoaderTest, EmulationSaysNothingUntilTheBoardsAreTurnedOn) {
    TempDir dir;
    runNoBoards = True;
    LibraryPorts ports(dir.path() + "/libVantrellion.so", messages, runNoBoards);
    ports.Out8255(0x300, 0);  // the final write at exit goes out in emulation too
    ports.In8255(0x300);
    EXPECT_THAT(messages.shown, IsEmpty());

    runNoBoards = False;
    ports.In8255(0x300);
    ports.In8255(0x300);
    EXPECT_EQ(messages.shown.size(), 1u);
}

TEST_F(LoaderTest, DamagedLibraryNamesTheFileAndTheLoaderError) {
    TempDir dir;
    const std::string path = dir.path() + "/libVantrellion.so";
    std::ofstream(path) << "this is not a shared library\n";
    LibraryPorts ports(path, messages, runNoBoards);
    EXPECT_EQ(ports.In8255(0x300), 0);
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_THAT(messages.shown[0].Prompt, HasSubstr("could not be loaded"));
    EXPECT_THAT(messages.shown[0].Prompt, HasSubstr(path));
}

TEST_F(LoaderTest, LibraryWithoutThePortFunctions) {
    LibraryPorts ports("libc.so.6", messages, runNoBoards);
    EXPECT_EQ(ports.Out8255(0x300, 1), 0);
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_THAT(messages.shown[0].Prompt,
                HasSubstr("does not have the functions In8255 and Out8255"));
}

// What the library leaves in errno after a call selects the cause and cure of the message.
TEST_F(LoaderTest, ErrorNumbersLeftByTheLibraryNameCauseAndCure) {
    FakeLibraryError fake;
    ASSERT_TRUE(fake.ok());
    struct Case {
        int error;
        std::vector<std::string> says;
    };
    const Case cases[] = {
        {EPERM, {"Operation not permitted", "as root", "setcap cap_sys_rawio+ep ", "Secure Boot"}},
        {EACCES, {"Permission denied", "as root", "setcap cap_sys_rawio,cap_dac_override+ep "}},
        {ENOENT, {"this kernel has no /dev/port"}},
        {EIO, {"Input/output error", "(error 5)", FAKE_PORT_LIBRARY}},
    };
    const std::string exe = ExecutablePath();
    for (const Case& c : cases) {
        test::FakeMessages box;
        LibraryPorts ports(FAKE_PORT_LIBRARY, box, runNoBoards);
        ports.Out8255(0x2C0, 0x11);
        fake.Set(c.error);
        EXPECT_EQ(ports.In8255(0x2C0), 0) << c.error;
        ports.Out8255(0x2C0, 0x22);
        fake.Set(0);
        EXPECT_EQ(ports.In8255(0x2C0), 0x11) << c.error;  // the dropped write did not land
        ASSERT_EQ(box.shown.size(), 1u) << c.error;
        for (const std::string& text : c.says)
            EXPECT_THAT(box.shown[0].Prompt, HasSubstr(text)) << c.error;
        if (c.error == EPERM || c.error == EACCES) {
            EXPECT_THAT(box.shown[0].Prompt, HasSubstr(exe));
        }
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

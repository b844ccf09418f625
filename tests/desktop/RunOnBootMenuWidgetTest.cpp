// The submenu "Run when Computer Boots (Starts)" in the running program, with the autostart
// folders of the session in a temporary directory.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>

#include "configuration/KeyValueStore.h"
#include "configuration/clsConfiguration.h"
#include "desktop/VantrellionApp.h"
#include "support/Fakes.h"
#include "support/SavedConfiguration.h"
#include "support/TempDir.h"

namespace vantrellion::test {
namespace {

class RunOnBootMenuTest : public ::testing::Test {
  protected:
    TempDir dir;
    FakeClock clock;
    SimulatedPorts ports;
    std::unique_ptr<VantrellionApp> app;
    std::optional<std::string> savedDirs, savedHome;
    std::string machine = dir.Path() + "xdg/autostart/";
    std::string user = dir.Path() + "config/autostart/";

    static std::optional<std::string> Get(const char* name) {
        const char* v = std::getenv(name);
        return v ? std::optional<std::string>(v) : std::nullopt;
    }
    static void Put(const char* name, const std::optional<std::string>& v) {
        v ? ::setenv(name, v->c_str(), 1) : ::unsetenv(name);
    }
    void SetUp() override {
        savedDirs = Get("XDG_CONFIG_DIRS");
        savedHome = Get("XDG_CONFIG_HOME");
        Put("XDG_CONFIG_DIRS", dir.Path() + "xdg:/etc/xdg");
        Put("XDG_CONFIG_HOME", dir.Path() + "config");
        SaveTestConfiguration(dir, True, False);
    }
    void TearDown() override {
        Stop();
        Put("XDG_CONFIG_DIRS", savedDirs);
        Put("XDG_CONFIG_HOME", savedHome);
    }
    void Start() {
        app = std::make_unique<VantrellionApp>(
            VantrellionApp::Options{dir.Path(), &clock, &ports, nullptr, nullptr, {}});
        ASSERT_TRUE(app->Main());
    }
    void Stop() {
        if (app && app->MainWindow()) app->MainWindow()->Unload = nullptr;
        app.reset();
    }
    // The check marks of Next Time, Always and Never, as "-X-".
    std::string Marks() const {
        std::string marks;
        for (const char* name :
             {"mnuToolRunOnBootOnce", "mnuToolRunOnBootAlways", "mnuToolRunOnBootNever"})
            marks += app->MainWindow()->Menu(name)->isChecked() ? "X" : "-";
        return marks;
    }
    bool Entry(const std::string& folder, const char* list) const {
        return std::filesystem::exists(folder + "VantrellionRunMe-" + list + ".desktop");
    }
};

TEST_F(RunOnBootMenuTest, CommandsMarkTheirChoiceAndTheMarksAreNotRestored) {
    std::filesystem::create_directories(user);
    std::ofstream(user + "VantrellionRunMe-Run.desktop") << "[Desktop Entry]\nExec=x\n";
    Start();
    frmRelay& w = *app->MainWindow();
    QMenu* submenu = w.SubMenu("mnuToolRunOnBoot");
    ASSERT_NE(submenu, nullptr);
    QStringList captions;
    for (QAction* a : submenu->actions())
        captions << a->text();
    EXPECT_EQ(captions, QStringList({"Next Time", "Always", "Never"}));
    EXPECT_EQ(Marks(), "---");

    w.Menu("mnuToolRunOnBootAlways")->trigger();
    EXPECT_EQ(Marks(), "-X-");
    EXPECT_TRUE(Entry(machine, "Run"));
    EXPECT_FALSE(Entry(user, "Run"));
    EXPECT_TRUE(app->Timer().IsEnabled());
    const std::string value = TempDir::ReadFile(machine + "VantrellionRunMe-Run.desktop");
    EXPECT_NE(value.find(" k704mq29vbn516 0x00d3e1f4\n"), std::string::npos) << value;

    w.Menu("mnuToolRunOnBootOnce")->trigger();
    EXPECT_EQ(Marks(), "X--");
    EXPECT_FALSE(Entry(machine, "Run"));
    EXPECT_TRUE(Entry(machine, "RunOnce"));

    // A new start shows no mark, though the entry stands.
    Stop();
    Start();
    EXPECT_EQ(Marks(), "---");
    EXPECT_TRUE(Entry(machine, "RunOnce"));
    app->MainWindow()->Menu("mnuToolRunOnBootNever")->trigger();
    EXPECT_EQ(Marks(), "--X");
    EXPECT_FALSE(Entry(machine, "RunOnce"));
}

}  // namespace
}  // namespace vantrellion::test

// The whole program started on a temporary machine directory with a prepared store, for tests
// that click its menus: real windows and message boxes on the offscreen platform, fakes only
// for the clock and the ports.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <functional>
#include <memory>

#include "configuration/KeyValueStore.h"
#include "configuration/clsConfiguration.h"
#include "desktop/VantrellionApp.h"
#include "logging/LogFileName.h"
#include "support/Fakes.h"
#include "support/SavedConfiguration.h"
#include "support/TempDir.h"

namespace vantrellion::test {

class MenuProgramTest : public ::testing::Test {
  protected:
    TempDir dir;
    FakeClock clock;
    SimulatedPorts ports;
    std::unique_ptr<VantrellionApp> app;

    void SetUp() override { clock.now = DateTime{2026, 11, 16, 9, 30, 0, 2}; }
    void TearDown() override { Stop(); }

    // A configuration as the configuration screen saves it: board 1 at 0x300 with inputs at
    // 0x301 and reset at exit, logging into the machine directory.
    void PrepareStore(Flag runNoBoards, Flag logging = True) {
        SaveTestConfiguration(dir, runNoBoards, logging);
    }
    void Start() {
        app = std::make_unique<VantrellionApp>(
            VantrellionApp::Options{dir.Path(), &clock, &ports, nullptr, nullptr, {}});
        ASSERT_TRUE(app->Main());
    }
    // Ends the program the way a crash would, without the close path: the store keeps what
    // was saved, and the next Start reads it.
    void Stop() {
        if (app && app->MainWindow()) app->MainWindow()->Unload = nullptr;
        app.reset();
    }
    frmRelay& Window() { return *app->MainWindow(); }
    System& Sys() { return app->system(); }
    void Trigger(const char* menu, int index = 0) {
        QAction* a = Window().Menu(menu, index);
        ASSERT_NE(a, nullptr) << menu;
        ASSERT_EQ(a->data().toInt(), index) << menu;
        a->trigger();
    }
    std::string LogName() const { return LogFileNameForDate("11/16/2026"); }
};

// Presses OK on every message box that comes up, noting its title and what onBox returns at
// that moment.
class BoxWatcher {
  public:
    struct Seen {
        QString title, text;
        bool noted;
    };
    std::vector<Seen> boxes;

    explicit BoxWatcher(std::function<bool()> onBox) : onBox_(std::move(onBox)) {
        timer_.setInterval(5);
        QObject::connect(&timer_, &QTimer::timeout, [this] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box || !box->isVisible()) return;
            boxes.push_back({box->windowTitle(), box->text(), onBox_()});
            if (QAbstractButton* ok = box->button(QMessageBox::Ok))
                ok->click();
            else
                box->done(QMessageBox::Cancel);
        });
        timer_.start();
    }

  private:
    std::function<bool()> onBox_;
    QTimer timer_;
};

}  // namespace vantrellion::test

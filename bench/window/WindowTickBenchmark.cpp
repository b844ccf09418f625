// Cost of one full tick with the main window rendering it, on Qt's offscreen platform: the
// engine, the row display and the repaint of the window. A plain timed loop over many ticks.
//   QT_QPA_PLATFORM=offscreen build/bin/bench_window_tick
#include <QApplication>
#include <QElapsedTimer>
#include <cstdio>
#include <ctime>

#include "desktop/frmRelay.h"
#include "engine/Tick.h"
#include "mainscreen/RowRefill.h"
#include "support/Fakes.h"

using namespace vantrellion;

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM",
            qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    QApplication app(argc, argv);
    test::TestSystem t;
    frmRelay window(t.s);
    t.s.platform.display = &window;
    t.s.platform.screen = &window;
    static const char* kCodes[] = {"EO", "OD", "EH", "OM", "TH", "MH", "BH", "5"};
    for (int i = 0; i < 8; ++i) {
        t.relay(i).DayHrEvenOdd = kCodes[i];
        for (int p = 0; p < 6; ++p) {
            const int h = 2 + p * 3;
            t.SetPair(i, p, std::to_string(h) + ":00", std::to_string(h + 2) + ":30:00");
        }
    }
    t.frm().CheckTimeAllowed = True;
    ResetRowVisuals(t.s);
    FillRowsFromRecords(t.s);
    window.show();
    QApplication::processEvents();

    constexpr int kTicks = 2000;
    t.clock.SetTime(8, 0, 0);
    QElapsedTimer wall;
    std::clock_t cpu0 = std::clock();
    wall.start();
    for (int n = 0; n < kTicks; ++n) {
        t.clock.Advance(1);
        t.ports.log.clear();
        CheckTimeTick(t.s);
        window.repaint();  // the paint a tick causes, done at once
        QApplication::processEvents();
    }
    const double wallMs = wall.nsecsElapsed() / 1e6 / kTicks;
    const double cpuMs = 1000.0 * (std::clock() - cpu0) / CLOCKS_PER_SEC / kTicks;
    std::printf("window tick: %.3f ms wall, %.3f ms CPU per tick (%d ticks)\n", wallMs, cpuMs,
                kTicks);
    return 0;
}

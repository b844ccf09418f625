// Cost of one resize of the main window on Qt's offscreen platform: the resize event, the
// scaling pass over every control of the rows, and the repaint. Many resizes between two
// sizes; the median is printed.
//   QT_QPA_PLATFORM=offscreen build/bin/bench_window_resize
#include <QApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

#include "core/clsResizeFormCntls.h"
#include "desktop/frmRelay.h"
#include "mainscreen/MainScreenResize.h"
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
    std::vector<double> passMs;
    window.Resized = [&] {
        QElapsedTimer pass;
        pass.start();
        Form_Resize(t.s);
        passMs.push_back(pass.nsecsElapsed() / 1e6);
    };
    t.frm().ResizeFormCntls = std::make_shared<clsResizeFormCntls>();
    t.frm().ResizeFormCntls->SetSourceForm(window.Window());
    t.frm().ResizeFormCntls->ReInitialize();
    t.frm().ResizeReady = True;
    window.show();
    QApplication::processEvents();

    const QSize design = window.size();
    constexpr int kResizes = 400;
    std::vector<double> ms;
    ms.reserve(kResizes);
    for (int n = 0; n < kResizes; ++n) {
        const QSize target = n % 2 ? design : design * 1.5;
        QElapsedTimer timer;
        timer.start();
        window.resize(target);
        QApplication::processEvents();
        window.repaint();
        ms.push_back(timer.nsecsElapsed() / 1e6);
    }
    std::sort(ms.begin(), ms.end());
    std::sort(passMs.begin(), passMs.end());
    std::printf(
        "main window resize: median %.3f ms, 90th percentile %.3f ms (%d resizes); the "
        "scaling pass over %zu controls alone: median %.3f ms\n",
        ms[ms.size() / 2], ms[ms.size() * 9 / 10], kResizes,
        t.frm().ResizeFormCntls->ControlList.size(), passMs[passMs.size() / 2]);
    return 0;
}

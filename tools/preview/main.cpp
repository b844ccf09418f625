// vantrellion-preview: what the relays of a Run File will do over the next days, worked out
// by the program's own engine, as a table of on-times, a CSV of switch times and a picture.
#include <QGuiApplication>
#include <iostream>

#include "core/MachineDirectory.h"
#include "desktop/QtPlatform.h"
#include "desktop/TimelinePainter.h"
#include "preview/PreviewCommand.h"

namespace {

// Wide enough for a week of hours, one lane of a readable height per relay.
QSize PictureSize(const vantrellion::Timeline& t) {
    return {1400, 64 + 40 * static_cast<int>(t.Lanes.size())};
}

}  // namespace

int main(int argc, char** argv) {
    using namespace vantrellion;
    // Pictures are drawn off screen: the tool needs no display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Qt's own notes about the environment are no business of the tool's output.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtCriticalMsg || type == QtFatalMsg)
            std::cerr << "vantrellion-preview: " << text.toStdString() << "\n";
    });
    QGuiApplication app(argc, argv);

    std::vector<std::string> args(argv + 1, argv + argc);
    SystemClock clock;
    PreviewEnvironment env;
    env.MachineDirectory = DefaultMachineDirectory();
    env.Now = ToLocalSeconds(clock.Now());
    env.TickNow = clock.MonotonicMs();
    env.WritePng = [](const Timeline& t, const std::string& path) {
        return WriteTimelinePng(t, QString::fromLocal8Bit(path.c_str()), PictureSize(t));
    };
    env.WriteSvg = [](const Timeline& t, const std::string& path) {
        return WriteTimelineSvg(t, QString::fromLocal8Bit(path.c_str()), PictureSize(t));
    };
    return RunPreviewCommand(args, env, std::cout, std::cerr);
}

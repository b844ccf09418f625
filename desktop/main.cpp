// Vantrellion: runs a daily schedule of relays on digital I/O boards, or in emulation.
#include <QApplication>
#include <cstdio>
#include <cstring>

#include "boardio/BoardDriver.h"
#include "core/MachineDirectory.h"
#include "desktop/QtPlatform.h"
#include "desktop/VantrellionApp.h"

int main(int argc, char** argv) {
    // --list-boards: the boards that each driver finds on this machine, and nothing else.
    if (argc == 2 && std::strcmp(argv[1], "--list-boards") == 0) {
        std::fputs(vantrellion::BoardListText().c_str(), stdout);
        return 0;
    }
    // The window's updates at each tick are small (the clock, a few captions and colours):
    // plain image transfers to the X server cost fewer system calls than shared memory with
    // its completion events and the thread hand-over they cause.
    if (qEnvironmentVariableIsEmpty("QT_XCB_NO_MITSHM")) qputenv("QT_XCB_NO_MITSHM", "1");
    QApplication app(argc, argv);
    // A steady text cursor: a blinking one repaints its field twice a second, all day long,
    // which was most of what the idle program cost.
    QApplication::setCursorFlashTime(0);
    QApplication::setApplicationName("Vantrellion");
    QApplication::setQuitOnLastWindowClosed(true);
    vantrellion::VantrellionApp::Options options;
    options.machineDirectory = vantrellion::DefaultMachineDirectory();
    options.documentsDirectory = vantrellion::UserDocumentsDirectory();
    vantrellion::VantrellionApp program(options);
    if (!program.Main()) return 0;
    const int code = QApplication::exec();
    program.AfterExit();
    return code;
}

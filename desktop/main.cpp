// Vantrellion: runs a daily schedule of relays on digital I/O boards, or in emulation.
#include <QApplication>

#include "core/MachineDirectory.h"
#include "desktop/VantrellionApp.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName("Vantrellion");
    QApplication::setQuitOnLastWindowClosed(true);
    vantrellion::VantrellionApp program({vantrellion::DefaultMachineDirectory()});
    if (!program.Main()) return 0;
    return QApplication::exec();
}

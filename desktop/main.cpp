// Vantrellion: runs a daily schedule of relays on digital I/O boards, or in emulation.
#include <QApplication>

#include "core/MachineDirectory.h"
#include "desktop/QtPlatform.h"
#include "desktop/VantrellionApp.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName("Vantrellion");
    QApplication::setQuitOnLastWindowClosed(true);
    vantrellion::VantrellionApp::Options options;
    options.machineDirectory = vantrellion::DefaultMachineDirectory();
    options.documentsDirectory = vantrellion::UserDocumentsDirectory();
    vantrellion::VantrellionApp program(options);
    if (!program.Main()) return 0;
    return QApplication::exec();
}

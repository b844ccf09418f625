// The widget tests run in one QApplication on the offscreen platform, unless the environment
// names another (scripts/check-under-window-manager.sh runs some on a real X server). The
// per-user settings (the recent files list) go to a temporary directory, never to the real home.
#include <gtest/gtest.h>

#include <QApplication>
#include <QSettings>

#include "support/TempDir.h"

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    vantrellion::test::TempDir settings;
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(settings.Path()));
    QApplication app(argc, argv);
    for (auto format : {QSettings::NativeFormat, QSettings::IniFormat})
        QSettings::setPath(format, QSettings::UserScope, QString::fromStdString(settings.Path()));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

// The widget tests run in one QApplication on the offscreen platform, unless the environment
// names another (scripts/check-under-window-manager.sh runs some on a real X server).
#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

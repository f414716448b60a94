// The window layer's tests run in one application object, offscreen unless a platform is named.
#include <gtest/gtest.h>

#include <QApplication>
#include <cstdlib>

#include "base/app_info.h"
#include "shell/session.h"

int main(int argc, char** argv) {
    hlyd::installProgramSession();
    if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QApplication app(argc, argv);
    hlyd::initAppInfo(argv[0]);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

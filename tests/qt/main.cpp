#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
    // Pictures are compared: neither the user's screen nor a scale of its own may take part.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qunsetenv("QT_SCALE_FACTOR");
    ::testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setStyle("Fusion");
    return RUN_ALL_TESTS();
}

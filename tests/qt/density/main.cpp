#include <gtest/gtest.h>

#include <QApplication>

// Qt takes scale and resolution from its environment once: each has a run of its own.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setStyle("Fusion");
    return RUN_ALL_TESTS();
}

#include <gtest/gtest.h>

#include <QApplication>
#include <QStyleFactory>

/// Windows without a screen.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setApplicationDisplayName(QStringLiteral("GRDX"));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    return RUN_ALL_TESTS();
}

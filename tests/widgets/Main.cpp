#include "Look.h"

#include <QApplication>
#include <QLocale>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    for (const char* const look : {"QT_FONT_DPI", "QT_SCALE_FACTOR", "QT_STYLE_OVERRIDE"})
        qunsetenv(look);
    QLocale::setDefault(QLocale::c());
    const QApplication application(argc, argv);
    ko::test::fixLook();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

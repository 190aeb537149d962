#include "host/GuardedApplication.h"

#include <QLocale>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QLocale::setDefault(QLocale::c());
    ko::GuardedApplication application(argc, argv);
    // A box that no test expects would wait for ever.
    application.showsFailures = false;
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

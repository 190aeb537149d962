#include "look/Look.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    ko::test::fixEnvironment();
    const QApplication application(argc, argv);
    ko::test::fixLook();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

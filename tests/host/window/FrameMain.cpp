#include "host/toolkit/GuardedApplication.h"
#include "look/Look.h"

#include <cstdio>
#include <gtest/gtest.h>

namespace {

/// An unhandled failure fails the test, unless the test checks the message boxes.
void handleMessage(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    const auto* application = dynamic_cast<ko::GuardedApplication*>(QCoreApplication::instance());
    if (type == QtCriticalMsg && application && !application->showsFailures)
        ADD_FAILURE() << message.toStdString();
    else
        std::fprintf(stderr, "%s\n", qUtf8Printable(message));
}

} // namespace

int main(int argc, char** argv)
{
    ko::test::fixEnvironment();
    qInstallMessageHandler(handleMessage);
    ko::GuardedApplication application(argc, argv);
    ko::test::fixLook();
    // An unexpected message box would block the tests.
    application.showsFailures = false;
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

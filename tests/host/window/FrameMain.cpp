#include "host/window/GuardedApplication.h"

#include <QLocale>
#include <cstdio>
#include <gtest/gtest.h>

namespace {

/// A failure that is left over fails the test, unless the test looks at the boxes.
void hear(QtMsgType type, const QMessageLogContext&, const QString& message)
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
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QLocale::setDefault(QLocale::c());
    qInstallMessageHandler(hear);
    ko::GuardedApplication application(argc, argv);
    // A box that no test expects would wait for ever.
    application.showsFailures = false;
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

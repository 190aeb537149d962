#include "host/toolkit/ToolkitTexts.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace ko {

bool loadToolkitTexts(const QString& language)
{
    const QString name = QStringLiteral("toolkitTexts");
    auto* application = QCoreApplication::instance();
    delete application->findChild<QTranslator*>(name);
    auto* translator = new QTranslator(application);
    translator->setObjectName(name);
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    return translator->load(QStringLiteral("qtbase_") + language, folder) &&
           QCoreApplication::installTranslator(translator);
}

} // namespace ko

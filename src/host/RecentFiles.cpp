#include "host/RecentFiles.h"

#include <QFileInfo>
#include <QSettings>

namespace ko {

namespace {

const QString key = QStringLiteral("recentFiles");

QString pathOf(const QString& file)
{
    return QFileInfo(file).absoluteFilePath();
}

} // namespace

RecentFiles::RecentFiles(QSettings* settings) : settings_(settings)
{
    if (settings_)
        files_ = settings_->value(key).toStringList().mid(0, most);
}

void RecentFiles::add(const QString& file)
{
    files_.removeAll(pathOf(file));
    files_.prepend(pathOf(file));
    files_ = files_.mid(0, most);
    keep();
}

void RecentFiles::remove(const QString& file)
{
    files_.removeAll(pathOf(file));
    keep();
}

void RecentFiles::clear()
{
    files_.clear();
    keep();
}

void RecentFiles::keep()
{
    if (settings_)
        settings_->setValue(key, files_);
}

} // namespace ko

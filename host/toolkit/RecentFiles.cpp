#include "host/toolkit/RecentFiles.h"

#include <QFileInfo>

namespace ko {

namespace {

QString pathOf(const QString& file)
{
    return QFileInfo(file).absoluteFilePath();
}

} // namespace

QStringList RecentFiles::files() const
{
    return memory_.content().recentFiles;
}

void RecentFiles::change(const std::function<void(FrameMemory::Content&)>& change)
{
    memory_.change(change);
    if (changed)
        changed();
}

void RecentFiles::add(const QString& file)
{
    change([&](FrameMemory::Content& content) {
        content.recentFiles.removeAll(pathOf(file));
        content.recentFiles.prepend(pathOf(file));
        content.recentFiles = content.recentFiles.mid(0, most);
    });
}

void RecentFiles::remove(const QString& file)
{
    change([&](FrameMemory::Content& content) { content.recentFiles.removeAll(pathOf(file)); });
}

void RecentFiles::clear()
{
    change([](FrameMemory::Content& content) { content.recentFiles.clear(); });
}

} // namespace ko

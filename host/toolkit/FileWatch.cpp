#include "host/toolkit/FileWatch.h"

#include "host/toolkit/Later.h"
#include "widgets/support/Convert.h"
#include "widgets/support/Guarded.h"

#include <QFileInfo>

namespace ko {

FileWatch::FileWatch(std::function<void()> changed) : changed_(std::move(changed))
{
    onSignal(&watcher_, &QFileSystemWatcher::fileChanged, this, [this] { look(); });
    onSignal(&watcher_, &QFileSystemWatcher::directoryChanged, this, [this] { look(); });
}

void FileWatch::watch(const std::string& file)
{
    if (const QStringList watched = watcher_.files() + watcher_.directories(); !watched.isEmpty())
        watcher_.removePaths(watched);
    if (file.empty())
        return file_.clear();
    const QFileInfo info(toQt(file));
    file_ = info.absoluteFilePath();
    if (!file.empty() && fromQt(toQt(file)) == file)
        watcher_.addPaths({file_, info.absolutePath()});
}

/// The path is added again, because the watcher may still watch a file that has been replaced. Size and time do not
/// tell that it has: a file system may give the same time to two changes within some milliseconds.
void FileWatch::look()
{
    watcher_.removePath(file_);
    if (QFileInfo::exists(file_))
        watcher_.addPath(file_);
    later(*this, changed_);
}

} // namespace ko

#include "host/toolkit/FileWatch.h"

#include "host/toolkit/Later.h"
#include "widgets/support/Convert.h"
#include "widgets/support/Guarded.h"

#include <QFileInfo>

namespace ko {

FileWatch::FileWatch(std::function<void()> changed) : changed_(std::move(changed))
{
    onSignal(&watcher_, &QFileSystemWatcher::fileChanged, this, [this] { look(true); });
    onSignal(&watcher_, &QFileSystemWatcher::directoryChanged, this, [this] { look(false); });
}

void FileWatch::watch(const std::string& file)
{
    if (const QStringList watched = watcher_.files() + watcher_.directories(); !watched.isEmpty())
        watcher_.removePaths(watched);
    if (file.empty())
        return file_.clear();
    const QFileInfo info(toQt(file));
    file_ = info.absoluteFilePath();
    last_ = stamp();
    if (!file.empty() && fromQt(toQt(file)) == file)
        watcher_.addPaths({file_, info.absolutePath()});
}

FileWatch::Stamp FileWatch::stamp() const
{
    const QFileInfo info(file_);
    return {info.exists(), info.size(), info.lastModified()};
}

/// The path is added again, because the watcher may still watch a file that has been replaced.
void FileWatch::look(bool isCertain)
{
    watcher_.removePath(file_);
    const Stamp now = stamp();
    if (now.exists)
        watcher_.addPath(file_);
    if (isCertain || now != last_)
        later(*this, changed_);
    last_ = now;
}

} // namespace ko

#pragma once

#include <QFileSystemWatcher>
#include <functional>

namespace ko {

/// Calls `changed` after the content of a file may have changed: after a change of the file or of its folder, in which
/// it may have been replaced, or removed and created again. A file whose name is not valid UTF-8 is not watched.
class FileWatch : public QObject {
public:
    explicit FileWatch(std::function<void()> changed);

    /// Watches this file instead of the previous one.
    void watch(const std::string& file);

private:
    void look();

    QFileSystemWatcher watcher_;
    QString file_;
    std::function<void()> changed_;
};

} // namespace ko

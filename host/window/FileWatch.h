#pragma once

#include <QDateTime>
#include <QFileSystemWatcher>
#include <functional>

namespace ko {

/// Calls a function after a file may have got another content, also when it was replaced, or removed and written anew.
/// A file whose name is not UTF-8 is not watched.
class FileWatch : public QObject {
public:
    explicit FileWatch(std::function<void()> changed);

    /// From now on this file in place of any other.
    void watch(const std::string& file);

private:
    struct Stamp {
        bool exists = false;
        qint64 size = 0;
        QDateTime modified;

        bool operator==(const Stamp&) const = default;
    };

    [[nodiscard]] Stamp stamp() const;
    /// Calls the function, unless it is not certain that the file was touched and it looks the same.
    void look(bool isCertain);

    QFileSystemWatcher watcher_;
    QString file_;
    Stamp last_;
    std::function<void()> changed_;
};

} // namespace ko

#pragma once

#include <QDateTime>
#include <QFileSystemWatcher>
#include <functional>

namespace ko {

/// Calls `changed` after the content of a file may have changed, also when the file was replaced, or removed and
/// created again. A file whose name is not valid UTF-8 is not watched.
class FileWatch : public QObject {
public:
    explicit FileWatch(std::function<void()> changed);

    /// Watches this file instead of the previous one.
    void watch(const std::string& file);

private:
    struct Stamp {
        bool exists = false;
        qint64 size = 0;
        QDateTime modified;

        bool operator==(const Stamp&) const = default;
    };

    [[nodiscard]] Stamp stamp() const;
    /// Calls `changed_` if a change is certain or the file's stamp differs.
    void look(bool isCertain);

    QFileSystemWatcher watcher_;
    QString file_;
    Stamp last_;
    std::function<void()> changed_;
};

} // namespace ko

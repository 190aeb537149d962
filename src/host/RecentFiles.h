#pragma once

#include <QStringList>

class QSettings;

namespace ko {

/// The set-up files that were opened or saved last, the latest first, each once and by its absolute path. They are
/// kept in `settings` where there are any.
class RecentFiles {
public:
    static constexpr int most = 8;

    /// `settings` outlives the list; null keeps nothing beyond it.
    explicit RecentFiles(QSettings* settings);

    [[nodiscard]] const QStringList& files() const { return files_; }
    void add(const QString& file);
    void remove(const QString& file);
    void clear();

private:
    void keep();

    QSettings* settings_;
    QStringList files_;
};

} // namespace ko

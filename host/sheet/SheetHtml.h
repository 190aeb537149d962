#pragma once

#include <QString>
#include <QStringList>

namespace ko {

/// Builds a sheet in HTML. All texts are plain and are escaped.
class SheetHtml {
public:
    void heading(int level, const QString& text);
    void paragraph(const QString& style, const QString& text);
    /// Adds a table of names and values. Rows without a value are omitted.
    void values(const QList<QStringList>& rows);
    /// Adds a table whose header is repeated on every page.
    void table(const QStringList& columns, const QList<QStringList>& rows);

    /// Returns the complete document.
    [[nodiscard]] QString document(const QString& language, const QString& title) const;

private:
    void row(const QStringList& cells, const QString& opening, const QString& closing);

    QString body_;
};

} // namespace ko

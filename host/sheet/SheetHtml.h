#pragma once

#include <QString>
#include <QStringList>

namespace ko {

/// The parts of a sheet in HTML. What is put in is plain text.
class SheetHtml {
public:
    void heading(int level, const QString& text);
    void paragraph(const QString& style, const QString& text);
    /// Names at the left, values at the right; rows without a value are left out.
    void values(const QList<QStringList>& rows);
    /// The columns' names stand on every page.
    void table(const QStringList& columns, const QList<QStringList>& rows);

    /// The whole document.
    [[nodiscard]] QString document(const QString& language, const QString& title) const;

private:
    void row(const QStringList& cells, const QString& opening, const QString& closing);

    QString body_;
};

} // namespace ko

#include "host/sheet/SheetHtml.h"

namespace ko {

namespace {

// QTextDocument supports only a part of these properties; the others are for browsers.
constexpr const char* sheetStyle = "body { font-family: sans-serif; font-size: 9pt; }\n"
                                   "h1 { font-size: 16pt; margin-bottom: 4px; }\n"
                                   "h2 { font-size: 12pt; margin-top: 14px; margin-bottom: 4px; }\n"
                                   "h3 { font-size: 10pt; margin-top: 10px; margin-bottom: 3px; }\n"
                                   "h2, h3 { break-after: avoid; }\n"
                                   "table { border-collapse: collapse; }\n"
                                   "td, th { border: 1px solid #999999; text-align: left; font-size: 8pt; }\n"
                                   "th { background-color: #eeeeee; }\n"
                                   "tr { break-inside: avoid; }\n"
                                   "p.plan { font-size: 11pt; }\n";

const QString tableStart = QStringLiteral(
    "<table width=\"100%\" border=\"1\" cellspacing=\"0\" cellpadding=\"3\" style=\"border-collapse: collapse\">\n");

/// Escapes the text, with break opportunities in words that are too long for a column.
QString cellText(const QString& text)
{
    constexpr int longestWord = 24;
    QString breakable;
    int length = 0;
    for (const QChar character : text) {
        length = character.isSpace() ? 0 : length + 1;
        if (length > longestWord && !character.isLowSurrogate()) {
            breakable += QChar(0x200b);
            length = 1;
        }
        breakable += character;
    }
    return breakable.toHtmlEscaped();
}

} // namespace

void SheetHtml::heading(int level, const QString& text)
{
    body_ += QStringLiteral("<h%1>%2</h%1>\n").arg(QString::number(level), text.toHtmlEscaped());
}

void SheetHtml::paragraph(const QString& style, const QString& text)
{
    body_ += QStringLiteral("<p class=\"%1\">%2</p>\n").arg(style, text.toHtmlEscaped());
}

void SheetHtml::values(const QList<QStringList>& rows)
{
    body_ += tableStart;
    for (const QStringList& cells : rows)
        if (!cells[1].isEmpty())
            body_ += QStringLiteral("<tr><th width=\"40%\" scope=\"row\">%1</th><td>%2</td></tr>\n")
                         .arg(cellText(cells[0]), cellText(cells[1]));
    body_ += QStringLiteral("</table>\n");
}

void SheetHtml::table(const QStringList& columns, const QList<QStringList>& rows)
{
    body_ += tableStart + QStringLiteral("<thead>");
    row(columns, QStringLiteral("<th scope=\"col\">"), QStringLiteral("</th>"));
    body_ += QStringLiteral("</thead>\n<tbody>");
    for (const QStringList& cells : rows)
        row(cells, QStringLiteral("<td>"), QStringLiteral("</td>"));
    body_ += QStringLiteral("</tbody></table>\n");
}

void SheetHtml::row(const QStringList& cells, const QString& opening, const QString& closing)
{
    body_ += QStringLiteral("<tr>");
    for (const QString& cell : cells)
        body_ += opening + cellText(cell) + closing;
    body_ += QStringLiteral("</tr>\n");
}

QString SheetHtml::document(const QString& language, const QString& title) const
{
    return QStringLiteral("<!DOCTYPE html>\n<html lang=\"%1\">\n<head><meta charset=\"utf-8\"><title>%2</title>\n"
                          "<style>\n%3</style></head>\n<body>\n")
               .arg(language.toHtmlEscaped(), title.toHtmlEscaped(), QLatin1String(sheetStyle)) +
           body_ + QStringLiteral("</body>\n</html>\n");
}

} // namespace ko

#include "host/sheet/SheetPages.h"

#include "host/sheet/SheetTexts.h"
#include "platform/DateTimes.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>
#include <algorithm>
#include <array>

namespace ko {

namespace {

/// The left margin leaves room for punched holes.
const QMarginsF margins(22.0, 15.0, 15.0, 12.0); // millimetres
constexpr double fontSize = 9.0;
constexpr double footerLines = 2.5;

/// Returns the page on which a block ends.
int lastPageOf(const QTextDocument& document, const QTextBlock& block)
{
    const QRectF bounds = document.documentLayout()->blockBoundingRect(block);
    return static_cast<int>((bounds.bottom() - 1.0) / document.pageSize().height());
}

int firstPageOf(const QTextDocument& document, const QTextBlock& block)
{
    return static_cast<int>(document.documentLayout()->blockBoundingRect(block).top() / document.pageSize().height());
}

/// Returns the last block that must be on the heading's page: the paragraph below it, or the first row of a table.
QTextBlock headedBy(const QTextBlock& heading)
{
    const QTextBlock below = heading.next();
    if (const QTextTable* table = below.isValid() ? QTextCursor(below).currentTable() : nullptr)
        return table->cellAt(std::min(1, table->rows() - 1), table->columns() - 1).lastCursorPosition().block();
    return below;
}

/// Moves a heading to the next page if what follows it is there. Consecutive headings move together. Each move lays out
/// the rest of the document again, so one pass from the top is enough.
void keepHeadings(QTextDocument& document)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 0)
            continue;
        const QTextBlock first = block;
        while (block.next().isValid() && block.next().blockFormat().headingLevel() > 0)
            block = block.next();
        const QTextBlock headed = headedBy(block);
        if (!headed.isValid() || lastPageOf(document, headed) == firstPageOf(document, first))
            continue;
        QTextBlockFormat format = first.blockFormat();
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        QTextCursor(first).setBlockFormat(format);
    }
}

QString footerOf(const SheetSource& source)
{
    QStringList parts{source.texts(sheetText::sheet)};
    for (const std::string& part : {source.title, source.file, generalDate(source.made, source.locale)})
        if (!part.empty())
            parts << toQt(part);
    return parts.join(QStringLiteral("  \u00b7  "));
}

QFont sheetFont()
{
    QFont font(QStringLiteral("sans-serif"));
    font.setPointSizeF(fontSize);
    return font;
}

} // namespace

QPageSize::PageSizeId paperOf(const QLocale& locale)
{
    constexpr std::array letter{QLocale::UnitedStates, QLocale::Canada,    QLocale::Mexico,    QLocale::Belize,
                                QLocale::Chile,        QLocale::Colombia,  QLocale::CostaRica, QLocale::ElSalvador,
                                QLocale::Guatemala,    QLocale::Nicaragua, QLocale::Panama,    QLocale::Philippines,
                                QLocale::PuertoRico,   QLocale::Venezuela};
    const bool isLetter = std::find(letter.begin(), letter.end(), locale.territory()) != letter.end();
    return isLetter ? QPageSize::Letter : QPageSize::A4;
}

SheetPages::SheetPages(const SheetSource& source, QPaintDevice& device, const QSizeF& size)
    : size_(size), footer_(footerOf(source)), number_(source.texts(sheetText::pageOf))
{
    const double footer = QFontMetricsF(footerFont(), &device).height() * footerLines;
    document_.documentLayout()->setPaintDevice(&device);
    document_.setDocumentMargin(0.0);
    document_.setDefaultFont(sheetFont());
    document_.setDefaultTextOption(QTextOption());
    document_.setHtml(setupSheet(source));
    document_.setPageSize({size.width(), size.height() - footer});
    keepHeadings(document_);
}

QFont SheetPages::footerFont() const
{
    QFont font = sheetFont();
    font.setPointSizeF(fontSize - 1.0);
    return font;
}

void SheetPages::paint(QPainter& painter, int page) const
{
    const QSizeF room = document_.pageSize();
    const QRectF shown(QPointF(0.0, page * room.height()), room);
    painter.save();
    painter.translate(-shown.topLeft());
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = shown;
    context.palette.setColor(QPalette::Text, Qt::black);
    painter.setClipRect(shown);
    document_.documentLayout()->draw(&painter, context);
    painter.restore();
    painter.setFont(footerFont());
    painter.setPen(Qt::black);
    painter.drawText(QRectF(QPointF(), size_), Qt::AlignLeft | Qt::AlignBottom, footer_);
    const QString number = number_.arg(QString::number(page + 1), QString::number(count()));
    painter.drawText(QRectF(QPointF(), size_), Qt::AlignRight | Qt::AlignBottom, number);
}

bool printSheet(const SheetSource& source, QPagedPaintDevice& device)
{
    device.setPageMargins(margins, QPageLayout::Millimeter);
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    const SheetPages pages(source, device, QSizeF(device.width(), device.height()));
    for (int i = 0; i < pages.count(); ++i) {
        if (i > 0)
            device.newPage();
        pages.paint(painter, i);
    }
    return painter.end();
}

QByteArray sheetPdf(const SheetSource& source, QPageSize::PageSizeId paper)
{
    QBuffer content;
    content.open(QIODevice::WriteOnly);
    QPdfWriter writer(&content);
    writer.setPageSize(QPageSize(paper));
    writer.setTitle(source.texts(sheetText::namedValue).arg(source.texts(sheetText::sheet), toQt(source.title)));
    printSheet(source, writer);
    return content.data();
}

} // namespace ko

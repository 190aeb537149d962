#include "host/sheet/SheetPages.h"

#include "host/sheet/SheetTexts.h"
#include "platform/DateTimes.h"
#include "widgets/support/ShownText.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>
#include <QScreen>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace ko {

namespace {

/// The left margin leaves room for punched holes.
const QMarginsF margins(22.0, 15.0, 15.0, 12.0); // millimetres
constexpr double fontSize = 9.0;
constexpr double footerLines = 2.5;

/// The top and the bottom of a part of the document.
struct Extent {
    double top;
    double bottom;
};

Extent extentOf(const QTextDocument& document, const QTextBlock& block)
{
    const QRectF bounds = document.documentLayout()->blockBoundingRect(block);
    return {bounds.top(), bounds.bottom()};
}

Extent extentOf(const QTextDocument& document, const QTextTable& table, int row)
{
    Extent extent = extentOf(document, table.cellAt(row, 0).firstCursorPosition().block());
    for (int column = 0; column < table.columns(); ++column) {
        const QTextTableCell cell = table.cellAt(row, column);
        extent.top = std::min(extent.top, extentOf(document, cell.firstCursorPosition().block()).top);
        extent.bottom = std::max(extent.bottom, extentOf(document, cell.lastCursorPosition().block()).bottom);
    }
    return extent;
}

bool isOnOnePage(const QTextDocument& document, const Extent& extent)
{
    const double page = document.pageSize().height();
    return std::floor(extent.top / page) == std::floor((extent.bottom - 1.0) / page);
}

/// Returns the bottom of what must be on a heading's page: the paragraph below it, or the first row of a table.
double headedBottom(const QTextDocument& document, const QTextBlock& below)
{
    const QTextTable* table = QTextCursor(below).currentTable();
    return table ? extentOf(document, *table, std::min(1, table->rows() - 1)).bottom : extentOf(document, below).bottom;
}

/// Moves consecutive headings to the next page if what follows them is there. Returns the last of them.
QTextBlock keepHeadings(QTextDocument& document, const QTextBlock& first)
{
    QTextBlock last = first;
    while (last.next().isValid() && last.next().blockFormat().headingLevel() > 0)
        last = last.next();
    const QTextBlock below = last.next();
    if (below.isValid() && !isOnOnePage(document, {extentOf(document, first).top, headedBottom(document, below)})) {
        QTextBlockFormat format = first.blockFormat();
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        QTextCursor(first).setBlockFormat(format);
    }
    return last;
}

/// Enlarges a row so that less than a line of space is left after it on its page, which moves the next row.
void fillPage(QTextDocument& document, QTextTable& table, int row, double space)
{
    // The layout scales a padding from the screen to the paint device.
    const double scale = document.documentLayout()->paintDevice()->logicalDpiY() /
                         QGuiApplication::primaryScreen()->logicalDotsPerInchY();
    for (int column = 0; column < table.columns(); ++column) {
        QTextTableCell cell = table.cellAt(row, column);
        QTextTableCellFormat format = cell.format().toTableCellFormat();
        format.setBottomPadding(space / scale);
        cell.setFormat(format);
    }
}

/// Moves rows that a page's end would cut to the next page. The first rows stay with their heading.
void keepRows(QTextDocument& document, QTextTable& table)
{
    const double page = document.pageSize().height();
    for (int row = 2; row < table.rows(); ++row) {
        const Extent extent = extentOf(document, table, row);
        if (isOnOnePage(document, extent) || extent.bottom - extent.top > page / 2)
            continue;
        const QTextBlock block = table.cellAt(row, 0).firstCursorPosition().block();
        const double line = block.layout()->lineAt(0).height();
        const double space = (std::floor(extent.top / page) + 1.0) * page - extent.top;
        fillPage(document, table, row - 1, std::max(0.0, space - line / 2));
    }
}

/// Keeps headings with what follows them, and rows whole. Each change lays out the rest of the document again, so one
/// pass from the top is enough.
void keepTogether(QTextDocument& document)
{
    const QTextTable* kept = nullptr;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() > 0)
            block = keepHeadings(document, block);
        QTextTable* const table = QTextCursor(block).currentTable();
        if (table && table != std::exchange(kept, table))
            keepRows(document, *table);
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
    keepTogether(document_);
}

QFont SheetPages::footerFont() const
{
    QFont font = sheetFont();
    font.setPointSizeF(fontSize - 1.0);
    return font;
}

void SheetPages::paint(QPainter& painter, const std::function<void()>& nextPage) const
{
    for (int page = 0; page < count(); ++page) {
        if (page > 0)
            nextPage();
        paint(painter, page);
    }
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
    pages.paint(painter, [&device] { device.newPage(); });
    return painter.end();
}

QByteArray sheetPdf(const SheetSource& source, QPageSize::PageSizeId paper)
{
    QBuffer content;
    content.open(QIODevice::WriteOnly);
    QPdfWriter writer(&content);
    writer.setPageSize(QPageSize(paper));
    writer.setTitle(source.texts(sheetText::namedValue).arg(source.texts(sheetText::sheet), toLine(source.title)));
    printSheet(source, writer);
    return content.data();
}

} // namespace ko

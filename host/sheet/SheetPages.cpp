#include "host/sheet/SheetPages.h"

#include "host/sheet/SheetTexts.h"
#include "platform/DateTimes.h"
#include "widgets/support/ShownText.h"

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
constexpr double textSize = 9.0;
constexpr double footerLines = 2.5;

SheetPages::Extent extentOf(const QTextDocument& document, const QTextBlock& block)
{
    const QRectF bounds = document.documentLayout()->blockBoundingRect(block);
    return {bounds.top(), bounds.bottom()};
}

/// Returns where the text of a row is, without the padding of its cells.
SheetPages::Extent extentOf(const QTextDocument& document, const QTextTable& table, int row)
{
    SheetPages::Extent extent = extentOf(document, table.cellAt(row, 0).firstCursorPosition().block());
    for (int column = 0; column < table.columns(); ++column) {
        const QTextTableCell cell = table.cellAt(row, column);
        extent.top = std::min(extent.top, extentOf(document, cell.firstCursorPosition().block()).top);
        extent.bottom = std::max(extent.bottom, extentOf(document, cell.lastCursorPosition().block()).bottom);
    }
    return extent;
}

/// A heading, a paragraph or a row of a table.
struct Part {
    SheetPages::Extent extent;
    SheetPages::Extent header{}; ///< of the table; empty for its first row and outside tables
    bool isKeptWithNext = false;
    QTextBlock first{}, last{};
};

/// Adds the rows of a table. They meet halfway between their texts.
void addRows(std::vector<Part>& parts, const QTextDocument& document, QTextTable& table)
{
    const QRectF whole = document.documentLayout()->frameBoundingRect(&table);
    const std::size_t first = parts.size();
    double textBottom = 0.0;
    for (int row = 0; row < table.rows(); ++row) {
        const SheetPages::Extent text = extentOf(document, table, row);
        Part part{{whole.top(), whole.bottom()}};
        if (row > 0) {
            part.extent.top = parts.back().extent.bottom = (textBottom + text.top) / 2;
            if (table.format().headerRowCount() > 0)
                part.header = parts[first].extent;
        }
        textBottom = text.bottom;
        part.isKeptWithNext = row == 0;
        part.first = table.cellAt(row, 0).firstCursorPosition().block();
        part.last = table.cellAt(row, table.columns() - 1).lastCursorPosition().block();
        parts.push_back(part);
    }
}

std::vector<Part> partsOf(const QTextDocument& document)
{
    std::vector<Part> parts;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (QTextTable* const table = QTextCursor(block).currentTable()) {
            addRows(parts, document, *table);
            block = document.findBlock(table->lastPosition());
        } else if (!block.text().isEmpty()) {
            parts.push_back({extentOf(document, block), {}, block.blockFormat().headingLevel() > 0, block, block});
        }
    }
    return parts;
}

/// Returns where to cut a part so that no line of its text is cut, at `limit` or above.
double betweenLines(const QTextDocument& document, const Part& part, double limit)
{
    double cut = limit;
    for (QTextBlock block = part.first; block.isValid() && block.position() <= part.last.position();
         block = block.next()) {
        const double top = extentOf(document, block).top;
        for (int i = 0; i < block.layout()->lineCount(); ++i) {
            const QRectF line = block.layout()->lineAt(i).rect();
            if (top + line.top() < limit && limit < top + line.bottom())
                cut = std::min(cut, top + line.top());
        }
    }
    return cut;
}

/// Distributes the parts, which are laid out one below the other, to pages of this height.
std::vector<SheetPages::Page> pagesOf(const QTextDocument& document, double height)
{
    const std::vector<Part> parts = partsOf(document);
    std::vector<SheetPages::Page> pages{{{0.0, 0.0}, {}}};
    const auto end = [&] { return pages.back().shown.top + height - pages.back().header.height(); };
    const auto begin = [&](double top, const SheetPages::Extent& header) {
        pages.push_back({{top, top}, header.height() < height / 2 ? header : SheetPages::Extent{}});
    };
    for (std::size_t first = 0, last = 0; first < parts.size(); first = last + 1) {
        for (last = first; parts[last].isKeptWithNext && last + 1 < parts.size();)
            ++last;
        const SheetPages::Extent kept{parts[first].extent.top, parts[last].extent.bottom};
        const bool isWhole = first < last || kept.height() <= height / 2;
        if (isWhole && kept.bottom > end() && kept.top > pages.back().shown.top)
            begin(kept.top, parts[first].header);
        for (; kept.bottom > end(); begin(pages.back().shown.bottom, parts[last].header)) {
            const double cut = betweenLines(document, parts[last], end());
            pages.back().shown.bottom = cut > pages.back().shown.top ? cut : end();
        }
        pages.back().shown.bottom = kept.bottom;
    }
    return pages;
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
    font.setPointSizeF(textSize);
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
    : size_(size), footer_(footerOf(source)), number_(source.texts(sheetText::pageOf)),
      border_(device.logicalDpiY() / 96.0)
{
    const double footer = QFontMetricsF(footerFont(), &device).height() * footerLines;
    document_.documentLayout()->setPaintDevice(&device);
    document_.setDocumentMargin(0.0);
    document_.setDefaultFont(sheetFont());
    document_.setDefaultTextOption(QTextOption());
    document_.setHtml(setupSheet(source));
    document_.setTextWidth(size.width());
    pages_ = pagesOf(document_, std::max(size.height() - footer, footer));
}

QFont SheetPages::footerFont() const
{
    QFont font = sheetFont();
    font.setPointSizeF(textSize - 1.0);
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
    const Page& parts = pages_[static_cast<std::size_t>(page)];
    paint(painter, parts.header, 0.0);
    paint(painter, parts.shown, parts.header.height());
    painter.setFont(footerFont());
    painter.setPen(Qt::black);
    painter.drawText(QRectF(QPointF(), size_), Qt::AlignLeft | Qt::AlignBottom, footer_);
    const QString number = number_.arg(QString::number(page + 1), QString::number(count()));
    painter.drawText(QRectF(QPointF(), size_), Qt::AlignRight | Qt::AlignBottom, number);
}

void SheetPages::paint(QPainter& painter, const Extent& part, double top) const
{
    if (part.height() <= 0.0)
        return;
    painter.save();
    painter.translate(0.0, top - part.top);
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = QRectF(0.0, part.top, size_.width(), part.height());
    context.palette.setColor(QPalette::Text, Qt::black);
    // A border is painted on both sides of an edge.
    painter.setClipRect(context.clip.adjusted(0.0, -border_, 0.0, border_));
    document_.documentLayout()->draw(&painter, context);
    painter.restore();
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

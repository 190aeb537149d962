#include "host/chart/ChartPainter.h"

#include "widgets/support/ShownText.h"

#include <QIcon>
#include <QStyle>
#include <cmath>

namespace ko {

namespace {

/// How different the luminances of two colours are, from 1 to 21.
double contrast(const QColor& one, const QColor& other)
{
    const auto luminance = [](const QColor& color) {
        const auto linear = [](double part) {
            return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
    };
    const double a = luminance(one);
    const double b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QColor readable(const QColor& wanted, const QPalette& palette)
{
    constexpr double enough = 3.0; // for graphics
    return contrast(wanted, palette.color(QPalette::Base)) >= enough ? wanted : palette.color(QPalette::Text);
}

} // namespace

ChartLayout::ChartLayout(const QWidget& widget, std::size_t rowCount)
    : width(widget.width()), height(widget.height()), line(QFontMetricsF(widget.font()).height())
{
    const double letter = QFontMetricsF(widget.font()).averageCharWidth();
    gutter = std::min(26.0 * letter, width / 3.0);
    numbers = 8.0 * letter;
    const double leastHeight = 4.4 * line;
    rowHeight = std::max(leastHeight, rows().height() / std::max<double>(static_cast<double>(rowCount), 1.0));
}

ChartPainter::ChartPainter(QPainter& painter, const QWidget& widget, const ChartLayout& layout, const ChartTexts& texts)
    : painter_(painter), widget_(widget), layout_(layout), texts_(texts), palette_(widget.palette())
{
}

void ChartPainter::text(const QRectF& rect, int flags, const QString& text)
{
    painter_.drawText(rect, flags | Qt::TextSingleLine,
                      QFontMetricsF(painter_.font()).elidedText(text, Qt::ElideRight, rect.width()));
}

void ChartPainter::paintRow(const QRectF& rect, const ChartRow& row)
{
    paintNames(rect, row);
    paintPlot(row);
    painter_.setPen(palette_.color(QPalette::Mid));
    painter_.drawLine(rect.bottomLeft(), rect.bottomRight());
}

void ChartPainter::paintNames(const QRectF& rect, const ChartRow& row)
{
    QRectF line(rect.left() + 4.0, rect.top() + 2.0, layout_.gutter - 8.0, layout_.line);
    painter_.setPen(palette_.color(QPalette::Text));
    QFont bold = painter_.font();
    bold.setBold(true);
    painter_.save();
    painter_.setFont(bold);
    text(line, Qt::AlignLeft, ChartTexts::name(row.channel));
    painter_.restore();
    line.translate(0.0, layout_.line);
    text(line, Qt::AlignLeft, texts_.latest(row.channel, row.state));
    line.translate(0.0, layout_.line);
    if (const QString clipped = texts_.clipped(row.state); !clipped.isEmpty()) {
        const int size = static_cast<int>(layout_.line);
        widget_.style()
            ->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, &widget_)
            .paint(&painter_, QRect(line.topLeft().toPoint(), QSize(size, size)));
        text(line.adjusted(size * 1.2, 0.0, 0.0, 0.0), Qt::AlignLeft, clipped);
        line.translate(0.0, layout_.line);
    }
    if (line.bottom() <= rect.bottom())
        text(line, Qt::AlignLeft, toLine(row.channel.instrumentName));
}

void ChartPainter::paintPlot(const ChartRow& row)
{
    const ChartPlot& plot = row.plot;
    const QRectF& rect = plot.rect;
    painter_.setPen(palette_.color(QPalette::Text));
    const QRectF numbers(rect.left() - layout_.numbers, rect.top() - 2.0, layout_.numbers - 4.0, rect.height() + 4.0);
    text(numbers, Qt::AlignRight | Qt::AlignTop, texts_.number(plot.scale.high, 4));
    text(numbers, Qt::AlignRight | Qt::AlignBottom, texts_.number(plot.scale.low, 4));
    painter_.setPen(palette_.color(QPalette::Midlight));
    for (const double time : timesOf(plot))
        painter_.drawLine(QPointF(plot.x(time), rect.top()), QPointF(plot.x(time), rect.bottom()));
    for (const QRectF& gap : plot.gaps(row.curve))
        painter_.fillRect(gap, QBrush(palette_.color(QPalette::Mid), Qt::BDiagPattern));
    painter_.save();
    painter_.setClipRect(rect.adjusted(-1.0, -ChartPlot::margin, 1.0, ChartPlot::margin), Qt::IntersectClip);
    painter_.setPen(QPen(readable(palette_.color(QPalette::Highlight), palette_), 1.0, Qt::SolidLine, Qt::SquareCap));
    painter_.drawLines(plot.lines(row.curve));
    painter_.setPen(QPen(palette_.color(QPalette::Text), 1.0));
    painter_.drawLines(plot.clippedMarks(row.curve, row.channel.channel));
    painter_.restore();
}

double ChartPainter::timeStep(const ChartPlot& plot) const
{
    const double room = QFontMetricsF(painter_.font()).averageCharWidth() * 14.0;
    return roundStep(std::max(room / plot.column * plot.view.perColumn, ChartTime::shortest));
}

std::vector<double> ChartPainter::timesOf(const ChartPlot& plot) const
{
    const double columns = plot.rect.width() / plot.column;
    return ticks(plot.view.from, plot.view.from + columns * plot.view.perColumn, timeStep(plot));
}

void ChartPainter::paintAxis(const ChartPlot& plot)
{
    const double top = layout_.plots().bottom();
    painter_.setPen(palette_.color(QPalette::Text));
    painter_.drawLine(QPointF(plot.rect.left(), top), QPointF(plot.rect.right(), top));
    for (const double time : timesOf(plot)) {
        const double x = plot.x(time);
        painter_.drawLine(QPointF(x, top), QPointF(x, top + 4.0));
        const QString label = texts_.time(time, timeStep(plot));
        const double width = QFontMetricsF(painter_.font()).horizontalAdvance(label) + 2.0;
        const double left = std::min(x - width / 2.0, layout_.width - width - 2.0);
        painter_.drawText(QRectF(left, top + 5.0, width, layout_.line), Qt::AlignLeft | Qt::TextSingleLine, label);
    }
}

void ChartPainter::paintMark(const ChartPlot& plot, double time, const QString& name, Qt::PenStyle style)
{
    const double x = plot.x(time);
    if (x < plot.rect.left() - 0.5 || x > plot.rect.right() + 0.5)
        return;
    painter_.setPen(QPen(palette_.color(QPalette::Text), 1.0, style));
    painter_.drawLine(QPointF(x, layout_.line * 0.8), QPointF(x, layout_.plots().bottom()));
    const double width = std::min(QFontMetricsF(painter_.font()).horizontalAdvance(name) + 4.0, layout_.width / 3.0);
    const QRectF label(std::min(x + 3.0, layout_.width - width), 0.0, width, layout_.line);
    if (label.left() < labelEnd_)
        return;
    text(label, Qt::AlignLeft, name);
    labelEnd_ = label.right() + 4.0;
}

void ChartPainter::paintMarks(const ChartPlot& plot, const ChartState& state)
{
    labelEnd_ = 0.0;
    if (state.trigger)
        paintMark(plot, *state.trigger, texts_(chartText::trigger), Qt::SolidLine);
    for (std::size_t i = 0; i < state.markers.size(); ++i) {
        const Marker& marker = state.markers[i];
        const QString number = QString::number(i + 1);
        paintMark(plot, marker.time, marker.text.empty() ? number : toLine(marker.text), Qt::DashLine);
    }
}

void ChartPainter::paintNote(const QString& text)
{
    painter_.setPen(palette_.color(QPalette::Text));
    painter_.drawText(QRectF(0.0, 0.0, layout_.width, layout_.height), Qt::AlignCenter | Qt::TextWordWrap, text);
}

} // namespace ko

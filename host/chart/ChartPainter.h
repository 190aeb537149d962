#pragma once

#include "host/chart/ChartRow.h"
#include "host/chart/ChartTexts.h"

#include <QPainter>
#include <QWidget>

namespace ko {

/// The places of a chart's parts in a widget, by its font.
struct ChartLayout {
    ChartLayout(const QWidget& widget, std::size_t rowCount);

    double width, height;
    double line;    ///< height of a line of text
    double gutter;  ///< width of the names
    double numbers; ///< width of the numbers beside a plot
    double rowHeight;

    [[nodiscard]] double left() const { return gutter + numbers; }
    /// The rows, below the line with the marks and above the axis.
    [[nodiscard]] QRectF rows() const { return {0.0, line, width, std::max(height - 2.5 * line, 0.0)}; }
    [[nodiscard]] QRectF plots() const { return {left(), line, std::max(width - left() - 2.0, 1.0), rows().height()}; }
    [[nodiscard]] QRectF row(double top) const { return {0.0, top, width, rowHeight}; }
};

/// A row of a chart.
struct ChartRow {
    const ChartChannel& channel;
    const ChannelState& state;
    const ChartCurve& curve;
    ChartPlot plot;
};

/// Paints the parts of a chart, in the colours of the widget's palette.
class ChartPainter {
public:
    ChartPainter(QPainter& painter, const QWidget& widget, const ChartLayout& layout, const ChartTexts& texts);

    void paintRow(const QRectF& rect, const ChartRow& row);
    /// The axis of time; `plot` is any row's.
    void paintAxis(const ChartPlot& plot);
    /// The trigger and the markers, across all rows, with their names above.
    void paintMarks(const ChartPlot& plot, const ChartState& state);
    void paintNote(const QString& text);

private:
    void paintNames(const QRectF& rect, const ChartRow& row);
    void paintPlot(const ChartRow& row);
    void paintMark(const ChartPlot& plot, double time, const QString& name, Qt::PenStyle style);
    void text(const QRectF& rect, int flags, const QString& text);
    [[nodiscard]] std::vector<double> timesOf(const ChartPlot& plot) const;
    [[nodiscard]] double timeStep(const ChartPlot& plot) const;

    QPainter& painter_;
    const QWidget& widget_;
    ChartLayout layout_;
    ChartTexts texts_;
    QPalette palette_;
    double labelEnd_ = 0.0; ///< where the last name of a mark ends
};

} // namespace ko

#pragma once

#include "host/chart/ChartTime.h"
#include "host/recording/ChartSource.h"

#include <QFontMetricsF>
#include <QLineF>
#include <QRectF>
#include <QString>
#include <QVector>

namespace ko {

/// The part of a channel that is visible, with the samples of each column, or single samples where they are sparser.
struct ChartCurve {
    std::vector<Extent> extents;
    double first = 0.0; ///< time of the first extent
    double step = 1.0;  ///< seconds between two
    double start = 0.0; ///< time of the channel's first sample
    double end = 0.0;   ///< time after its last one

    [[nodiscard]] double timeOf(std::size_t extent) const { return first + static_cast<double>(extent) * step; }
};

ChartCurve curveOf(const ChartSource& source, std::size_t channel, const ChannelState& state,
                   const ChartTime::View& view, int columns);

/// The extent of all finite values; empty: none.
Extent finiteExtent(const ChartCurve& curve);

/// The place of times and values in a row's rectangle.
struct ChartPlot {
    QRectF rect;
    ChartTime::View view; ///< a column is `column` wide
    ChartScale scale;
    double column = 1.0;

    [[nodiscard]] double x(double time) const { return rect.left() + (time - view.from) / view.perColumn * column; }
    [[nodiscard]] double y(double value) const;

    static constexpr double margin = 6.0; ///< above and below the rectangle

    /// The lines that show a curve: samples that follow each other are joined.
    [[nodiscard]] QVector<QLineF> lines(const ChartCurve& curve) const;
    /// Where samples are lost.
    [[nodiscard]] QVector<QRectF> gaps(const ChartCurve& curve) const;
    /// Short lines above or below the rectangle wherever a sample has reached it.
    [[nodiscard]] QVector<QLineF> clippedMarks(const ChartCurve& curve, const ArmedChannel& channel) const;
};

} // namespace ko

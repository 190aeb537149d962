#include "host/chart/StripChart.h"

#include "widgets/support/Guarded.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <numeric>

namespace ko {

namespace {

constexpr double followed = 10.0; // seconds that a running chart shows at first

/// Reads the latest values when they are asked for.
class ChartInterface : public QAccessibleWidget {
public:
    explicit ChartInterface(StripChart& chart) : QAccessibleWidget(&chart, QAccessible::Chart), chart_(chart) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        const bool isContent = kind == QAccessible::Value || kind == QAccessible::Description;
        return isContent ? chart_.latestValues() : QAccessibleWidget::text(kind);
    }

private:
    StripChart& chart_;
};

QAccessibleInterface* chartInterface(const QString& /*className*/, QObject* object)
{
    auto* const chart = dynamic_cast<StripChart*>(object);
    return chart ? new ChartInterface(*chart) : nullptr;
}

} // namespace

StripChart::StripChart(Texts texts, const Locale& locale, QWidget* parent)
    : QAbstractScrollArea(parent), texts_{std::move(texts), locale}
{
    QAccessible::installFactory(chartInterface);
    setObjectName(QStringLiteral("stripChart"));
    setAccessibleName(texts_(chartText::chart));
    setStatusTip(texts_(chartText::keys));
    setBackgroundRole(QPalette::Base);
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setAutoFillBackground(true);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    timer_.setInterval(period);
    onSignal(&timer_, &QTimer::timeout, this, [this] { refresh(); });
    // The bar of the time is always there, so that its coming does not change the size of the chart.
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    horizontalScrollBar()->setRange(0, 0);
}

void StripChart::show(std::shared_ptr<const ChartSource> source, bool isRunning)
{
    source_ = std::move(source);
    isRunning_ = isRunning && source_;
    if (isRunning_)
        time_.follow(followed);
    else
        time_.showAll();
    selectRows();
    run();
    refresh();
}

void StripChart::setEnded(std::shared_ptr<const ChartSource> finer)
{
    if (finer && source_ && finer->channels().size() == source_->channels().size())
        source_ = std::move(finer);
    isRunning_ = false;
    run();
    refresh();
}

void StripChart::choose(std::function<bool(const ChartChannel&)> isChosen)
{
    isChosen_ = std::move(isChosen);
    selectRows();
    refresh();
}

void StripChart::selectRows()
{
    rows_.clear();
    const std::size_t count = source_ ? source_->channels().size() : 0;
    for (std::size_t i = 0; i < count; ++i)
        if (isChosen_ && isChosen_(source_->channels()[i]))
            rows_.push_back(i);
    if (rows_.empty()) {
        rows_.resize(count);
        std::iota(rows_.begin(), rows_.end(), std::size_t{0});
    }
    scales_.assign(rows_.size(), {0.0, 0.0});
}

void StripChart::run()
{
    const bool isChanging = isRunning_ || (source_ && source_->isGrowing());
    if (!isVisible() || !isChanging)
        timer_.stop();
    else if (!timer_.isActive())
        timer_.start();
}

void StripChart::refresh()
{
    state_ = source_ ? source_->state() : ChartState();
    setScrollBars();
    viewport()->update();
}

void StripChart::setScrollBars()
{
    const QScopedValueRollback guard(isSettingBars_, true);
    const ChartLayout layout(*viewport(), rows_.size());
    const double hidden = layout.rowHeight * static_cast<double>(rows_.size()) - layout.rows().height();
    verticalScrollBar()->setRange(0, hidden > 1.0 ? static_cast<int>(hidden) : 0);
    verticalScrollBar()->setSingleStep(static_cast<int>(layout.line));
    verticalScrollBar()->setPageStep(static_cast<int>(layout.rows().height()));
    const double end = endOfTime();
    const auto place = time_.place(end);
    const double visible = time_.span(end) / std::max(end - time_.span(end), ChartTime::shortest);
    horizontalScrollBar()->setRange(0, place ? ChartTime::scrollSteps : 0);
    horizontalScrollBar()->setPageStep(std::max(1, static_cast<int>(std::min(visible, 1.0) * ChartTime::scrollSteps)));
    horizontalScrollBar()->setSingleStep(std::max(1, horizontalScrollBar()->pageStep() / 10));
    horizontalScrollBar()->setValue(place.value_or(0));
}

void StripChart::scrollContentsBy(int dx, int /*dy*/)
{
    if (isSettingBars_)
        return;
    if (dx != 0)
        time_.scroll(horizontalScrollBar()->value(), endOfTime());
    viewport()->update();
}

double StripChart::endOfTime() const
{
    return source_ ? state_.end(source_->channels()) : 0.0;
}

void StripChart::zoom(bool in)
{
    time_.zoom(in, endOfTime());
    refresh();
}

void StripChart::showAll()
{
    time_.showAll();
    refresh();
}

void StripChart::followEnd()
{
    time_.followEnd();
    refresh();
}

void StripChart::paintEvent(QPaintEvent*)
{
    QPainter painter(viewport());
    paint(painter);
    // What has been painted may have been asked for.
    run();
}

void StripChart::paint(QPainter& painter)
{
    const ChartLayout layout(*viewport(), rows_.size());
    ChartPainter parts(painter, *viewport(), layout, texts_);
    if (rows_.empty())
        return parts.paintNote(texts_(chartText::nothing));
    ChartPlot plot{.rect = layout.plots(), .view = {}, .scale = {}, .column = 1.0 / devicePixelRatioF()};
    const int columns = static_cast<int>(plot.rect.width() / plot.column);
    plot.view = time_.view(endOfTime(), columns);
    painter.setClipRect(layout.rows());
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const QRectF row =
            layout.row(layout.rows().top() + layout.rowHeight * static_cast<double>(i) - verticalScrollBar()->value());
        if (!row.intersects(layout.rows()))
            continue;
        const std::size_t channel = rows_[i];
        const ChartCurve curve = curveOf(*source_, channel, state_.channels[channel], plot.view, columns);
        if (const Extent all = finiteExtent(curve); !all.isEmpty())
            scales_[i] = scales_[i].fitted(all.low, all.high);
        ChartPlot own = plot;
        own.rect = QRectF(plot.rect.left(), row.top(), plot.rect.width(), row.height())
                       .adjusted(0.0, ChartPlot::margin + 1.0, 0.0, -ChartPlot::margin - 1.0);
        own.scale = scales_[i];
        parts.paintRow(row, {source_->channels()[channel], state_.channels[channel], curve, own});
    }
    painter.setClipping(false);
    parts.paintAxis(plot);
    parts.paintMarks(plot, state_);
}

void StripChart::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    setScrollBars();
}

void StripChart::showEvent(QShowEvent* event)
{
    QAbstractScrollArea::showEvent(event);
    run();
    refresh();
}

void StripChart::hideEvent(QHideEvent* event)
{
    QAbstractScrollArea::hideEvent(event);
    run();
}

QString StripChart::latestValues() const
{
    QStringList values;
    for (const std::size_t channel : rows_) {
        const ChartChannel& it = source_->channels()[channel];
        const ChannelState& state = state_.channels[channel];
        values << texts_(chartText::value).arg(ChartTexts::name(it), texts_.latest(it, state));
        if (const QString clipped = texts_.clipped(state); !clipped.isEmpty())
            values.last() += QStringLiteral(", ") + clipped;
    }
    return rows_.empty() ? texts_(chartText::nothing) : values.join(QStringLiteral("; "));
}

QSize StripChart::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 40, fontMetrics().height() * 9};
}

QSize StripChart::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 80, fontMetrics().height() * 16};
}

} // namespace ko

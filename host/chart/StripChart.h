#pragma once

#include "host/chart/ChartPainter.h"

#include <QAbstractScrollArea>
#include <QTimer>
#include <functional>

namespace ko {

/// The signals of a recording or a monitor, a row for each channel over a common axis of time, with the trigger,
/// markers and clipped samples. While it runs and is visible it is painted 20 times a second, at a cost that depends on
/// its size alone. Keys: plus and minus zoom, Home shows everything, End follows the end, arrows scroll.
class StripChart : public QAbstractScrollArea {
public:
    /// `locale` must outlive this object.
    StripChart(Texts texts, const Locale& locale, QWidget* parent);

    /// Shows this source in place of the one before: the last seconds while it is running, else all; null: nothing.
    void show(std::shared_ptr<const ChartSource> source, bool isRunning);
    /// The source has ended: the part of the time that is shown stays. `finer` has the same channels and replaces it.
    void setEnded(std::shared_ptr<const ChartSource> finer = nullptr);
    /// Shows only these channels; all, if none of the source's is among them.
    void choose(std::function<bool(const ChartChannel&)> isChosen);

    void zoom(bool in);
    void showAll();
    void followEnd();

    /// The latest value of each channel that is shown, for screen readers.
    [[nodiscard]] QString latestValues() const;
    [[nodiscard]] QSize sizeHint() const override;
    /// Room for a row.
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    static constexpr int period = 50; ///< milliseconds

    void refresh();
    void run();
    void selectRows();
    void paint(QPainter& painter);
    void setScrollBars();
    [[nodiscard]] double endOfTime() const;
    [[nodiscard]] QString tipAt(const QPoint& place) const;

    ChartTexts texts_;
    std::shared_ptr<const ChartSource> source_;
    ChartState state_; ///< of the source, at the last frame
    std::function<bool(const ChartChannel&)> isChosen_;
    std::vector<std::size_t> rows_;  ///< the channels that are shown
    std::vector<ChartScale> scales_; ///< of each row
    ChartTime time_;
    bool isRunning_ = false;
    bool isSettingBars_ = false;
    QTimer timer_{this};
};

} // namespace ko

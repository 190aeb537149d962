#pragma once

#include "platform/Timeline.h"
#include "widgets/bindings/Binding.h"

#include <QWidget>

namespace ko {

/// Paints a timeline in the palette's colours: the marks at equal distances, with their texts below and those of the
/// stretches above. A recording is a thick line, an uncertain stretch a dashed one.
class TimelineWidget : public QWidget {
public:
    /// `titledTime` is the pattern of a title with a time.
    TimelineWidget(const Timeline& timeline, const QString& titledTime, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return {1, sizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] double place(std::size_t point) const;
    [[nodiscard]] double lineHeight() const;
    void paintStretch(QPainter& painter, std::size_t point) const;
    void paintMark(QPainter& painter, std::size_t point) const;
    [[nodiscard]] QString titleOf(const Timeline::Mark& mark) const;

    const Timeline& timeline_;
    QString titledTime_;
};

class TimelineBinding : public Binding {
public:
    TimelineBinding(FormView& view, Timeline& control, TimelineWidget& widget);

protected:
    void refresh(Aspect aspect) override;
    void refreshHint() override {}

private:
    Timeline& timeline_;
};

} // namespace ko

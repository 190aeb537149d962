#include "widgets/bindings/TimelineBinding.h"

#include "widgets/support/PlainText.h"
#include "widgets/support/ShownText.h"

#include <QIcon>
#include <QPainter>
#include <QStyle>

namespace ko {

namespace {

constexpr double dot = 0.25; ///< radius of a mark, in line heights

Qt::Alignment alignmentOf(std::size_t point, std::size_t count)
{
    return point == 0 ? Qt::AlignLeft : point + 1 == count ? Qt::AlignRight : Qt::AlignHCenter;
}

} // namespace

TimelineWidget::TimelineWidget(const Timeline& timeline, const QString& titledTime, QWidget* parent)
    : QWidget(parent), timeline_(timeline), titledTime_(titledTime)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

/// A line of text above, the line itself, and two lines of text below.
QSize TimelineWidget::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 60, qRound(fontMetrics().height() * 3.8)};
}

double TimelineWidget::lineHeight() const
{
    return fontMetrics().height() * 1.4;
}

double TimelineWidget::place(std::size_t point) const
{
    const double margin = fontMetrics().height() * dot + 1.0;
    const auto last = static_cast<double>(timeline_.points().size() - 1);
    return margin + (width() - 2.0 * margin) * static_cast<double>(point) / last;
}

void TimelineWidget::paintStretch(QPainter& painter, std::size_t point) const
{
    using Kind = Timeline::Stretch::Kind;
    const Timeline::Stretch& stretch = timeline_.points()[point].after;
    const bool isRecording = stretch.kind == Kind::recording;
    const double thick = fontMetrics().height() / 3.0;
    painter.setPen(QPen(palette().color(isRecording ? QPalette::Highlight : QPalette::WindowText),
                        isRecording ? thick : 1.5, stretch.kind == Kind::uncertain ? Qt::DashLine : Qt::SolidLine,
                        Qt::FlatCap));
    const double y = lineHeight();
    painter.drawLine(QPointF(place(point), y), QPointF(place(point + 1), y));
    painter.setPen(palette().color(QPalette::WindowText));
    const QRectF above(place(point), 0.0, place(point + 1) - place(point), fontMetrics().height());
    painter.drawText(above, Qt::AlignHCenter | Qt::AlignTop,
                     fontMetrics().elidedText(toLine(stretch.text), Qt::ElideRight, static_cast<int>(above.width())));
}

QString TimelineWidget::titleOf(const Timeline::Mark& mark) const
{
    return mark.time.empty() ? toLine(mark.title) : titledTime_.arg(toLine(mark.title), toLine(mark.time));
}

void TimelineWidget::paintMark(QPainter& painter, std::size_t point) const
{
    const Timeline::Mark& mark = timeline_.points()[point].mark;
    const int height = fontMetrics().height();
    const double x = place(point);
    painter.setPen(QPen(palette().color(QPalette::WindowText), 1.5));
    painter.setBrush(palette().brush(QPalette::Base));
    painter.drawEllipse(QPointF(x, lineHeight()), height * dot, height * dot);
    const std::size_t count = timeline_.points().size();
    const Qt::Alignment alignment = alignmentOf(point, count);
    const double room = static_cast<double>(width()) / static_cast<double>(count);
    const double left = alignment == Qt::AlignLeft    ? 0.0
                        : alignment == Qt::AlignRight ? width() - room
                                                      : x - room / 2.0;
    QRectF below(left, lineHeight() + height * 0.4, room, height);
    if (mark.isWarning) {
        style()
            ->standardIcon(QStyle::SP_MessageBoxWarning)
            .paint(&painter, QRect(below.toRect().topLeft(), QSize(height, height)));
        below.setLeft(left + height * 1.2);
    }
    for (const QString& line : {titleOf(mark), toLine(mark.distance)}) {
        painter.drawText(below, static_cast<int>(alignment | Qt::AlignTop),
                         fontMetrics().elidedText(line, Qt::ElideRight, static_cast<int>(below.width())));
        below.translate(0.0, height);
    }
}

void TimelineWidget::paintEvent(QPaintEvent*)
{
    const std::size_t count = timeline_.points().size();
    if (count < 2)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    for (std::size_t point = 0; point + 1 < count; ++point)
        paintStretch(painter, point);
    for (std::size_t point = 0; point < count; ++point)
        paintMark(painter, point);
}

TimelineBinding::TimelineBinding(FormView& view, Timeline& control, TimelineWidget& widget)
    : Binding(view, control, widget), timeline_(control)
{
    refreshAll();
}

void TimelineBinding::refresh(Aspect aspect)
{
    if (aspect == Aspect::Items) {
        widget().update();
    } else if (aspect == Aspect::Text) {
        widget().setAccessibleName(toShown(timeline_.caption()));
        widget().setToolTip(plainTip(toShown(timeline_.caption())));
    } else {
        Binding::refresh(aspect);
    }
}

} // namespace ko

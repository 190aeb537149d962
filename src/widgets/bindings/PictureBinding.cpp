#include "widgets/bindings/PictureBinding.h"

#include "widgets/support/Guarded.h"

#include <QPainter>

namespace ko {

namespace {

QPointF toPoint(const Drawing::Position& position)
{
    return {position.x, position.y};
}

} // namespace

PictureWidget::PictureWidget(PictureBox& picture, QWidget* parent) : QWidget(parent), picture_(picture) {}

void PictureWidget::paintEvent(QPaintEvent*)
{
    Drawing drawing;
    guarded([&] {
        if (picture_.paint)
            drawing = picture_.paint(width(), height());
    });
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    const QColor ink = palette().color(group, QPalette::Text);
    painter.setPen(QPen(palette().color(group, QPalette::Mid), 2));
    painter.setBrush(palette().brush(group, QPalette::Base));
    for (const Drawing::Circle& circle : drawing.circles)
        painter.drawEllipse(toPoint(circle.centre), circle.radius, circle.radius);
    for (const Drawing::Line& line : drawing.lines) {
        painter.setPen(QPen(ink, line.width, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(toPoint(line.from), toPoint(line.to));
    }
}

PictureBinding::PictureBinding(FormView& view, PictureBox& control, PictureWidget& widget)
    : Binding(view, control, widget)
{
    refreshAll();
}

void PictureBinding::refresh(Aspect aspect)
{
    if (aspect == Aspect::Text)
        widget().update();
    else
        Binding::refresh(aspect);
}

} // namespace ko

#include "widgets/bindings/WarningLabel.h"

#include <QEvent>
#include <QIcon>
#include <QPainter>
#include <QStyle>

namespace ko {

WarningLabel::WarningLabel(QWidget* parent) : PlainLabel(parent)
{
    reserveRoom();
}

void WarningLabel::reserveRoom()
{
    setContentsMargins(fontMetrics().height() * 4 / 3, 0, 0, 0);
}

void WarningLabel::paintEvent(QPaintEvent* event)
{
    PlainLabel::paintEvent(event);
    QPainter painter(this);
    const int side = fontMetrics().height();
    style()->standardIcon(QStyle::SP_MessageBoxWarning).paint(&painter, QRect(0, (height() - side) / 2, side, side));
}

void WarningLabel::changeEvent(QEvent* event)
{
    PlainLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        reserveRoom();
}

} // namespace ko

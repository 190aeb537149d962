#include "host/toolkit/HintLine.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace ko {

HintLine::HintLine(QWidget* parent) : PlainLabel(parent)
{
    setMinimumWidth(1);
    setContentsMargins(fontMetrics().height() / 3, 0, 0, 0);
}

QString HintLine::shown() const
{
    return fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
}

void HintLine::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const auto place = static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment()));
    style()->drawItemText(&painter, contentsRect(), place, palette(), isEnabled(), shown(), foregroundRole());
}

bool HintLine::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || shown() == text())
        return PlainLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), plainTip(text()), this);
    return true;
}

} // namespace ko

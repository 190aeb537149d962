#include "host/chart/StripChart.h"
#include "widgets/support/PlainText.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

namespace ko {

void StripChart::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal: return zoom(true);
    case Qt::Key_Minus: return zoom(false);
    case Qt::Key_Home: return showAll();
    case Qt::Key_End: return followEnd();
    default: QAbstractScrollArea::keyPressEvent(event);
    }
}

void StripChart::wheelEvent(QWheelEvent* event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier))
        return QAbstractScrollArea::wheelEvent(event);
    if (event->angleDelta().y() != 0)
        zoom(event->angleDelta().y() > 0);
}

bool StripChart::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QAbstractScrollArea::viewportEvent(event);
    const auto* const help = static_cast<QHelpEvent*>(event);
    QToolTip::showText(help->globalPos(), tipAt(help->pos()), this);
    return true;
}

/// What the row at a place shows; empty between the rows.
QString StripChart::tipAt(const QPoint& place) const
{
    const ChartLayout layout(*viewport(), rows_.size());
    if (!layout.rows().contains(place))
        return {};
    const double row = (place.y() - layout.rows().top() + verticalScrollBar()->value()) / layout.rowHeight;
    if (row >= static_cast<double>(rows_.size()))
        return {};
    const std::size_t channel = rows_[static_cast<std::size_t>(row)];
    return plainTip(texts_.details(source_->channels()[channel], state_.channels[channel]));
}

} // namespace ko

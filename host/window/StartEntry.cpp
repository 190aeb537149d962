#include "host/window/StartEntry.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollArea>

namespace ko {

StartEntry::StartEntry(QStyle::StandardPixmap sign, const QString& title, const QString& hint, QWidget* parent)
    : QAbstractButton(parent), sign_(sign), title_(title), hint_(hint)
{
    setAccessibleName(title);
    setAccessibleDescription(hint);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
}

QFont StartEntry::hintFont() const
{
    QFont smaller = font();
    smaller.setPointSizeF(smaller.pointSizeF() * 0.9);
    return smaller;
}

QSize StartEntry::sizeHint() const
{
    const int text =
        std::max(fontMetrics().horizontalAdvance(title_), QFontMetrics(hintFont()).horizontalAdvance(hint_));
    constexpr int widest = 36;
    return {std::min(text, fontMetrics().averageCharWidth() * widest) + signSize() + 3 * margin(),
            minimumSizeHint().height()};
}

QSize StartEntry::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 12 + signSize() + 3 * margin(),
            fontMetrics().height() + QFontMetrics(hintFont()).height() + 2 * margin()};
}

void StartEntry::paintBack(QPainter& painter) const
{
    QColor accent = palette().color(QPalette::Highlight);
    const QRectF place = QRectF(rect()).adjusted(1, 1, -1, -1);
    accent.setAlphaF(isDown() ? 0.30F : underMouse() ? 0.15F : 0.0F);
    painter.setBrush(accent);
    accent.setAlphaF(hasFocus() ? 1.0F : 0.0F);
    painter.setPen(QPen(accent, 1.5));
    painter.drawRoundedRect(place, margin() / 2.0, margin() / 2.0);
}

void StartEntry::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintBack(painter);
    const bool isReversed = layoutDirection() == Qt::RightToLeft;
    QRect inner = rect().adjusted(margin(), margin(), -margin(), -margin());
    const QRect place = QStyle::alignedRect(layoutDirection(), Qt::AlignVCenter, {signSize(), signSize()}, inner);
    style()->standardIcon(sign_, nullptr, this).paint(&painter, place);
    const int indent = signSize() + margin();
    inner.adjust(isReversed ? 0 : indent, 0, isReversed ? -indent : 0, 0);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(inner, Qt::AlignTop | Qt::AlignLeading | Qt::TextSingleLine,
                     fontMetrics().elidedText(title_, Qt::ElideRight, inner.width()));
    painter.setFont(hintFont());
    painter.setOpacity(0.75);
    painter.drawText(inner, Qt::AlignBottom | Qt::AlignLeading | Qt::TextSingleLine,
                     QFontMetrics(hintFont()).elidedText(hint_, elide_, inner.width()));
}

void StartEntry::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

/// The screen may be scrolled.
void StartEntry::focusInEvent(QFocusEvent* event)
{
    QAbstractButton::focusInEvent(event);
    for (QWidget* up = parentWidget(); up; up = up->parentWidget())
        if (auto* area = qobject_cast<QScrollArea*>(up))
            return area->ensureWidgetVisible(this);
}

} // namespace ko

#include "widgets/bindings/NoInstrumentPicture.h"

#include "widgets/support/PageTexts.h"

#include <QPainter>
#include <algorithm>

namespace ko {

namespace {

constexpr int stepCount = 3;
constexpr int slotCount = 6;
constexpr int wantedSlot = 2;

} // namespace

NoInstrumentPicture::NoInstrumentPicture(const Texts& texts, QWidget* parent)
    : QWidget(parent), title_(texts(pageText::noInstruments)), reason_(texts(pageText::noInstrumentsReason))
{
    for (int i = 0; i < stepCount; ++i)
        steps_ << texts(pageText::firstStep + i);
    setAccessibleName(texts(pageText::componentTitle) + QStringLiteral(": ") + title_);
    setAccessibleDescription(reason_ + u'\n' + steps_.join(u'\n'));
}

QFont NoInstrumentPicture::titleFont() const
{
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    large.setWeight(QFont::DemiBold);
    return large;
}

int NoInstrumentPicture::textWidth() const
{
    return fontMetrics().averageCharWidth() * 62;
}

int NoInstrumentPicture::mainframeHeight() const
{
    return fontMetrics().height() * 8;
}

int NoInstrumentPicture::stepIndent() const
{
    return fontMetrics().height() * 2;
}

QSize NoInstrumentPicture::sizeHint() const
{
    const int margin = fontMetrics().height();
    return {textWidth() + 2 * margin, mainframeHeight() + layTexts(nullptr, QPoint()) + 3 * margin};
}

QSize NoInstrumentPicture::minimumSizeHint() const
{
    return sizeHint();
}

int NoInstrumentPicture::layText(QPainter* painter, const QRect& place, const QFont& font, const QString& text) const
{
    const int flags = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;
    if (painter) {
        painter->setFont(font);
        painter->drawText(place, flags, text);
    }
    return QFontMetrics(font).boundingRect(place, flags, text).bottom() + 1;
}

int NoInstrumentPicture::layTexts(QPainter* painter, QPoint at) const
{
    const int gap = fontMetrics().height() / 2;
    constexpr int anyHeight = 10000;
    int y = layText(painter, {at, QSize(textWidth(), anyHeight)}, titleFont(), title_) + gap;
    y = layText(painter, {at.x(), y, textWidth(), anyHeight}, font(), reason_) + 2 * gap;
    for (qsizetype i = 0; i < steps_.size(); ++i) {
        layText(painter, {at.x(), y, stepIndent(), anyHeight}, font(), QStringLiteral("%1.").arg(i + 1));
        const QRect place(at.x() + stepIndent(), y, textWidth() - stepIndent(), anyHeight);
        y = layText(painter, place, font(), steps_[i]) + gap;
    }
    return y;
}

void NoInstrumentPicture::paintEvent(QPaintEvent*)
{
    if (property("picture").toInt() != resource)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    drawMainframe(painter);
    painter.setPen(palette().color(QPalette::WindowText));
    layTexts(&painter, mainframe().topLeft() + QPoint(0, mainframeHeight() + fontMetrics().height()));
}

QRect NoInstrumentPicture::mainframe() const
{
    const int top = std::max(fontMetrics().height(), (height() - sizeHint().height()) / 3);
    return {(width() - textWidth()) / 2, top, textWidth() * 2 / 3, mainframeHeight()};
}

QRectF NoInstrumentPicture::slotAt(int number) const
{
    const double unit = fontMetrics().height() / 2.0;
    const QRectF inner = QRectF(mainframe()).adjusted(1 + unit, 1 + unit, -1 - unit, -1 - 2 * unit);
    const double step = inner.width() / slotCount;
    return {inner.left() + number * step + unit / 4, inner.top(), step - unit / 2, inner.height()};
}

QRect NoInstrumentPicture::freeSlot() const
{
    const int margin = fontMetrics().height() / 4;
    return slotAt(wantedSlot).toAlignedRect().adjusted(margin, margin, -margin, -margin);
}

void NoInstrumentPicture::drawMainframe(QPainter& painter) const
{
    const double unit = fontMetrics().height() / 2.0;
    painter.setPen(QPen(palette().color(QPalette::Mid), std::max(1.0, unit / 6)));
    painter.setBrush(palette().brush(QPalette::Button));
    painter.drawRoundedRect(QRectF(mainframe()).adjusted(1, 1, -1, -1), unit, unit);
    for (int i = 0; i < slotCount; ++i)
        drawSlot(painter, slotAt(i), i == wantedSlot);
}

void NoInstrumentPicture::drawSlot(QPainter& painter, const QRectF& slot, bool wanted) const
{
    const double unit = fontMetrics().height() / 2.0;
    const QColor ink = palette().color(wanted ? QPalette::Highlight : QPalette::Mid);
    painter.setBrush(palette().brush(QPalette::Base));
    painter.setPen(QPen(ink, std::max(1.0, unit / (wanted ? 4 : 8)), wanted ? Qt::DashLine : Qt::SolidLine));
    painter.drawRoundedRect(slot, unit / 2, unit / 2);
    if (!wanted)
        return;
    painter.setPen(QPen(ink, unit / 3, Qt::SolidLine, Qt::RoundCap));
    const QPointF center = slot.center();
    painter.drawLine(center - QPointF(unit, 0), center + QPointF(unit, 0));
    painter.drawLine(center - QPointF(0, unit), center + QPointF(0, unit));
}

} // namespace ko

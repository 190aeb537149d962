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
    return {textWidth() + 2 * margin, mainframeHeight() + layTexts(nullptr, 0, 0) + 3 * margin};
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
    return place.top() + QFontMetrics(font).boundingRect(QRect(0, 0, place.width(), 10000), flags, text).height();
}

int NoInstrumentPicture::layTexts(QPainter* painter, int left, int top) const
{
    const int gap = fontMetrics().height() / 2;
    constexpr int anyHeight = 10000;
    int y = layText(painter, {left, top, textWidth(), anyHeight}, titleFont(), title_) + gap;
    y = layText(painter, {left, y, textWidth(), anyHeight}, font(), reason_) + 2 * gap;
    for (qsizetype i = 0; i < steps_.size(); ++i) {
        layText(painter, {left, y, stepIndent(), anyHeight}, font(), QStringLiteral("%1.").arg(i + 1));
        const QRect place(left + stepIndent(), y, textWidth() - stepIndent(), anyHeight);
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
    const int margin = fontMetrics().height();
    const int left = (width() - textWidth()) / 2;
    const int top = std::max(margin, (height() - sizeHint().height()) / 3);
    drawMainframe(painter, {left, top, textWidth() * 2 / 3, mainframeHeight()});
    painter.setPen(palette().color(QPalette::WindowText));
    layTexts(&painter, left, top + mainframeHeight() + margin);
}

void NoInstrumentPicture::drawMainframe(QPainter& painter, const QRect& place) const
{
    const double unit = fontMetrics().height() / 2.0;
    const QRectF box = QRectF(place).adjusted(1, 1, -1, -1);
    painter.setPen(QPen(palette().color(QPalette::Mid), std::max(1.0, unit / 6)));
    painter.setBrush(palette().brush(QPalette::Button));
    painter.drawRoundedRect(box, unit, unit);
    const QRectF inner = box.adjusted(unit, unit, -unit, -2 * unit);
    const double step = inner.width() / slotCount;
    for (int i = 0; i < slotCount; ++i) {
        const QRectF slot(inner.left() + i * step + unit / 4, inner.top(), step - unit / 2, inner.height());
        drawSlot(painter, slot, i == wantedSlot);
    }
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

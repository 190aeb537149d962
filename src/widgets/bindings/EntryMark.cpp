#include "widgets/bindings/EntryMark.h"

#include <QEvent>
#include <QIcon>
#include <QPainter>
#include <QStyle>

namespace ko {

EntryMark::EntryMark(QLineEdit& edit, const QString& word) : QWidget(&edit), edit_(edit), word_(word)
{
    setAccessibleName(word);
    // Pass mouse presses to the line edit.
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

int EntryMark::wordSize() const
{
    return fontMetrics().height() / 4 + fontMetrics().horizontalAdvance(word_);
}

void EntryMark::place()
{
    if (!edit_.isEnabled() || isHidden()) {
        edit_.setTextMargins(0, 0, 0, 0);
        return;
    }
    const int gap = signSize() / 3;
    const int text = fontMetrics().horizontalAdvance(edit_.text()) + 2 * fontMetrics().averageCharWidth();
    const int full = signSize() + wordSize();
    const bool hasRoom = full + text + 3 * gap <= edit_.width();
    const int taken = hasRoom ? full : signSize();
    const bool atLeft = (edit_.alignment() & Qt::AlignRight) != 0;
    setGeometry(atLeft ? gap : edit_.width() - gap - taken, 0, taken, edit_.height());
    edit_.setTextMargins(atLeft ? gap + taken : 0, 0, atLeft ? 0 : gap + taken, 0);
    update();
}

void EntryMark::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect sign(0, (height() - signSize()) / 2, signSize(), signSize());
    style()->standardIcon(QStyle::SP_MessageBoxWarning).paint(&painter, sign);
    if (width() <= signSize())
        return;
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(rect(), Qt::AlignRight | Qt::AlignVCenter, word_);
}

void EntryMark::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        place();
}

} // namespace ko

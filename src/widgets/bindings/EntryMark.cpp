#include "widgets/bindings/EntryMark.h"

#include <QEvent>
#include <QIcon>
#include <QPainter>
#include <QStyle>

namespace ko {

namespace {

/// Of the sign and the word.
int signedWidth(const QFontMetrics& metrics, const QString& word)
{
    return metrics.height() * 5 / 4 + metrics.horizontalAdvance(word);
}

} // namespace

EntryMark::EntryMark(QLineEdit& edit, const QString& word) : QWidget(&edit), edit_(edit), word_(word)
{
    setAccessibleName(word);
    // Pass mouse presses to the line edit.
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

int EntryMark::widthFor(const QLineEdit& edit, const QString& word, const QString& text)
{
    const QFontMetrics metrics = edit.fontMetrics();
    return signedWidth(metrics, word) + metrics.horizontalAdvance(text) + 2 * metrics.averageCharWidth() +
           metrics.height();
}

void EntryMark::place()
{
    if (!edit_.isEnabled() || isHidden()) {
        edit_.setTextMargins(0, 0, 0, 0);
        return;
    }
    const int gap = signSize() / 3;
    const bool hasRoom = widthFor(edit_, word_, edit_.text()) <= edit_.width();
    const int taken = hasRoom ? signedWidth(fontMetrics(), word_) : signSize();
    const bool atLeft = (edit_.alignment() & Qt::AlignRight) != 0;
    setGeometry(atLeft ? gap : edit_.width() - gap - taken, 0, taken, edit_.height());
    edit_.setTextMargins(atLeft ? gap + taken : 0, 0, atLeft ? 0 : gap + taken, 0);
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

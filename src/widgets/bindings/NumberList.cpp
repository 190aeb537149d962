#include "widgets/bindings/NumberList.h"

#include <QStyleOptionComboBox>
#include <QStylePainter>

namespace ko {

void NumberList::paintEvent(QPaintEvent*)
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    QStylePainter painter(this);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    const int margin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, &option, this) + 1;
    const QRect field = style()
                            ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this)
                            .adjusted(margin, 0, -margin, 0);
    const QString text = option.fontMetrics.elidedText(option.currentText, Qt::ElideRight, field.width());
    painter.drawItemText(field, Qt::AlignRight | Qt::AlignVCenter, option.palette, isEnabled(), text,
                         QPalette::ButtonText);
}

} // namespace ko

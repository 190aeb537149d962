#include "host/toolkit/SizeText.h"

#include "platform/NumberText.h"
#include "widgets/support/PageTexts.h"

#include <QStyle>
#include <QWidget>
#include <cmath>

namespace ko {

QString sizeText(double bytes, const Texts& texts, const Locale& locale)
{
    int text = pageText::bytes;
    for (const int larger : {pageText::kilobytes, pageText::megabytes, pageText::gigabytes}) {
        if (bytes <= 1024.0)
            break;
        bytes /= 1024.0;
        text = larger;
    }
    return toQt(numberText(std::round(bytes * 100.0) / 100.0, locale)) + texts(text);
}

QPixmap warningSign(const QWidget& widget)
{
    const int size = widget.style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, &widget);
    return widget.style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, &widget).pixmap(size, size);
}

} // namespace ko

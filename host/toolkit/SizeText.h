#pragma once

#include "platform/Locale.h"
#include "widgets/support/Convert.h"

#include <QPixmap>

namespace ko {

/// Returns a number of bytes in the units of the page.
QString sizeText(double bytes, const Texts& texts, const Locale& locale);

/// The style's warning sign, as large as the widget's small icons.
QPixmap warningSign(const QWidget& widget);

} // namespace ko

#pragma once

#include "platform/Locale.h"

#include <QLocale>

namespace ko {

/// The settings of `locale` in the platform's pictures, in which every number, date and time reads back. A picture that
/// they cannot express, such as one with words in it, gives way to the ISO date or to a plain time. Where a locale's
/// digits are not Latin, numbers have a point and commas. The C locale counts as English (United States).
Locale toLocale(const QLocale& locale);

} // namespace ko

#pragma once

#include "platform/Locale.h"

#include <QLocale>

namespace ko {

/// Converts `locale` to the platform's settings, with pictures in which every number, date and time reads back. A
/// format that pictures cannot express, such as one with words, is replaced by the ISO date or a plain time. For
/// locales with non-Latin digits, numbers use a point and commas. The C locale counts as English (United States).
Locale toLocale(const QLocale& locale);

} // namespace ko

#pragma once

#include "platform/Locale.h"

#include <QLocale>

namespace ko {

/// The settings of `locale` in the platform's pictures. A picture that they cannot express, such as one with words
/// in it, gives way to the ISO date or to a plain time. The C locale counts as English (United States).
Locale toLocale(const QLocale& locale);

} // namespace ko

#pragma once

#include "platform/Locale.h"

#include <cstdint>
#include <string>

namespace ko {

/// The user's time formats, in the order in which they are read.
struct LocaleSettings {
    std::string timeFormat;
    std::int32_t timeIs24Hour = 0;
    std::int32_t timeLeadingZero = 0;
    std::string timeSeparator;
    std::string amDesignator;
    std::string pmDesignator;

    bool operator==(const LocaleSettings&) const = default;
};

/// Reads the six settings. A 24-hour or leading-zero setting that is not a number counts as 0.
LocaleSettings readLocaleSettings(const Locale& locale);

} // namespace ko

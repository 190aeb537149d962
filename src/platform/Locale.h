#pragma once

#include <string>

namespace ko {

/// The user's regional settings, as reported by the system. Format pictures use d dd M MM yyyy h hh H HH mm ss and tt
/// (the AM/PM designator). The default is English (United States).
struct Locale {
    std::string decimalSeparator = ".";
    std::string digitGroupSeparator = ","; ///< between thousands; empty: digits are not grouped
    std::string shortDateFormat = "M/d/yyyy";
    std::string timeFormat = "h:mm:ss tt";
    std::string timeIs24Hour = "0";    ///< "1": 24-hour clock
    std::string timeLeadingZero = "0"; ///< "1": hours have two digits
    std::string timeSeparator = ":";
    std::string amDesignator = "AM";
    std::string pmDesignator = "PM";

    bool operator==(const Locale&) const = default;
};

/// The settings with pictures in which every date and time reads back as it was written: missing fields, such as the
/// year, or AM/PM on a 12-hour clock, are added, and a picture that cannot be completed is replaced.
Locale completed(const Locale& given);

} // namespace ko

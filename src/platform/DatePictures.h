#pragma once

#include "platform/DateTimes.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ko {

/// One item of a format picture: a number of `width` digits, the AM/PM designator, or literal text.
struct PictureItem {
    enum class Field { literal, year, month, day, hour12, hour24, minute, second, designator };

    Field field = Field::literal;
    std::size_t width = 0;
    std::string text; ///< for literals only
};

using DatePicture = std::vector<PictureItem>;

/// Parses a picture such as "d.M.yyyy" or "HH 'h' mm". Text in single quotes and every character that is not a picture
/// letter is literal; two single quotes mean one.
DatePicture parsePicture(std::string_view picture);

/// Formats the parts. A two-digit year is written with four digits where two would be read as another year.
std::string writePicture(const DatePicture& picture, const DateParts& parts, const Locale& locale);

/// Reads the start of `text` according to the picture and removes it from `text`; returns nothing when it does not
/// match or is not a valid date or time of day. Numbers may omit leading zeros, except minutes and seconds. A blank in
/// the picture matches any number of blanks, including none. Years of one or two digits are those of 1930 to 2029.
std::optional<DateParts> readPicture(const DatePicture& picture, std::string_view& text, const Locale& locale);

} // namespace ko

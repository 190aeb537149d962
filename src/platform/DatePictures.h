#pragma once

#include "platform/DateTimes.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ko {

/// One place of a format picture: a number of `width` digits, the designator, or literal text.
struct PictureItem {
    enum class Field { literal, year, month, day, hour12, hour24, minute, second, designator };

    Field field = Field::literal;
    std::size_t width = 0;
    std::string text; ///< of a literal
};

using DatePicture = std::vector<PictureItem>;

/// Takes a picture such as "d.M.yyyy" or "HH 'h' mm" apart. Text in single quotes and everything that is no letter
/// of a picture is literal; two single quotes stand for one.
DatePicture parsePicture(std::string_view picture);

/// The parts as the picture shows them. A two-digit year is shown with four digits where two would be read as
/// another year.
std::string writePicture(const DatePicture& picture, const DateParts& parts, const Locale& locale);

/// Reads what `text` begins with by the picture and takes it off; nothing when it does not match or is no date or
/// time of day. Numbers may lack their leading zeros, except minutes and seconds. A blank of the picture matches any
/// number of blanks, none included. Years of one or two digits are those of 1930 to 2029.
std::optional<DateParts> readPicture(const DatePicture& picture, std::string_view& text, const Locale& locale);

} // namespace ko

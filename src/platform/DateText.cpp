#include "platform/DatePictures.h"
#include "platform/Failure.h"

#include <algorithm>

namespace ko {

namespace {

using Field = PictureItem::Field;

constexpr std::string_view blanks = " \t";

std::string_view trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(blanks);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

PictureItem literal(std::string_view text)
{
    return {Field::literal, 0, std::string(text)};
}

/// The locale's order of year, month and day with another separator.
DatePicture inOrderOf(const DatePicture& date, std::string_view separator)
{
    DatePicture picture;
    for (const PictureItem& item : date) {
        if (item.field == Field::literal)
            continue;
        if (!picture.empty())
            picture.push_back(literal(separator));
        picture.push_back(item);
    }
    return picture;
}

bool isIsoDate(std::string_view text)
{
    const auto digits = std::min(text.find_first_not_of("0123456789"), text.size());
    return digits == 4 && text.substr(digits).starts_with('-');
}

/// Hours, minutes and seconds, with the designator after them, before them or absent; then the same without seconds.
std::vector<DatePicture> clocksWith(std::string_view separator)
{
    std::vector<DatePicture> pictures;
    DatePicture clock{
        {Field::hour24, 2, {}}, literal(separator), {Field::minute, 2, {}}, literal(separator), {Field::second, 2, {}}};
    const PictureItem designator{Field::designator, 2, {}};
    for (const std::size_t length : {clock.size(), clock.size() - 2}) {
        clock.resize(length);
        pictures.push_back(clock);
        DatePicture behind = clock;
        behind.insert(behind.end(), {literal(" "), designator});
        pictures.push_back(behind);
        DatePicture inFront{designator, literal(" ")};
        inFront.insert(inFront.end(), clock.begin(), clock.end());
        pictures.push_back(inFront);
    }
    return pictures;
}

/// The time of day, if the whole text is one in one of the pictures.
std::optional<DateTime> readTime(std::string_view text, const std::vector<DatePicture>& pictures, const Locale& locale)
{
    for (const DatePicture& picture : pictures) {
        std::string_view rest = text;
        const auto parts = readPicture(picture, rest, locale);
        if (parts && rest.empty())
            return timeSerial(parts->hour, parts->minute, parts->second);
    }
    return std::nullopt;
}

/// The time of day, if the whole text is one.
std::optional<DateTime> readTime(std::string_view text, const Locale& locale)
{
    static const std::vector<DatePicture> usual = clocksWith(":");
    auto time = readTime(text, {parsePicture(locale.timeFormat)}, locale);
    if (!time)
        time = readTime(text, usual, locale);
    if (!time && !locale.timeSeparator.empty() && locale.timeSeparator != ":")
        time = readTime(text, clocksWith(locale.timeSeparator), locale);
    return time;
}

/// The date and the optional time after it, if the whole text is a date in this picture and such a time.
std::optional<DateTime> readDate(const DatePicture& picture, std::string_view text, const Locale& locale)
{
    const auto parts = readPicture(picture, text, locale);
    if (!parts)
        return std::nullopt;
    const DateTime date = dateSerial(parts->year, parts->month, parts->day);
    if (text.empty())
        return date;
    if (blanks.find(text.front()) == std::string_view::npos)
        return std::nullopt;
    const auto time = readTime(trimmed(text), locale);
    return time ? std::optional(dateAdd(TimeUnit::days, time->days, date)) : std::nullopt;
}

/// The date and the optional time after it, if the whole text is one in ISO 8601 or in the locale's order, with its own
/// separator or another one.
std::optional<DateTime> readDate(std::string_view text, const Locale& locale)
{
    if (isIsoDate(text))
        return readDate(parsePicture("yyyy-MM-dd"), text, locale);
    const DatePicture own = parsePicture(locale.shortDateFormat);
    auto date = readDate(own, text, locale);
    for (const char* const separator : {"/", "-", "."})
        date = date ? date : readDate(inOrderOf(own, separator), text, locale);
    return date;
}

} // namespace

std::string generalDate(DateTime time, const Locale& locale)
{
    const DateParts parts = dateParts(time);
    const bool hasDate = datePart(time).days != 0.0;
    const bool hasTime = timePart(time).days != 0.0;
    std::string text;
    if (hasDate)
        text = writePicture(parsePicture(locale.shortDateFormat), parts, locale);
    if (hasDate && hasTime)
        text += ' ';
    if (hasTime || !hasDate)
        text += writePicture(parsePicture(locale.timeFormat), parts, locale);
    return text;
}

DateTime toDateTime(std::string_view text, const Locale& locale)
{
    const std::string_view bare = trimmed(text);
    if (bare.empty())
        fail(failure::typeMismatch);
    auto time = readTime(bare, locale);
    if (!time)
        time = readDate(bare, locale);
    if (!time)
        fail(failure::typeMismatch);
    return *time;
}

} // namespace ko

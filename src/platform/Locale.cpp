#include "platform/Locale.h"

#include "platform/DatePictures.h"
#include "platform/DateTimes.h"
#include "platform/Failure.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <utility>

namespace ko {

namespace {

using Field = PictureItem::Field;

/// Dates and times that reveal swapped or missing fields.
constexpr std::array probedTimes{0.0, 1.0 / 86400, 0.5, 3723.0 / 86400, 64987.0 / 86400, 86399.0 / 86400};
constexpr std::array probedDays{2.0, 36526.0, 41223.0, 46347.0, -657434.0, 2958465.0};
constexpr std::array probedTimesOfDays{0.0, 64987.0 / 86400};

bool readsBack(double dayNumber, const Locale& locale)
{
    try {
        const DateTime time{dayNumber};
        return dateDiffSeconds(time, toDateTime(generalDate(time, locale), locale)) == 0.0;
    } catch (const Failure&) {
        return false;
    }
}

bool has(const std::string& picture, std::initializer_list<Field> fields)
{
    const DatePicture items = parsePicture(picture);
    return std::any_of(items.begin(), items.end(), [&](const PictureItem& item) {
        return std::find(fields.begin(), fields.end(), item.field) != fields.end();
    });
}

bool timesReadBack(const Locale& locale)
{
    return !has(locale.timeFormat, {Field::year, Field::month, Field::day}) &&
           std::all_of(probedTimes.begin(), probedTimes.end(), [&](double time) { return readsBack(time, locale); });
}

bool datesReadBack(const Locale& locale)
{
    if (has(locale.shortDateFormat, {Field::hour12, Field::hour24, Field::minute, Field::second, Field::designator}))
        return false;
    return std::all_of(probedDays.begin(), probedDays.end(), [&](double day) {
        const double sign = day < 0.0 ? -1.0 : 1.0;
        return std::all_of(probedTimesOfDays.begin(), probedTimesOfDays.end(),
                           [&](double time) { return readsBack(day + sign * time, locale); });
    });
}

/// The time format that the other settings describe.
std::string plainTimeFormat(const Locale& locale, const std::string& separator)
{
    const bool is24Hour = has(locale.timeFormat, {Field::hour24}) ||
                          (!has(locale.timeFormat, {Field::hour12}) && locale.timeIs24Hour == "1");
    const std::string hour(locale.timeLeadingZero == "1" ? 2 : 1, is24Hour ? 'H' : 'h');
    return hour + separator + "mm" + separator + "ss" + (is24Hour ? "" : " tt");
}

Locale withTimes(const Locale& given)
{
    Locale locale = given;
    const std::array pictures{given.timeFormat, given.timeFormat + " tt", plainTimeFormat(given, given.timeSeparator),
                              plainTimeFormat(given, ":")};
    for (const auto& [am, pm] : {std::pair(given.amDesignator, given.pmDesignator), {"AM", "PM"}}) {
        locale.amDesignator = am;
        locale.pmDesignator = pm;
        for (const std::string& picture : pictures) {
            locale.timeFormat = picture;
            if (timesReadBack(locale))
                return locale;
        }
    }
    return locale;
}

/// The picture with its missing fields appended.
std::string withAllFields(std::string picture)
{
    const DatePicture items = parsePicture(picture);
    const auto literal =
        std::find_if(items.begin(), items.end(), [](const PictureItem& item) { return item.field == Field::literal; });
    const std::string separator = literal == items.end() ? "/" : "'" + literal->text + "'";
    for (const auto& [field, letters] :
         {std::pair(Field::month, "MM"), std::pair(Field::day, "dd"), std::pair(Field::year, "yyyy")})
        if (!has(picture, {field}))
            picture += (picture.empty() ? "" : separator) + letters;
    return picture;
}

/// The picture with four-digit years.
std::string withLongYears(std::string picture)
{
    const std::size_t year = picture.find('y');
    const std::size_t end = year == std::string::npos ? year : picture.find_first_not_of('y', year);
    return year == std::string::npos ? picture : picture.replace(year, std::min(end, picture.size()) - year, "yyyy");
}

} // namespace

Locale completed(const Locale& given)
{
    Locale locale = withTimes(given);
    const std::string whole = withAllFields(given.shortDateFormat);
    for (const std::string& picture : {given.shortDateFormat, whole, withLongYears(whole), std::string("yyyy-MM-dd")}) {
        locale.shortDateFormat = picture;
        if (datesReadBack(locale))
            break;
    }
    return locale;
}

} // namespace ko

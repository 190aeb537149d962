#include "platform/DatePictures.h"

#include <algorithm>
#include <array>
#include <chrono>

namespace ko {

namespace {

using Field = PictureItem::Field;

constexpr int firstShortYear = 1930;
constexpr int lastShortYear = 2029;

Field fieldOf(char letter)
{
    switch (letter) {
    case 'y': return Field::year;
    case 'M': return Field::month;
    case 'd': return Field::day;
    case 'h': return Field::hour12;
    case 'H': return Field::hour24;
    case 'm': return Field::minute;
    case 's': return Field::second;
    case 't': return Field::designator;
    default: return Field::literal;
    }
}

void appendLiteral(DatePicture& picture, char character)
{
    if (picture.empty() || picture.back().field != Field::literal)
        picture.push_back({});
    picture.back().text += character;
}

/// Consumes quoted text or two quotes; an unclosed quote extends to the end.
void takeQuoted(std::string_view& rest, DatePicture& picture)
{
    constexpr std::string_view quoteItself = "''";
    bool isOpen = false;
    while (!rest.empty() && (isOpen || rest.front() == '\'')) {
        const bool isQuoteItself = rest.starts_with(quoteItself);
        if (isQuoteItself || rest.front() != '\'')
            appendLiteral(picture, rest.front());
        else
            isOpen = !isOpen;
        rest.remove_prefix(isQuoteItself ? quoteItself.size() : 1);
    }
}

std::string padded(int value, std::size_t width)
{
    const std::string digits = std::to_string(value);
    return digits.size() < width ? std::string(width - digits.size(), '0') + digits : digits;
}

std::string yearText(int year, std::size_t width)
{
    const bool isShort = width <= 2 && year >= firstShortYear && year <= lastShortYear;
    return isShort ? padded(year % 100, width) : padded(year, 4);
}

std::string itemText(const PictureItem& item, const DateParts& parts, const Locale& locale)
{
    const std::size_t width = std::min<std::size_t>(item.width, 2);
    switch (item.field) {
    case Field::year: return yearText(parts.year, item.width);
    case Field::month: return padded(parts.month, width);
    case Field::day: return padded(parts.day, width);
    case Field::hour12: return padded((parts.hour + 11) % 12 + 1, width);
    case Field::hour24: return padded(parts.hour, width);
    case Field::minute: return padded(parts.minute, width);
    case Field::second: return padded(parts.second, width);
    case Field::designator: return parts.hour < 12 ? locale.amDesignator : locale.pmDesignator;
    case Field::literal: break;
    }
    return item.text;
}

char lowerCase(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool beginsWith(std::string_view text, std::string_view start)
{
    const auto same = [](char one, char other) { return lowerCase(one) == lowerCase(other); };
    return text.size() >= start.size() && std::equal(start.begin(), start.end(), text.begin(), same);
}

int fullYear(int year, std::size_t digits)
{
    if (digits > 2)
        return year;
    return year + (year < firstShortYear % 100 ? 2000 : 1900);
}

/// Reads a text item by item.
class PictureReader {
public:
    PictureReader(std::string_view text, const Locale& locale) : rest_(text), locale_(locale) {}

    [[nodiscard]] std::string_view rest() const { return rest_; }

    bool read(const PictureItem& item)
    {
        switch (item.field) {
        case Field::literal: return readLiteral(item.text);
        case Field::year: return readYear();
        case Field::month: return readNumber(1, 2, parts_.month);
        case Field::day: return readNumber(1, 2, parts_.day);
        case Field::hour12:
        case Field::hour24: return readNumber(1, 2, parts_.hour);
        case Field::minute: return readNumber(std::min<std::size_t>(item.width, 2), 2, parts_.minute);
        case Field::second: return readNumber(std::min<std::size_t>(item.width, 2), 2, parts_.second);
        case Field::designator: return readDesignator();
        }
        return false;
    }

    /// The parts read, if they are a valid date and time of day.
    [[nodiscard]] std::optional<DateParts> parts() const
    {
        using namespace std::chrono;
        DateParts parts = parts_;
        const year_month_day date(year(parts.year), month(static_cast<unsigned>(parts.month)),
                                  day(static_cast<unsigned>(parts.day)));
        const bool isDate = parts.year >= 100 && date.ok();
        if (!isDate || !agreeWithDesignator(parts.hour) || parts.hour > 23 || parts.minute > 59 || parts.second > 59)
            return std::nullopt;
        return parts;
    }

private:
    enum class Designator { none, am, pm };

    bool readNumber(std::size_t least, std::size_t most, int& number)
    {
        std::size_t count = 0;
        int value = 0;
        for (; count < std::min(most, rest_.size()) && rest_[count] >= '0' && rest_[count] <= '9'; ++count)
            value = value * 10 + (rest_[count] - '0');
        if (count < least)
            return false;
        number = value;
        rest_.remove_prefix(count);
        return true;
    }

    bool readYear()
    {
        const std::size_t before = rest_.size();
        if (!readNumber(1, 4, parts_.year))
            return false;
        parts_.year = fullYear(parts_.year, before - rest_.size());
        return true;
    }

    bool readLiteral(std::string_view literal)
    {
        for (const char character : literal) {
            if (character == ' ')
                rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t"), rest_.size()));
            else if (rest_.starts_with(character))
                rest_.remove_prefix(1);
            else
                return false;
        }
        return true;
    }

    /// The longest designator wins, so that "AM" is not read as "A".
    bool readDesignator()
    {
        const std::array<std::string_view, 4> texts{locale_.amDesignator, "AM", locale_.pmDesignator, "PM"};
        std::size_t length = 0;
        for (std::size_t index = 0; index < texts.size(); ++index) {
            if (texts[index].size() <= length || !beginsWith(rest_, texts[index]))
                continue;
            length = texts[index].size();
            designator_ = index < 2 ? Designator::am : Designator::pm;
        }
        rest_.remove_prefix(length);
        return length > 0;
    }

    /// Converts an hour of the 12-hour clock to 24 hours; an hour of the 24-hour clock must match its designator.
    bool agreeWithDesignator(int& hour) const
    {
        if (designator_ == Designator::am) {
            hour = hour == 12 ? 0 : hour;
            return hour < 12;
        }
        if (designator_ == Designator::pm) {
            hour = hour > 0 && hour < 12 ? hour + 12 : hour;
            return hour >= 12;
        }
        return true;
    }

    std::string_view rest_;
    const Locale& locale_;
    DateParts parts_;
    Designator designator_ = Designator::none;
};

} // namespace

DatePicture parsePicture(std::string_view picture)
{
    DatePicture items;
    while (!picture.empty()) {
        const char first = picture.front();
        const Field field = fieldOf(first);
        if (first == '\'') {
            takeQuoted(picture, items);
        } else if (field == Field::literal) {
            appendLiteral(items, first);
            picture.remove_prefix(1);
        } else {
            const std::size_t width = std::min(picture.find_first_not_of(first), picture.size());
            items.push_back({field, width, {}});
            picture.remove_prefix(width);
        }
    }
    return items;
}

std::string writePicture(const DatePicture& picture, const DateParts& parts, const Locale& locale)
{
    std::string text;
    for (const PictureItem& item : picture)
        text += itemText(item, parts, locale);
    return text;
}

std::optional<DateParts> readPicture(const DatePicture& picture, std::string_view& text, const Locale& locale)
{
    PictureReader reader(text, locale);
    for (const PictureItem& item : picture) {
        if (!reader.read(item))
            return std::nullopt;
    }
    text = reader.rest();
    return reader.parts();
}

} // namespace ko

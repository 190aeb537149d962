#include "fuzz/Targets.h"

#include "platform/DateTimes.h"
#include "platform/Failure.h"

#include <optional>
#include <vector>

namespace ko::fuzz {

namespace {

Locale localeOf(std::string_view date, std::string_view time, std::string_view separator, std::string_view am,
                std::string_view pm)
{
    Locale locale;
    locale.shortDateFormat = date;
    locale.timeFormat = time;
    locale.timeSeparator = separator;
    locale.amDesignator = am;
    locale.pmDesignator = pm;
    return locale;
}

std::string_view takeLine(std::string_view& text)
{
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    return line;
}

/// Parses a date; returns none if the text is refused with the expected failure.
std::optional<DateTime> read(std::string_view text, const Locale& locale)
{
    try {
        return toDateTime(text, locale);
    } catch (const Failure& failure) {
        require(failure.number() == failure::typeMismatch, "what is no date is a type mismatch", text);
        return std::nullopt;
    }
}

void checkShownAgain(DateTime time, const Locale& locale)
{
    const std::string shown = generalDate(time, locale);
    require(read(shown, locale) == time, "a date that is read is shown as the same date", shown);
}

void checkParts(DateTime time, std::string_view text)
{
    const DateParts parts = dateParts(time);
    const DateTime date = dateSerial(parts.year, parts.month, parts.day);
    require(date == datePart(time), "a date is what its parts make", text);
    require(timeSerial(parts.hour, parts.minute, parts.second) == timePart(time), "so is a time", text);
    require(dateAdd(TimeUnit::seconds, dateDiffSeconds(date, time), date) == time, "a difference undoes an addition",
            text);
}

void run(std::string_view input)
{
    static const std::vector<Locale> known{
        Locale{},
        localeOf("dd.MM.yyyy", "HH:mm:ss", ":", "", ""),
        localeOf("yyyy/MM/dd", "H:mm:ss", ":", "\xE5\x8D\x88\xE5\x89\x8D", "\xE5\x8D\x88\xE5\xBE\x8C"),
        localeOf("d.M.yyyy", "H.mm.ss", ".", "ap.", "ip."),
        localeOf("yy. M. d.", "tt h:mm:ss", ":", "A", "P"),
        localeOf("dd/MM/yy 'd''s'", "HH 'h' mm 'min' ss 's'", ":", "AM", "PM")};
    const std::string_view text = takeLine(input);
    for (const Locale& locale : known)
        if (const auto time = read(text, locale)) {
            checkShownAgain(*time, locale);
            checkParts(*time, text);
        }
    // The input's own formats may be ambiguous.
    std::string_view words[5];
    for (std::string_view& word : words)
        word = takeLine(input);
    const Locale own = localeOf(words[0], words[1], words[2], words[3], words[4]);
    if (const auto time = read(text, own)) {
        checkParts(*time, text);
        read(generalDate(*time, own), own);
    }
}

} // namespace

const Target dates{"dates", run};

} // namespace ko::fuzz

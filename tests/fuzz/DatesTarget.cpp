#include "fuzz/Targets.h"

#include "platform/DateTimes.h"
#include "platform/Failure.h"
#include "platform/Locales.h"

#include <optional>

namespace ko::fuzz {

namespace {

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
    const std::string_view text = takeLine(input);
    for (const Locale& locale :
         {test::english, test::german, test::japanese, test::finnish, test::korean, test::quoted})
        if (const auto time = read(text, locale)) {
            checkShownAgain(*time, locale);
            checkParts(*time, text);
        }
    // The input's own formats may be ambiguous.
    std::string_view words[5];
    for (std::string_view& word : words)
        word = takeLine(input);
    const Locale own = test::localeOf(words[0], words[1], words[2], words[3], words[4]);
    if (const auto time = read(text, own)) {
        checkParts(*time, text);
        read(generalDate(*time, own), own);
    }
}

} // namespace

const Target dates{"dates", run};

} // namespace ko::fuzz

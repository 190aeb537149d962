#include "platform/DateTimes.h"

#include "fakes/Thrown.h"
#include "platform/Locales.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <ctime>
#include <limits>
#include <ostream>
#include <sstream>

namespace ko {

void PrintTo(const DateParts& parts, std::ostream* out)
{
    *out << parts.year << '-' << parts.month << '-' << parts.day << ' ' << parts.hour << ':' << parts.minute << ':'
         << parts.second;
}

} // namespace ko

namespace ko::test {

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// Generates any second of the years 100 to 9999.
rc::Gen<DateTime> validTimes()
{
    return rc::gen::map(rc::gen::pair(rc::gen::inRange(-657434, 2958466), rc::gen::inRange(0, 86400)), [](auto at) {
        const double fraction = at.second / 86400.0;
        return DateTime{at.first < 0 ? at.first - fraction : at.first + fraction};
    });
}

} // namespace

TEST(DateTimes, partsAreThoseOfTheNearestSecond)
{
    const std::pair<double, DateParts> cases[] = {
        {0.0, {1899, 12, 30, 0, 0, 0}},
        {0.5, {1899, 12, 30, 12, 0, 0}},
        {-1.25, {1899, 12, 29, 6, 0, 0}},
        {-0.25, {1899, 12, 30, 6, 0, 0}},
        {46347.395833333336, {2026, 11, 21, 9, 30, 0}},
        {1.0 + 86399.4 / 86400, {1899, 12, 31, 23, 59, 59}},
        {1.0 + 86399.7 / 86400, {1900, 1, 1, 0, 0, 0}},
        {-1.0 - 86399.7 / 86400, {1899, 12, 30, 0, 0, 0}},
        {-657434.5, {100, 1, 1, 12, 0, 0}},
        {2958465.75, {9999, 12, 31, 18, 0, 0}},
    };
    for (const auto& [days, parts] : cases)
        EXPECT_EQ(dateParts({days}), parts) << days;
    for (const double days : {-657435.0, 2958466.0, 2958465.0 + 86399.7 / 86400, 1e300, notANumber})
        EXPECT_EQ(failureOf([&] { return dateParts({days}); }), failure::invalidCall) << days;
    EXPECT_EQ(datePart({1.0 + 86399.7 / 86400}), DateTime{2.0});
    EXPECT_EQ(timePart({1.0 + 86399.7 / 86400}), DateTime{0.0});
    EXPECT_EQ(datePart({-1.25}), DateTime{-1.0});
    EXPECT_EQ(timePart({-1.25}), DateTime{0.25});
}

TEST(DateTimes, serialsCarryPartsOutsideTheirRange)
{
    EXPECT_EQ(dateSerial(2026, 11, 21), DateTime{46347.0});
    EXPECT_EQ(dateSerial(2024, 3, 0), dateSerial(2024, 2, 29));
    EXPECT_EQ(dateSerial(2025, 14, 30), dateSerial(2026, 3, 2));
    EXPECT_EQ(dateSerial(2026, -11, 1), dateSerial(2025, 1, 1));
    EXPECT_EQ(dateSerial(10000, 0, 31), dateSerial(9999, 12, 31));
    EXPECT_EQ(dateSerial(2025, 13, 1), dateSerial(2026, 1, 1));
    EXPECT_EQ(dateSerial(2025, -12, 1), dateSerial(2023, 12, 1));
    EXPECT_EQ(dateSerial(100, 1, 1), DateTime{-657434.0});
    for (const int year : {99, 26, 10000, INT32_MAX, INT32_MIN})
        EXPECT_EQ(failureOf([&] { return dateSerial(year, 1, 1); }), failure::invalidCall) << year;
    EXPECT_EQ(failureOf([] { return dateSerial(2026, INT32_MIN, INT32_MIN); }), failure::invalidCall);
    EXPECT_EQ(timeSerial(9, 30, 0), DateTime{0.395833333333333315});
    EXPECT_EQ(timeSerial(0, 90, -30), timeSerial(1, 29, 30));
    EXPECT_EQ(timeSerial(30, 0, 0), DateTime{1.25});
    EXPECT_EQ(timeSerial(-6, 0, 0), DateTime{-1.75});
    EXPECT_EQ(failureOf([] { return timeSerial(INT32_MAX, 0, 0); }), failure::invalidCall);
}

RC_GTEST_PROP(DateTimes, partsAgreeWithTheSystemsCalendarAndPutTogetherGiveTheTime, ())
{
    const DateTime time = *validTimes();
    const DateParts parts = dateParts(time);
    const auto since1970 = static_cast<std::time_t>(dateDiffSeconds({25569.0}, time));
    std::tm expected{};
    RC_ASSERT(gmtime_r(&since1970, &expected) != nullptr);
    RC_ASSERT((parts == DateParts{expected.tm_year + 1900, expected.tm_mon + 1, expected.tm_mday, expected.tm_hour,
                                  expected.tm_min, expected.tm_sec}));
    RC_ASSERT(datePart(time) == dateSerial(parts.year, parts.month, parts.day));
    RC_ASSERT(timePart(time) == timeSerial(parts.hour, parts.minute, parts.second));
}

TEST(DateTimes, additionCountsFractionsAndRefusesWhatLeavesTheCalendar)
{
    struct Case {
        TimeUnit unit;
        double amount, from, to;
    };
    using enum TimeUnit;
    const Case cases[] = {{seconds, 0.4, 10.0, 10.0},
                          {seconds, 43200.6, 10.0, 10.0 + 43201.0 / 86400},
                          {minutes, 1.5, 0.0, 90.0 / 86400},
                          {hours, 1.0 / 3, 1.0, 1.0 + 1200.0 / 86400},
                          {days, 0.1, 1.0, 1.1},
                          {days, -0.5, 0.0, -1.5},
                          {hours, 6.0, -1.75, 0.0},
                          {days, 2958465.0, 0.0, 2958465.0}};
    for (const auto& [unit, amount, from, to] : cases)
        EXPECT_EQ(dateAdd(unit, amount, {from}), DateTime{to}) << amount << " units of " << secondsPerUnit(unit);
    DateTime time{46347.0};
    for (int step = 0; step < 100000; ++step)
        time = dateAdd(minutes, 1.0 / 60, time);
    EXPECT_EQ(time, DateTime{46347.0 + 100000.0 / 86400});
    for (const double amount : {notANumber, 1e300, -1e300, 1e7, std::numeric_limits<double>::infinity()})
        EXPECT_EQ(failureOf([&] { return dateAdd(days, amount, {1.0}); }), failure::invalidCall) << amount;
}

TEST(DateTimes, generalDateFollowsTheLocalesPictures)
{
    for (const auto& [year, shown] :
         {std::pair(1929, "1.1.1929"), {1930, "1.1.30"}, {2029, "1.1.29"}, {2030, "1.1.2030"}})
        EXPECT_EQ(generalDate(dateSerial(year, 1, 1), {.shortDateFormat = "d.M.yy"}), shown);
    const auto shown = [](const Locale& locale, std::initializer_list<double> times) {
        std::string all;
        for (const double days : times)
            all += generalDate({days}, locale) + "|";
        return all;
    };
    EXPECT_EQ(shown(english, {0.0, 0.5, 46347.0, 46347.395833333336, 1.0 + 86399.7 / 86400, -1.25}),
              "12:00:00 AM|12:00:00 PM|11/21/2026|11/21/2026 9:30:00 AM|1/1/1900|12/29/1899 6:00:00 AM|");
    EXPECT_EQ(shown(english, {1.0 - 1e-12, 0.4 / 86400 - 1.0}), "11:59:59 PM|11:59:59 PM|");
    EXPECT_EQ(shown(german, {1.0 - 0.4 / 86400, 46088.395833333336}), "23:59:59|07.03.2026 09:30:00|");
    EXPECT_EQ(shown(japanese, {46088.395833333336}), "2026/03/07 9:30:00|");
    EXPECT_EQ(shown(finnish, {46088.395833333336}), "7.3.2026 9.30.00|");
    EXPECT_EQ(shown(korean, {46088.645833333336, 2.0}), "26. 3. 7. P 3:30:00|1900. 1. 1.|");
    EXPECT_EQ(shown(quoted, {46088.395833333336}), "07/03/26 d's 09 h 30 min 00 s|");
    EXPECT_EQ(failureOf([] { return generalDate({notANumber}, english); }), failure::invalidCall);
}

RC_GTEST_PROP(DateTimes, generalDateIsReadBackToTheSecond, ())
{
    const DateTime time = *rc::gen::oneOf(
        validTimes(), rc::gen::map(rc::gen::inRange(0, 86400), [](int second) { return timeSerial(0, 0, second); }));
    for (const Locale& locale : {english, german, japanese, finnish, korean, quoted})
        RC_ASSERT(toDateTime(generalDate(time, locale), locale) == time);
}

TEST(DateTimes, aLocaleThatLosesSomethingIsCompleted)
{
    const auto with = [](const char* date, const char* time, const char* is24Hour = "0", const char* pm = "PM") {
        Locale locale;
        locale.shortDateFormat = date;
        locale.timeFormat = time;
        locale.timeIs24Hour = is24Hour;
        locale.pmDesignator = pm;
        return locale;
    };
    for (const Locale& locale : {english, german, japanese, finnish, korean, quoted})
        EXPECT_EQ(completed(locale), locale) << locale.timeFormat;
    const std::pair<Locale, Locale> cases[] = {
        {with("d.M", "h:mm:ss"), with("d.M'.'yyyy", "h:mm:ss tt")},
        {with("yyyy", "HH:mm"), with("yyyy/MM/dd", "H:mm:ss")},
        {with("d.M.yy", "H.mm.ss"), with("d.M.yyyy", "H.mm.ss")},
        {with("yyMMdd", "h:mm tt"), with("yyyyMMdd", "h:mm:ss tt")},
        {with("dMyyyy", ""), with("yyyy-MM-dd", "h:mm:ss tt")},
        {with("", "", "1"), with("MM/dd/yyyy", "H:mm:ss", "1")},
        {with("M/d/yyyy", "h:mm:ss tt", "0", ""), with("M/d/yyyy", "h:mm:ss tt")},
    };
    for (const auto& [given, whole] : cases)
        EXPECT_EQ(completed(given), whole) << given.shortDateFormat << " " << given.timeFormat;
}

RC_GTEST_PROP(DateTimes, everyCompletedLocaleReadsBack, ())
{
    const auto picture = rc::gen::container<std::string>(rc::gen::elementOf(std::string("yyMMddhHmmssstt.:/- '8")));
    const auto designator = rc::gen::element<std::string>("", "AM", "PM", "P", " x", "5");
    Locale given;
    given.shortDateFormat = *picture;
    given.timeFormat = *picture;
    given.timeSeparator = *rc::gen::element<std::string>("", ":", ".", "h", "1", "'");
    given.amDesignator = *designator;
    given.pmDesignator = *designator;
    const Locale locale = completed(given);
    for (const DateTime time : {*validTimes(), timeSerial(0, 0, *rc::gen::inRange(0, 86400))})
        RC_ASSERT(toDateTime(generalDate(time, locale), locale) == time);
}

TEST(DateTimes, textIsReadInTheLocalesOrderAndInCommonForms)
{
    struct Case {
        const char* text = nullptr;
        const Locale& locale;
        DateParts parts;
    };
    const Case cases[] = {
        {" \t11/21/2026  9:30:05 pm ", english, {2026, 11, 21, 21, 30, 5}},
        {"11-21-26", english, {2026, 11, 21, 0, 0, 0}},
        {"1.2.30 15:04", english, {1930, 1, 2, 15, 4, 0}},
        {"1/2/29 12:04am", english, {2029, 1, 2, 0, 4, 0}},
        {"2/29/2024", english, {2024, 2, 29, 0, 0, 0}},
        {"2026-11-21 15:04:05", english, {2026, 11, 21, 15, 4, 5}},
        {"2026-11-21 09:30", german, {2026, 11, 21, 9, 30, 0}},
        {"1/2/2026", german, {2026, 2, 1, 0, 0, 0}},
        {"1.2.0100 9:30 PM", german, {100, 2, 1, 21, 30, 0}},
        {"26-2-1", japanese, {2026, 2, 1, 0, 0, 0}},
        {"\xE5\x8D\x88\xE5\xBE\x8C 9:30", japanese, {1899, 12, 30, 21, 30, 0}},
        {"1.02.03", finnish, {1899, 12, 30, 1, 2, 3}},
        {"1.2.03", finnish, {2003, 2, 1, 0, 0, 0}},
        {"1.2.2003 1.02 IP.", finnish, {2003, 2, 1, 13, 2, 0}},
        {"am 9:30:00", korean, {1899, 12, 30, 9, 30, 0}},
        {"15:30 PM", english, {1899, 12, 30, 15, 30, 0}},
    };
    for (const auto& [text, locale, parts] : cases)
        EXPECT_EQ(dateParts(toDateTime(text, locale)), parts) << text;
}

TEST(DateTimes, textThatIsNoDateOrTimeIsRefused)
{
    std::istringstream texts(
        "|  |noon|2/30/2026|2/29/1900|13/1/2026|21/11/2026|11/21|0/1/2026|1/0/2026|1/1/12026|1/1/0099|"
        "1/1-2026|1 / 1 / 2026|26-11-21|2026/11/21|2026-02-30|25:00|24:00|9:60|9:30:60|9|9 "
        "AM|9:5|011/21/2026|11/021/2026|009:30|9:030|9:30:005|"
        "13:00 AM|0:30 PM|9:30 XM|9:30 AM PM|9:30:|:30|11/21/2026 25:00|11/21/20269:30|"
        "11/21/2026 9:30 x|9:30 11/21/2026|-1|46347|9:30:00.5");
    for (std::string text; std::getline(texts, text, '|');)
        EXPECT_EQ(failureOf([&] { return toDateTime(text, english); }), failure::typeMismatch) << text;
}

} // namespace ko::test

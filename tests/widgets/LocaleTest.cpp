#include "platform/DateTimes.h"
#include "platform/NumberText.h"
#include "widgets/services/QtServices.h"

#include <QLocale>
#include <gtest/gtest.h>

namespace ko::test {
namespace {

TEST(QtLocale, PicturesTheSystemsFormatsAndFallsBackWhereThePlatformHasNoWordsForThem)
{
    struct Case {
        const char* name;
        const char *decimal, *date, *time, *is24Hour, *leadingZero, *separator;
    };
    for (const Case& it : {Case{"en_US", ".", "M/d/yyyy", "h:mm:ss tt", "0", "0", ":"},
                           {"de_DE", ",", "dd.MM.yyyy", "HH:mm:ss", "1", "1", ":"},
                           {"fi_FI", ",", "d.M.yyyy", "H.mm.ss", "1", "0", "."},
                           {"bg_BG", ",", "yyyy-MM-dd", "HH:mm:ss", "1", "1", ":"},
                           {"ar_EG", ".", "d/M/yyyy", "h:mm:ss tt", "0", "0", ":"},
                           {"ko_KR", ".", "yyyy. M. d.", "h:mm:ss tt", "0", "0", ":"}}) {
        const Locale locale = toLocale(QLocale(QString(it.name)));
        EXPECT_EQ(locale.decimalSeparator, it.decimal) << it.name;
        EXPECT_EQ(locale.shortDateFormat, it.date) << it.name;
        EXPECT_EQ(locale.timeFormat, it.time) << it.name;
        EXPECT_EQ(locale.timeIs24Hour, it.is24Hour) << it.name;
        EXPECT_EQ(locale.timeLeadingZero, it.leadingZero) << it.name;
        EXPECT_EQ(locale.timeSeparator, it.separator) << it.name;
    }
    EXPECT_EQ(toLocale(QLocale::c()), Locale());
}

TEST(QtLocale, EveryNumberDateAndTimeReadsBackInEveryLocaleAsItIsShownAndAsItIsTyped)
{
    const auto locales = QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
    const double noon = timeSerial(12, 0, 5).days;
    const std::vector<double> days{dateSerial(2026, 5, 7).days + timeSerial(21, 3, 4).days,
                                   dateSerial(1931, 12, 31).days + timeSerial(0, 59, 58).days,
                                   dateSerial(1912, 11, 10).days + noon,
                                   dateSerial(150, 2, 1).days - noon,
                                   dateSerial(9999, 10, 9).days,
                                   timeSerial(9, 0, 0).days,
                                   0.0};
    ASSERT_GT(locales.size(), 100);
    for (const QLocale& one : locales) {
        const Locale locale = toLocale(one);
        SCOPED_TRACE(one.bcp47Name().toStdString());
        for (const double day : days) {
            const std::string text = generalDate({day}, locale);
            EXPECT_NEAR(toDateTime(text, locale).days, day, 1e-6) << text;
            for (const char* const untypeable : {"\u00a0", "\u202f", "\u200e", "\u200f"})
                EXPECT_EQ(text.find(untypeable), std::string::npos) << text;
        }
        for (const double number : {-1234567.5, 1e-7, 0.001})
            EXPECT_EQ(toDouble(numberText(number, locale), locale), number);
        const std::string digits = "0123456789";
        EXPECT_EQ(locale.decimalSeparator.find_first_of(digits + "+-eE \t"), std::string::npos);
        EXPECT_NE(locale.decimalSeparator, locale.digitGroupSeparator);
    }
}

} // namespace
} // namespace ko::test

#include "platform/NumberText.h"

#include "fakes/Thrown.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <cstdio>
#include <limits>
#include <regex>
#include <vector>

namespace ko::test {

namespace {

const Locale english;
const Locale german = [] {
    Locale locale;
    locale.decimalSeparator = ",";
    return locale;
}();
const Locale persian = [] {
    Locale locale;
    locale.decimalSeparator = "\xD9\xAB"; // two bytes
    return locale;
}();

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

TEST(NumberText, showsTheGeneralForm)
{
    std::string texts;
    for (const double value : {2.0, 1.5, 1.0 / 3.0, 100.0 / 60.0, 0.1 + 0.2, -0.0, 0.0001, 0.00009999999999999999,
                               0.00009999, 3.90625e-05, 123456789012345.0, 999999999999999.0, 999999999999999.9, -1e15,
                               -1e300, 5e-324, infinity, -infinity, notANumber})
        texts += numberText(value, english) + " ";
    EXPECT_EQ(texts, "2 1.5 0.333333333333333 1.66666666666667 0.3 0 0.0001 0.0001 9.999E-05 3.90625E-05 "
                     "123456789012345 999999999999999 1E+15 -1E+15 -1E+300 4.94065645841247E-324 INF -INF NAN ");
    EXPECT_EQ(numberText(-3.90625e-05, german), "-3,90625E-05");
    EXPECT_EQ(numberText(0.5, persian), "0\xD9\xAB"
                                        "5");
}

TEST(NumberText, isReadInTheLocaleAndNothingElseIsANumber)
{
    struct Case {
        const char* text;
        double value;
    };
    const Case numbers[] = {{" \t42 ", 42.0},
                            {"+1.5", 1.5},
                            {"-.5", -0.5},
                            {"5.", 5.0},
                            {"1e3", 1000.0},
                            {"1E+03", 1000.0},
                            {"2.5e-1", 0.25},
                            {"007", 7.0},
                            {"1e-400", 0.0},
                            {"-1e-99999999999999999999", 0.0},
                            {"1e-9000000000000000000", 0.0},
                            {"0e99999999999999999999", 0.0},
                            {"5e-324", 5e-324}};
    for (const auto& [text, value] : numbers)
        EXPECT_EQ(toDouble(text, english), value) << text;
    EXPECT_EQ(toDouble("-1,25", german), -1.25);
    EXPECT_EQ(toDouble("1\xD9\xAB"
                       "25",
                       persian),
              1.25);
    for (const char* text : {"",    " ",   "-",    "+-1", ".",   "e5",  "1e",  "1e+",       "1.2.3", "1,5",
                             "1 2", "- 1", "0x10", "inf", "nan", "INF", "1d3", "12 apples", "1e5.5", "\xD9\xAB"}) {
        EXPECT_FALSE(isNumeric(text, english)) << text;
        EXPECT_EQ(failureOf([&] { return toDouble(text, english); }), failure::typeMismatch) << text;
    }
    EXPECT_FALSE(isNumeric("1.5", german));
    for (const char* text : {"1e309", "-1e309", "1e99999999999999999999", "1e9000000000000000000", "123456789e301"})
        EXPECT_EQ(failureOf([&] { return toDouble(text, english); }), failure::overflow) << text;
    EXPECT_EQ(failureOf([] { return toDouble(std::string(400, '9'), english); }), failure::overflow);
    EXPECT_EQ(toDouble("0." + std::string(400, '0') + "1e401", english), 1.0);
    EXPECT_EQ(toDouble("." + std::string(400, '0') + "1", english), 0.0);
}

RC_GTEST_PROP(NumberText, isNumericForJustTheTextsOfTheGrammar, ())
{
    static const std::regex grammar(R"([ \t]*[+-]?([0-9]+\.?[0-9]*|\.[0-9]+)([eE][+-]?[0-9]+)?[ \t]*)");
    const auto character = rc::gen::elementOf(std::string("0123. eE+-,x\t"));
    const auto text = rc::gen::resize(7, rc::gen::container<std::string>(character));
    for (const std::string& one : *rc::gen::container<std::vector<std::string>>(200, text))
        RC_ASSERT(isNumeric(one, english) == std::regex_match(one, grammar));
}

RC_GTEST_PROP(NumberText, shownAndReadBackKeepsFifteenDigits, (double value))
{
    const double scaled = std::ldexp(value, *rc::gen::inRange(-700, 700));
    RC_PRE(std::isfinite(scaled));
    const double back = toDouble(numberText(scaled, german), german);
    // Half a step of the 15th digit, and the rounding of what is read.
    RC_ASSERT(std::abs(back - scaled) <= std::abs(scaled) * (5e-15 + std::numeric_limits<double>::epsilon()));
    RC_ASSERT(numberText(back, german) == numberText(scaled, german));
    char reference[40];
    std::snprintf(reference, sizeof reference, "%.15G", scaled == 0.0 ? 0.0 : scaled);
    RC_ASSERT(numberText(scaled, english) == reference);
}

TEST(NumberText, wholeNumbersRoundHalvesToEvenAndRefuseWhatDoesNotFit)
{
    const std::pair<double, std::int32_t> cases[] = {{0.5, 0},
                                                     {1.5, 2},
                                                     {2.5, 2},
                                                     {-0.5, 0},
                                                     {-1.5, -2},
                                                     {-2.5, -2},
                                                     {2.51, 3},
                                                     {0.49999999999999994, 0},
                                                     {2147483647.4, 2147483647},
                                                     {-2147483648.5, INT32_MIN}};
    for (const auto& [value, whole] : cases)
        EXPECT_EQ(toLong(value), whole) << value;
    EXPECT_EQ(toLong(" 1023,5 ", german), 1024);
    for (const double value : {2147483647.5, -2147483649.0, 1e300, infinity, notANumber})
        EXPECT_EQ(failureOf([&] { return toLong(value); }), failure::overflow) << value;
    EXPECT_EQ(failureOf([] { return toLong("3e9", english); }), failure::overflow);
}

TEST(NumberText, singlesNarrowToTheNearestAndWidenByTheirShortestForm)
{
    constexpr float largest = std::numeric_limits<float>::max();
    EXPECT_EQ(widen(0.1f), 0.1);
    EXPECT_EQ(widen(-1.0e-7f), -1.0e-7);
    EXPECT_EQ(widen(16777216.0f), 16777216.0);
    EXPECT_EQ(widen(std::numeric_limits<float>::infinity()), infinity);
    EXPECT_EQ(toSingle(0.1), 0.1f);
    EXPECT_EQ(toSingle(std::nextafter(static_cast<double>(largest), infinity)), largest);
    for (const double value : {0x1.ffffffp127, -1e39, infinity, notANumber})
        EXPECT_EQ(failureOf([&] { return toSingle(value); }), failure::overflow) << value;
}

TEST(NumberText, leadingNumberTakesWhatTheTextBeginsWith)
{
    const std::pair<const char*, double> cases[] = {
        {"12 apples", 12.0}, {"", 0.0},  {"apples 12", 0.0}, {" -1 2.5x", -12.5}, {"1e", 1.0},        {"1e2e3", 100.0},
        {"3,5", 3.0},        {".", 0.0}, {"-", 0.0},         {"1.5.2", 1.5},      {"1e999", infinity}};
    for (const auto& [text, value] : cases)
        EXPECT_EQ(leadingNumber(text), value) << text;
}

} // namespace ko::test

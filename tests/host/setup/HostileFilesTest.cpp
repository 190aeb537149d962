#include "host/scenario/Scenario.h"
#include "host/setup/RefusalOf.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <sstream>

namespace ko::test {
namespace {

std::string withTitle(const std::string& title)
{
    return R"({"drivers": [], "title": ")" + title + "\"}";
}

std::string withTimebase(const std::string& members)
{
    return R"({"drivers": [{"name": "d", "timebase": {)" + members + "}}]}";
}

std::size_t longOr(std::size_t many, std::size_t few)
{
    return std::getenv("KO_LONG_RUN") ? many : few;
}

TEST(HostileFilesTest, AnEncodingThatIsNotUtf8IsRefusedAndAMarkOfUtf8Taken)
{
    EXPECT_EQ(refusalOf("\xEF\xBB\xBF" + withTitle("B\xC3\xA4nch")), "");
    const std::string texts[] = {
        withTitle("\xFF"),
        withTitle("\xC3"),                 // cut off
        withTitle("\xC0\xAF"),             // overlong
        withTitle("\xED\xA0\x80"),         // half a surrogate pair
        withTitle("\\ud800"),              // the same, escaped
        withTitle(std::string("a\0b", 3)), // a NUL byte
        std::string("\xFF\xFE{\0}\0", 6),  // UTF-16
        "B\xE4nch" + withTitle("x"),       // Latin-1
    };
    for (const std::string& text : texts)
        EXPECT_EQ(refusalOf(text).rfind("bench.json:1: ", 0), 0U) << testing::PrintToString(text) << refusalOf(text);
}

TEST(HostileFilesTest, ANumberBeyondItsTypeIsRefused)
{
    EXPECT_EQ(refusalOf(withTimebase(R"("startTime": 1e-400)")), "");
    const std::string members[] = {
        R"("startTime": 1e400)",
        R"("startTime": -1e400)",
        R"("startTime": NaN)",
        R"("startTime": Infinity)",
        R"("startTime": 1)" + std::string(400, '0'),
        R"("startMode": 99999999999999999999)",
        R"("samplePeriod": {"value": 1e999})",
        R"("samplePeriod": {"value": 1, "choices": [1e999]})",
    };
    for (const std::string& member : members)
        EXPECT_EQ(refusalOf(withTimebase(member)).rfind("bench.json:1: ", 0), 0U) << member;
}

TEST(HostileFilesTest, AFileOfNothingButNestingIsRefusedBeforeItIsRead)
{
    const std::size_t size = longOr(100'000'000, 1'000'000);
    EXPECT_EQ(refusalOf(std::string(size, '[')), "bench.json:1: nested too deep");
    std::string objects = "{";
    while (objects.size() < size)
        objects += R"("drivers":{)";
    EXPECT_EQ(refusalOf(objects), "bench.json:1: nested too deep");
}

TEST(HostileFilesTest, AsManyDriversAsThereIsRoomForMakeAPageThatWorks)
{
    const std::size_t count = longOr(1'000'000, 10'000);
    std::string text = R"({"drivers": [)";
    for (std::size_t i = 0; i < count; ++i)
        text += R"({"name":"d","timebase":{"samplePeriod":{"value":0.1,"choices":[0.1,0.2]}}},)";
    text.back() = ']';
    std::ostringstream output;
    std::istringstream script("quiet on\nsetup\nshow\nchoose cmbSamplePeriod 0.2\nexpect lblSpanValue caption "
                              "\"1.953125 Hz\"\nclick optStartTime\nexpect optStartTime value true\n");
    Scenario scenario({parseSetup(text + "}", "bench.json"), {}, {}, {}}, output);
    EXPECT_TRUE(scenario.run(script)) << output.str().substr(0, 2000);
}

} // namespace
} // namespace ko::test

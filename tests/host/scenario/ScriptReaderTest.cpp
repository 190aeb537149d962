#include "host/scenario/ScriptReader.h"

#include <gtest/gtest.h>
#include <sstream>

namespace ko {
namespace {

using Words = std::vector<std::string>;

TEST(ScriptReaderTest, ALineIsSplitAtBlanksOutsideOfQuotes)
{
    const std::pair<const char*, Words> cases[]{
        {"show", {"show"}},
        {"  text\ttxtSampleRate   12.5 \r", {"text", "txtSampleRate", "12.5"}},
        {R"(type "a b" "" c)", {"type", "a b", "", "c"}},
        {R"(type "a\"b\\c\nd")", {"type", "a\"b\\c\nd"}},
        {R"(type a"b\n #2)", {"type", "a\"b\\n", "#2"}},
        {"type \xC3\xA4\xFF", {"type", "\xC3\xA4\xFF"}},
    };
    for (const auto& [line, words] : cases)
        EXPECT_EQ(splitWords(line, 1), words) << line;
    for (const char* const faulty : {R"(type ")", R"(type "a\)", R"(type "a\t")", R"(type "a"b)", R"(type "a\")"})
        EXPECT_THROW(splitWords(faulty, 1), ScriptFault) << faulty;
}

TEST(ScriptReaderTest, BlankLinesAndCommentsCountButAreSkipped)
{
    std::istringstream input("\xEF\xBB\xBF# heading\n\n   \r\n  # more\nshow\n\nhide");
    ScriptReader reader(input);
    EXPECT_EQ(reader.next(), (ScriptLine{5, {"show"}}));
    EXPECT_EQ(reader.next(), (ScriptLine{7, {"hide"}}));
    EXPECT_EQ(reader.next(), std::nullopt);
}

TEST(ScriptReaderTest, ABlockEndsWithItsEndOrIsAFaultOfTheLineThatOpenedIt)
{
    std::istringstream input("key F1\n# x\nend\nshow\n");
    ScriptReader reader(input);
    EXPECT_EQ(reader.block(9), (std::vector<ScriptLine>{{1, {"key", "F1"}}, {3, {"end"}}}));
    try {
        reader.block(4);
        FAIL() << "taken";
    } catch (const ScriptFault& fault) {
        EXPECT_EQ(fault.line(), 4);
    }
}

} // namespace
} // namespace ko

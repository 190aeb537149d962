#include "platform/Utf8.h"

#include <gtest/gtest.h>

namespace ko::test {
namespace {

TEST(Utf8, ATextIsCutBetweenCharactersAndShownWithoutTurningMarks)
{
    const std::pair<std::size_t, const char*> cases[] = {{9, "a\u00e4\u20acb"},
                                                         {7, "a\u00e4\u20acb"},
                                                         {6, "a\u00e4\u20ac"},
                                                         {5, "a\u00e4"},
                                                         {3, "a\u00e4"},
                                                         {2, "a"},
                                                         {1, "a"},
                                                         {0, ""}};
    for (const auto& [bytes, text] : cases)
        EXPECT_EQ(shortened("a\u00e4\u20acb", bytes), text) << bytes;
    EXPECT_EQ(shortened("\u20ac", 1), "");
    EXPECT_EQ(withoutDirections("\u2029 \u202A\u202E \u202F \u2065 \u2066\u2069 \u206A x"),
              "\u2029 \uFFFD\uFFFD \u202F \u2065 \uFFFD\uFFFD \u206A x");
}

} // namespace
} // namespace ko::test

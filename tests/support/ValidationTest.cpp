#include "support/Validation.h"
#include "fakes/FakePlatform.h"

#include <gtest/gtest.h>

#include <limits>

namespace ko::test {
namespace {

constexpr auto Long = NumberType::Long;
constexpr auto Double = NumberType::Double;
constexpr auto Integer = NumberType::Integer;
constexpr auto Float = NumberType::Float;
constexpr double inf = std::numeric_limits<double>::infinity();

const char* const integerWanted = "A valid integer is required.";
const char* const realWanted = "A valid real number is required.";
const char* const integerRange = "A valid integer in the range 16 to 4096 is required.";
const char* const realRange = "A valid real number in the range 0.5 to 2 is required.";

struct Case {
    std::string text;
    NumberType type;
    NumberBounds bounds;
    std::optional<double> read;
    std::string message;
};

TEST(ValidationTest, ReadsWhatTheTypeAndTheBoundsAllowAndSaysWhyNot)
{
    const NumberBounds blocks{16, 4096};
    const NumberBounds period{0.5, 2.0, true};
    const NumberBounds positive{{}, {}, true};
    const NumberBounds tiny{1e-10, 1.0, true};
    const NumberBounds fastest{{}, 1 / 1e-9, true};
    const Case cases[] = {
        {"1e-320", Double, positive, {}, realWanted}, // it has no reciprocal
        {"1024", Long, blocks, 1024, ""},
        {"1e3", Long, blocks, 1000, ""},
        {" +16 ", Long, blocks, 16, ""},
        {"16.5", Long, blocks, 16, ""},
        {"17.5", Long, blocks, 18, ""},
        {"15", Long, blocks, {}, integerRange},
        {"4097", Long, blocks, {}, integerRange},
        {"3e9", Long, blocks, {}, integerRange},
        {"", Long, blocks, {}, integerWanted},
        {"1,024", Long, blocks, {}, integerWanted},
        {"0", Long, {0.0, 0.0}, 0, ""},
        {"5", Long, {9.0, 3.0}, {}, "A valid integer in the range 9 to 3 is required."},
        {"0", Long, {0.4, 9.6}, {}, "A valid integer in the range 1 to 9 is required."},
        {"10", Integer, {-0.4, 9.0 + 1e-10}, {}, "A valid integer in the range 0 to 9 is required."},
        {"1", Integer, {0.4, 0.6}, {}, "A valid integer in the range 0.4 to 0.6 is required."},
        {"1", Integer, {{}, 0.6}, {}, integerWanted},
        {"2", Double, period, 2, ""},
        {"2.0000000005", Double, period, 2.0000000005, ""},
        {"2.000000002", Double, period, {}, realRange},
        {"-", Double, period, {}, realWanted},
        {"1e999", Double, period, {}, realRange},
        {"inf", Double, positive, {}, realWanted},
        {"0", Double, positive, {}, realWanted},
        {"0", Double, tiny, {}, "A valid real number in the range 1E-10 to 1 is required."},
        {"1000000000", Double, fastest, 1e9, ""},
        {"1000000001", Double, fastest, {}, realWanted},
        {"1", Double, {-inf, inf}, 1, ""},
        {"abc", Integer, blocks, {}, integerWanted},
        {"9999", Integer, blocks, {}, integerRange},
        {"3", Float, period, {}, realRange},
        {"3", Float, {{}, 2.0}, {}, integerWanted},
    };
    for (const Case& it : cases) {
        FakePlatform host;
        const Support support(host.platform, {});
        EXPECT_EQ(readNumber(support, it.text, it.type, it.bounds, true), it.read) << it.text;
        EXPECT_EQ(validateNumber(support, it.text, it.type, it.bounds, false), it.read.has_value()) << it.text;
        const auto expected = it.message.empty() ? std::vector<std::string>{}
                                                 : std::vector<std::string>{"Invalid input: " + it.message + " (48)"};
        EXPECT_EQ(host.messages, expected) << it.text;
    }
}

TEST(ValidationTest, UsesTheLocalesDecimalSeparator)
{
    FakePlatform host;
    host.platform.locale.decimalSeparator = ",";
    const Support support(host.platform, {});
    EXPECT_EQ(readNumber(support, "0,75", Double, {0.5, 1.5}, true), 0.75);
    EXPECT_FALSE(validateNumber(support, "2,5", Double, {0.5, 1.5}, true));
    EXPECT_EQ(host.messages.back(), "Invalid input: A valid real number in the range 0,5 to 1,5 is required. (48)");
}

} // namespace
} // namespace ko::test

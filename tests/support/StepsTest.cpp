#include "support/Steps.h"
#include "fakes/FakePlatform.h"

#include <gtest/gtest.h>

namespace ko::test {
namespace {

using Texts = std::vector<std::string>;

class StepsTest : public testing::Test {
protected:
    FakePlatform host;
    StringTable strings;
    int created = 0;
    Errors errors{strings, [this] {
                      ++created;
                      return host.platform.createErrorReporter();
                  }};
    Steps step{errors, "cmdAny_Click"};
};

TEST_F(StepsTest, EachFailureIsReportedOnceAndTheNextStepRuns)
{
    bool ran = false;
    EXPECT_FALSE(step([] { throw Failure(1234, "driver says no"); }));
    EXPECT_EQ(step.value([]() -> double { throw std::runtime_error("plain"); }), 0.0);
    EXPECT_EQ(step.value([]() -> std::string { throw 7; }), "");
    EXPECT_EQ(step.value([]() -> Form* { fail(failure::noObject); }), nullptr);
    EXPECT_FALSE(step.value([]() -> bool { fail(failure::overflow); }));
    EXPECT_TRUE(step([&] { ran = true; }));
    EXPECT_TRUE(ran);
    EXPECT_EQ(step.value([] { return 3; }), 3);
    const std::string source = "KoTimebaseEditor:cmdAny_Click ";
    EXPECT_EQ(host.reports, (Texts{source + "1234: driver says no", source + "-2147467259: plain",
                                   source + "-2147467259: Unspecified error", source + "91: Object variable not set",
                                   source + "6: Overflow"}));
    EXPECT_EQ(created, 1) << "the reporter is made on first use and kept";
}

TEST_F(StepsTest, AReporterThatFailsEndsTheHandlerQuietly)
{
    host.reporterFails = true;
    bool ran = false;
    EXPECT_FALSE(step([] { fail(failure::overflow); }));
    EXPECT_FALSE(step([&] { ran = true; }));
    EXPECT_EQ(step.value([] { return 3; }), 0);
    EXPECT_FALSE(ran);
    const Steps none(errors, "second");
    EXPECT_TRUE(none([&] { ran = true; })) << "another handler is not ended";

    Errors without(strings, nullptr);
    const Steps lost(without, "third");
    EXPECT_FALSE(lost([] { fail(failure::overflow); }));
    EXPECT_FALSE(lost([] {}));
}

} // namespace
} // namespace ko::test

#include "support/Steps.h"
#include "fakes/FakeDriver.h"
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

TEST_F(StepsTest, AnEventIsOverOnceTheListIsAnotherAndSoAreTheProceduresThatItCalls)
{
    Events& events = errors.events;
    std::vector<std::string> ran;
    const auto procedure = [&](const char* name, Steps::Begin begin = Steps::Begin::Within) {
        const Steps inner(errors, name, begin);
        inner([&] { ran.emplace_back(name); });
    };
    EXPECT_FALSE(step([&] {
        events.supersede({});
        procedure("host's call within a step");
    }));
    EXPECT_EQ(step.value([] { return 3; }), 0);
    procedure("called between the steps");
    procedure("host's call between the steps", Steps::Begin::Anew);
    EXPECT_EQ(ran, (Texts{"host's call within a step", "host's call between the steps"}));
    EXPECT_TRUE(step.isOver());
    EXPECT_FALSE(Steps(errors, "next event", Steps::Begin::Anew).isOver());
    events.end({});
    EXPECT_TRUE(Steps(errors, "of an ended document", Steps::Begin::Anew).isOver());
}

TEST_F(StepsTest, AnOldListLivesUntilTheOutermostEventHasReturned)
{
    Errors document(errors);
    const auto driver = std::make_shared<FakeDriver>();
    {
        const Steps outer(document, "outer");
        outer([&] {
            const Steps inner(document, "inner");
            document.events.supersede({driver});
        });
        EXPECT_EQ(driver.use_count(), 2);
    }
    EXPECT_EQ(driver.use_count(), 1);
    document.events.supersede({driver});
    EXPECT_EQ(driver.use_count(), 1) << "no event is in progress";
}

} // namespace
} // namespace ko::test

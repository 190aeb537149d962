#include "ScheduleFixture.h"

#include <cmath>

namespace ko::test {
namespace {

/// The page's reaction to settings that the drivers refuse or change.
class ScheduleReadBack : public ScheduleTest {
protected:
    /// Every change that the user can make to the schedule of a page that starts and stops at a time.
    std::vector<std::pair<const char*, std::function<void()>>> changesAtTime()
    {
        return {{"start", [this] { start(0).userClicked(); }},
                {"stop", [this] { stop(0).userClicked(); }},
                {"start time",
                 [this] {
                     pickTime(page().cmdStartTime, {0, 0, 0, 7, 0, 0}, false);
                 }},
                {"stop time", [this] {
                     pickTime(page().cmdStopTime, {0, 0, 0, 9, 0, 0}, false);
                 }}};
    }
    std::vector<std::pair<const char*, std::function<void()>>> changesOfDuration()
    {
        return {{"duration", [this] { replace(page().txtDuration, "20"); }},
                {"unit", [this] {
                     ASSERT_TRUE(page().moveFocus(&page().cmbInterval));
                     page().cmbInterval.userChose(1);
                 }}};
    }
};

TEST_F(ScheduleReadBack, WhatASingleKeepsOfADurationIsShownAtOnceInTimesAndOnLeavingInItsBox)
{
    openTwo(1, 0, "11/21/2026 1:00:00 PM");
    for (const auto& driver : fakes) {
        driver->bytes = nullptr;
        driver->samplePeriod = 1;
    }
    const struct {
        const char* typed;
        float held;
        const char *plan, *left;
    } cases[] = {{"16777217", 16777216, "records 16777216 s", "16777216"},
                 {"-5e-10", 0, "records 0 s", "0"},
                 {"1.50", 1.5, "records 1.5 s", "1.5"},
                 {"-0", 0, "records 0 s", "0"}};
    for (const auto& it : cases) {
        replace(page().txtDuration, it.typed);
        EXPECT_EQ(page().txtDuration.text(), it.typed) << "while it is typed";
        EXPECT_NE(plan().find(it.plan), std::string::npos) << plan();
        page().moveFocus(&page().optAfter);
        EXPECT_EQ(page().txtDuration.text(), it.left);
        EXPECT_EQ(fakes[1]->duration, it.held);
        EXPECT_FALSE(std::signbit(fakes[1]->duration));
    }
    stop(1).userClicked();
    for (const char* startTime : {"11/21/2026 1:00:00 PM", "1:00:00 PM"}) {
        const DateTime wanted = toDateTime(startTime, {});
        const DateTime from = wanted.hasDate() ? wanted : toDateTime("11/21/2026 1:00:00 PM", {});
        pickTime(page().cmdStartTime, dateParts(wanted), wanted.hasDate());
        pickTime(page().cmdStopTime, dateParts(dateAdd(TimeUnit::seconds, 16777217, from)));
        const std::string kept = generalDate(dateAdd(TimeUnit::seconds, 16777216, from), {});
        EXPECT_EQ(page().txtStopTime.text(), kept);
        EXPECT_NE(plan().find("records until " + kept), std::string::npos) << plan();
    }
}

TEST_F(ScheduleReadBack, AfterARefusalTheLastDurationIsShownWhetherItCanBeReadOrNot)
{
    for (const std::set<std::string>& failing : {std::set<std::string>{}, {"Duration"}}) {
        openAnew();
        type(page().txtDuration, "12");
        failIn(failing);
        page().txtDuration.userReplaced("2000", 0, 0);
        EXPECT_EQ(page().txtDuration.text(), "12") << "beyond the limit";
        page().txtDuration.userReplaced("x", 0, 0);
        EXPECT_FALSE(page().moveFocus(&page().optAfter));
        EXPECT_EQ(page().txtDuration.text(), "12") << "no number";
        EXPECT_EQ(page().txtDuration.selLength(), 2U);
        ASSERT_TRUE(page().moveFocus(&page().cmbInterval));
        page().cmbInterval.userChose(2);
        EXPECT_EQ(page().txtDuration.text() + page().cmbInterval.text(), "12seconds") << "beyond the limit";
        EXPECT_EQ(page().txtDuration.selLength(), 0U) << "the focus is in the list";
        EXPECT_EQ(host.takeMessages().size(), 3U);
        EXPECT_EQ(host.takeReports().empty(), failing.empty());
        EXPECT_EQ(held(), Texts(2, failing.empty() ? "0 0 8:00:00 AM 12" : "0 0 8:00:00 AM 43200"));
    }
}

TEST_F(ScheduleReadBack, ThePlannedDurationIsThatOfTheDriversAlsoAfterEscapeAndARefusedUnit)
{
    openTwo(0, 0, "8:00:00 AM", 100);
    const auto expectHeld = [this](const char* what) {
        EXPECT_EQ(page().figures.plannedSeconds, widen(fakes[0]->duration)) << what;
    };
    expectHeld("as opened, in minutes");
    ASSERT_TRUE(page().moveFocus(&page().txtDuration));
    page().txtDuration.userReplaced("7", 0, 0);
    page().txtDuration.userUndid();
    expectHeld("after Escape");
    ASSERT_TRUE(page().moveFocus(&page().cmbInterval));
    for (const std::int32_t unit : {0, 3}) {
        page().cmbInterval.userChose(unit);
        expectHeld("in another unit");
    }
    EXPECT_EQ(host.takeMessages().size(), 1U) << "the second unit is beyond the limit";
    EXPECT_EQ(page().cmbInterval.index(), 1);
}

TEST_F(ScheduleReadBack, AChangeThatNoDriverTakesIsPutBackWithoutANotificationAndCanBeMadeLater)
{
    const std::set<std::string> writes{"setDuration", "setStartMode", "setStartTime", "setStopMode"};
    std::set<std::string> all = writes;
    all.insert({"Duration", "StartMode", "StartTime", "StopMode"});
    const char* const decisive[] = {"setStartMode", "setStopMode", "setStartTime", "setDuration"};
    for (const bool atTime : {false, true})
        for (std::set<std::string> failing : {writes, all, {}})
            for (std::size_t i = 0; i < (atTime ? 4U : 2U); ++i) {
                openAnew(atTime, atTime, "8:00:00 AM", 30);
                for (const auto& driver : fakes)
                    driver->bytes = nullptr;
                const auto [name, change] = (atTime ? changesAtTime() : changesOfDuration())[i];
                const std::string before = shown();
                const Texts heldBefore = held();
                host.changes = 0;
                if (failing.size() < 2) // a part of the change is taken
                    failing = {atTime ? decisive[i] : "setDuration"};
                failIn(failing);
                change();
                EXPECT_EQ(held(), heldBefore) << name;
                EXPECT_EQ(shown(), before) << name;
                EXPECT_EQ(host.changes, 0) << name;
                EXPECT_FALSE(host.takeReports().empty()) << name;
                failIn({});
                change();
                EXPECT_NE(shown(), before) << name;
                EXPECT_EQ(host.changes, 1) << name;
            }
}

TEST_F(ScheduleReadBack, ADriverThatTakesAPartOfAChangeGetsItsOldValuesBackWhileTheOthersKeepIt)
{
    openTwo(1, 1, "8:00:00 AM", 50);
    fakes[1]->failing = {"setStartTime"};
    host.changes = 0;
    pickTime(page().cmdStartTime, {0, 0, 0, 7, 59, 0}, false);
    EXPECT_EQ(held(), (Texts{"1 1 7:59:00 AM 110", "1 1 8:00:00 AM 50"}));
    EXPECT_EQ(host.changes, 1);
    host.takeReports();
}

TEST_F(ScheduleReadBack, APageThatIsBuiltShowsWhatItWroteWhereReadingBackFails)
{
    openTwo(1, 1, "8:00:00 AM", 50);
    const std::string before = shown();
    for (const char* operation : {"StartMode", "StartTime", "StopMode", "Duration"}) {
        failIn({operation});
        document->UserDocument_Show();
        EXPECT_EQ(shown(), before) << operation;
        EXPECT_FALSE(host.takeReports().empty()) << operation;
    }
}

TEST_F(ScheduleReadBack, AChangeThatCannotBeReadBackIsNotifiedAndTheBoxShowsTheValueOnceItCanBeRead)
{
    openTwo();
    for (const auto& driver : fakes)
        driver->keepsDuration = [](float seconds) { return std::min(seconds, 15.0F); };
    host.changes = 0;
    failIn({"Duration"});
    type(page().txtDuration, "6");
    EXPECT_EQ(host.changes, 1);
    page().txtDuration.userTyped("0");
    host.takeReports();
    failIn({});
    EXPECT_EQ(page().txtDuration.text(), "60");
    page().moveFocus(&page().optAfter);
    EXPECT_EQ(page().txtDuration.text(), "15");
    EXPECT_NE(plan().find("records 15 s"), std::string::npos) << plan();
    EXPECT_EQ(page().lblDurationValue.caption(), "15.36 seconds");
}

} // namespace
} // namespace ko::test

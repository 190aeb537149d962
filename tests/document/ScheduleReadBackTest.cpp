#include "ScheduleFixture.h"

#include <cmath>
#include <limits>

namespace ko::test {
namespace {

/// What the page makes of settings that the drivers cannot tell, do not take, or keep otherwise.
class ScheduleReadBack : public ScheduleTest {
protected:
    std::string plan() { return page().lblPlan.caption(); }
    /// Options, times and duration as the page shows them.
    std::string shown()
    {
        std::string all;
        for (const OptionButton* option : {&start(0), &start(1), &start(2), &stop(0), &stop(1)})
            all += option->value() ? '1' : '0';
        return all + "|" + page().txtStartTime.text() + "|" + page().txtStopTime.text() + "|" +
               page().txtDuration.text() + " " + page().cmbInterval.text() + "|" + page().lblDurationValue.caption() +
               "|" + (page().lblStopTimeValue.visible() ? page().lblStopTimeValue.caption() : "");
    }
    void failIn(const std::set<std::string>& operations)
    {
        for (const auto& driver : fakes)
            driver->failing = operations;
    }
    /// Every way in which the user changes the schedule of a page that starts and stops at a time.
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
        return {{"duration",
                 [this] {
                     ASSERT_TRUE(page().moveFocus(&page().txtDuration));
                     page().txtDuration.userReplaced("20", 0, 0);
                 }},
                {"unit", [this] {
                     ASSERT_TRUE(page().moveFocus(&page().cmbInterval));
                     page().cmbInterval.userChose(1);
                 }}};
    }
};

TEST_F(ScheduleReadBack, WhatHangsOnASettingThatCannotBeReadIsNotWrittenWhenThePageIsBuilt)
{
    const struct {
        const char *operation, *second; // what the second driver, which differed, then holds
    } cases[] = {{"StartMode", "0 0 9:00:00 AM 50"},
                 {"StartTime", "1 1 9:00:00 AM 50"},
                 {"StopMode", "1 0 8:00:00 AM 50"},
                 {"Duration", "1 1 8:00:00 AM 5"},
                 {"queryTimebase", "0 0 9:00:00 AM 5"}};
    for (const std::size_t drivers : {1U, 2U})
        for (const auto& it : cases) {
            document = makeDocument(shared, host);
            fakes.clear();
            openTwo(1, 1, "8:00:00 AM", 50);
            document = makeDocument(shared, host);
            fakes[1]->startMode = fakes[1]->stopMode = 0;
            fakes[1]->startTime = toDateTime("9:00:00 AM", {});
            fakes[1]->duration = 5;
            fakes.resize(drivers);
            fakes[0]->failing = {it.operation};
            Texts expected = held();
            if (drivers == 2)
                expected[1] = it.second;
            open();
            EXPECT_EQ(held(), expected) << it.operation;
            EXPECT_FALSE(host.takeReports().empty()) << it.operation;
        }
}

TEST_F(ScheduleReadBack, AnUnknownModeCountsAsZeroAndIsWrittenSoUnlessThePageIsReadOnly)
{
    const struct {
        std::int32_t start, stop;
        const char* agreed;
    } cases[] = {{7, 0, "0 0"}, {-1, 1, "0 0"}, {1, 5, "1 0"}, {1, -1, "1 0"}, {2, 1, "2 0"}, {0, 1, "0 0"}};
    for (const auto& it : cases) {
        document = makeDocument(shared, host);
        document->mode().setReadOnly(true);
        fakes.clear();
        openTwo(it.start, it.stop);
        const std::string rest = " 8:00:00 AM 10";
        EXPECT_EQ(held()[1], std::to_string(it.start) + " " + std::to_string(it.stop) + rest);
        EXPECT_TRUE(stop(0).value());
        host.changes = 0;
        document->mode().setReadOnly(false);
        expectEverywhere(it.agreed + rest);
    }
}

TEST_F(ScheduleReadBack, AStartTimeThatCannotBeReadOrShownIsNeitherInventedNorWritten)
{
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    for (const double days : {0.25, 3e6, -1e6, notANumber})
        for (const std::int32_t stops : {0, 1}) {
            document = makeDocument(shared, host);
            fakes.clear();
            openTwo(1, stops);
            document = makeDocument(shared, host);
            for (const auto& driver : fakes) {
                driver->startTime = {days};
                driver->failing = days == 0.25 ? std::set<std::string>{"StartTime"} : std::set<std::string>{};
            }
            open();
            host.takeReports();
            EXPECT_EQ(page().txtStartTime.text() + page().txtStopTime.text(), "") << days;
            EXPECT_EQ(plan().substr(0, 33), "The start time is not known; reco") << plan();
            const std::string before = shown();
            page().txtDuration.setText("3000"); // the box does not listen while the stop is at a time
            if (stops == 1) {
                stop(0).userClicked();
                EXPECT_EQ(host.takeMessages(), Texts{tooLarge});
                page().txtDuration.setText("10");
                EXPECT_EQ(shown(), before);
            } else {
                host.takeMessages();
            }
            for (const auto& driver : fakes)
                for (const std::string& write : driver->writes)
                    EXPECT_FALSE(write.starts_with("setStartTime")) << write;
            failIn({});
            start(1).userClicked();
            EXPECT_EQ(page().txtStartTime.text(), "9:30:00 AM");
            EXPECT_EQ(page().txtStopTime.text(), stops == 1 ? "9:30:10 AM" : "");
            EXPECT_EQ(held(), Texts(2, stops == 1 ? "1 1 9:30:00 AM 10" : "1 0 9:30:00 AM 10"));
        }
}

TEST_F(ScheduleReadBack, AClickActsOnWhatIsShownForAModeThatCouldNotBeRead)
{
    const struct {
        const char* failing;
        std::int32_t held;
        const char *shown, *plan;
        std::function<void()> click;
        const char* then;
        int changes;
    } cases[] = {
        {"StartMode", 1, "00010", "The start time is not", [this] { start(0).userClicked(); }, "0 0 8:00:00 AM 10", 1},
        {"StartMode", 0, "00010", "The start time is not", [this] { start(0).userClicked(); }, "0 0 8:00:00 AM 10", 0},
        {"StartMode", 0, "00010", "The start time is not", [this] { start(1).userClicked(); }, "1 0 9:30:00 AM 10", 1},
        {"StartMode", 1, "00010", "The start time is not", [this] { start(2).userClicked(); }, "2 0 8:00:00 AM 10", 1},
        {"queryTimebase", 1, "00010", "The start time is not", [this] { start(0).userClicked(); }, "0 0 8:00:00 AM 10",
         1},
        {"StopMode", 1, "01010", "Starts at 8:00:00 AM,", [this] { stop(0).userClicked(); }, "1 0 8:00:00 AM 10", 1},
        {"StopMode", 1, "01010", "Starts at 8:00:00 AM,", [this] { start(0).userClicked(); }, "0 0 8:00:00 AM 10", 1},
    };
    for (const bool isRefused : {false, true})
        for (const auto& it : cases) {
            document = makeDocument(shared, host);
            fakes.clear();
            openTwo(it.held, it.held);
            document = makeDocument(shared, host);
            failIn({it.failing});
            open();
            host.takeReports();
            const std::string before = shown();
            EXPECT_EQ(before.substr(0, 5), it.shown);
            EXPECT_EQ(plan().substr(0, 21), it.plan) << plan();
            EXPECT_EQ(held(), Texts(2, std::to_string(it.held) + " " + std::to_string(it.held) + " 8:00:00 AM 10"));
            host.changes = 0;
            failIn(isRefused ? std::set<std::string>{"setStartMode", "setStopMode", "setStartTime", "setDuration"}
                             : std::set<std::string>{});
            it.click();
            EXPECT_EQ(host.changes, isRefused ? 0 : it.changes) << it.failing;
            if (!isRefused || it.changes == 0) {
                EXPECT_EQ(held(), Texts(2, it.then)) << it.failing;
                EXPECT_NE(plan().substr(0, 21), "The start time is not") << plan();
            } else {
                EXPECT_EQ(shown(), before) << it.failing;
                EXPECT_FALSE(host.takeReports().empty());
            }
        }
}

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
        ASSERT_TRUE(page().moveFocus(&page().txtDuration));
        page().txtDuration.userReplaced(it.typed, 0, 0);
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
        document = makeDocument(shared, host);
        fakes.clear();
        openTwo();
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

TEST_F(ScheduleReadBack, AChangeThatNoDriverTakesIsPutBackWithoutANotificationAndCanBeMadeLater)
{
    const std::set<std::string> writes{"setDuration", "setStartMode", "setStartTime", "setStopMode"};
    std::set<std::string> all = writes;
    all.insert({"Duration", "StartMode", "StartTime", "StopMode"});
    const char* const decisive[] = {"setStartMode", "setStopMode", "setStartTime", "setDuration"};
    for (const bool atTime : {false, true})
        for (std::set<std::string> failing : {writes, all, {}})
            for (std::size_t i = 0; i < (atTime ? 4U : 2U); ++i) {
                document = makeDocument(shared, host);
                fakes.clear();
                openTwo(atTime, atTime, "8:00:00 AM", 30);
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

TEST_F(ScheduleReadBack, ADurationThatCannotBeReadIsNotInventedAndIsShownWhenItIsReadNext)
{
    const struct {
        const char* how;
        std::int32_t stops;
        std::function<void()> event;
        const char* then; // the first driver's settings
    } cases[] = {{"mode", 0, [this] { start(0).userClicked(); }, "0 0 8:00:00 AM 77"},
                 {"start time", 0,
                  [this] {
                      pickTime(page().cmdStartTime, {0, 0, 0, 7, 0, 0}, false);
                  },
                  "1 0 7:00:00 AM 77"},
                 {"stop at time", 0, [this] { stop(1).userClicked(); }, "1 1 8:00:00 AM 77"},
                 {"after", 1, [this] { stop(0).userClicked(); }, "1 0 8:00:00 AM 77"},
                 {"unit", 0,
                  [this] {
                      ASSERT_TRUE(page().moveFocus(&page().cmbInterval));
                      page().cmbInterval.userChose(1);
                  },
                  "1 0 8:00:00 AM 77"},
                 {"leaving", 0,
                  [this] {
                      page().moveFocus(&page().txtDuration);
                      page().moveFocus(&page().optAfter);
                  },
                  "1 0 8:00:00 AM 77"}};
    for (const auto& it : cases)
        for (const bool readable : {false, true}) {
            document = makeDocument(shared, host);
            fakes.clear();
            openTwo(1, it.stops, "8:00:00 AM", 77);
            document = makeDocument(shared, host);
            failIn({"Duration"});
            open();
            EXPECT_EQ(page().txtDuration.text() + page().txtStopTime.text(), "") << it.how;
            EXPECT_NE(plan().find("not known"), std::string::npos) << plan();
            EXPECT_EQ(page().lblDurationValue.caption(), page().notApplicableText);
            if (readable)
                failIn({});
            it.event();
            EXPECT_EQ(held(), Texts(2, it.then)) << it.how;
            EXPECT_EQ(plan().find("not known") == std::string::npos, readable) << it.how << plan();
            EXPECT_EQ(page().txtDuration.text().empty(), !readable) << it.how;
            host.takeReports();
        }
}

TEST_F(ScheduleReadBack, TheTriggerIsSwitchedForAStartThatIsKnownAndBeforeTheHostIsNotified)
{
    FakeDriver& driver = addDriver();
    driver.startRank = 5;
    driver.groups = {{"Inputs", {{.triggerSource = true}}}};
    driver.startMode = startMode::onTrigger;
    open();
    const auto isSource = [&] { return driver.groups[0].channels[0].triggerSource; };
    for (const std::int32_t mode : {0, 2, 1}) {
        bool atNotification = mode != 2;
        host.onChanged = [&] { atNotification = isSource(); };
        start(mode).userClicked();
        EXPECT_EQ(atNotification, mode == 2) << mode;
    }
    host.onChanged = nullptr;
    start(2).userClicked();
    driver.failing = {"StartMode"};
    document->UserDocument_Show();
    EXPECT_TRUE(isSource());
    EXPECT_EQ(driver.startMode, startMode::onTrigger);
    EXPECT_FALSE(host.takeReports().empty());
}

} // namespace
} // namespace ko::test

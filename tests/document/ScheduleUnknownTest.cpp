#include "ScheduleFixture.h"

#include <limits>

namespace ko::test {
namespace {

/// What the page makes of start and stop settings that the drivers cannot tell.
class ScheduleUnknown : public ScheduleTest {};

TEST_F(ScheduleUnknown, WhatHangsOnASettingThatCannotBeReadIsNotWrittenWhenThePageIsBuilt)
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
            openAnew(1, 1, "8:00:00 AM", 50);
            fakes[1]->startMode = fakes[1]->stopMode = 0;
            fakes[1]->startTime = toDateTime("9:00:00 AM", {});
            fakes[1]->duration = 5;
            fakes.resize(drivers);
            Texts expected = held();
            if (drivers == 2)
                expected[1] = it.second;
            document = makeDocument(shared, host);
            fakes[0]->failing = {it.operation};
            open();
            EXPECT_EQ(held(), expected) << it.operation;
            EXPECT_FALSE(host.takeReports().empty()) << it.operation;
        }
}

TEST_F(ScheduleUnknown, AModeThatIsNoneCountsAsZeroAndIsWrittenSoUnlessThePageIsReadOnly)
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
        document->mode().setReadOnly(false);
        expectEverywhere(it.agreed + rest);
    }
}

TEST_F(ScheduleUnknown, AStartTimeThatCannotBeReadOrShownIsNeitherInventedNorWrittenUntilItIsClicked)
{
    constexpr double unreadable = 0.25;
    for (const double days : {unreadable, 3e6, -1e6, std::numeric_limits<double>::quiet_NaN()})
        for (const std::int32_t stops : {0, 1}) {
            openAnew(1, stops);
            for (const auto& driver : fakes)
                driver->startTime = {days};
            openFailing({days == unreadable ? "StartTime" : "StartLinesAsMaster"});
            EXPECT_EQ(page().txtStartTime.text() + page().txtStopTime.text(), "") << days;
            EXPECT_EQ(plan().substr(0, 26), "Start time unknown; record") << plan();
            const std::string before = shown();
            if (stops == 1) {
                page().txtDuration.setText("3000"); // the box does not listen while the stop is at a time
                stop(0).userClicked();
                EXPECT_EQ(host.takeMessages(), Texts{tooLarge});
                page().txtDuration.setText("10");
                EXPECT_EQ(shown(), before);
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

TEST_F(ScheduleUnknown, AClickActsOnWhatIsShownForAModeThatCouldNotBeRead)
{
    const std::string noStart = "00010 Start time";
    const std::string atTime = "01010 Starts at ";
    const struct {
        const char* failing;
        std::int32_t held; // start and stop mode
        const std::string& shown;
        OptionButton Page::*option;
        const char* then;
        int changes;
    } cases[] = {
        {"StartMode", 1, noStart, &Page::optImmediate, "0 0 8:00:00 AM 10", 1},
        {"StartMode", 0, noStart, &Page::optImmediate, "0 0 8:00:00 AM 10", 0},
        {"StartMode", 0, noStart, &Page::optStartTime, "1 0 9:30:00 AM 10", 1},
        {"StartMode", 1, noStart, &Page::optOnTrigger, "2 0 8:00:00 AM 10", 1},
        {"queryTimebase", 1, noStart, &Page::optImmediate, "0 0 8:00:00 AM 10", 1},
        {"StopMode", 1, atTime, &Page::optAfter, "1 0 8:00:00 AM 10", 1},
        {"StopMode", 1, atTime, &Page::optImmediate, "0 0 8:00:00 AM 10", 1},
    };
    for (const bool isRefused : {false, true})
        for (const auto& it : cases) {
            openAnew(it.held, it.held);
            const Texts heldBefore = held();
            openFailing({it.failing});
            const std::string before = shown();
            EXPECT_EQ(before.substr(0, 6).replace(5, 1, " ") + plan().substr(0, 10), it.shown);
            EXPECT_EQ(held(), heldBefore);
            host.changes = 0;
            failIn({});
            if (isRefused)
                failIn({"setStartMode", "setStopMode", "setStartTime", "setDuration"});
            (page().*it.option).userClicked();
            const bool isPutBack = isRefused && it.changes > 0;
            EXPECT_EQ(host.changes, isPutBack ? 0 : it.changes) << it.failing;
            EXPECT_EQ(held(), isPutBack ? heldBefore : Texts(2, it.then)) << it.failing;
            if (isPutBack)
                EXPECT_EQ(shown(), before) << it.failing;
            else
                EXPECT_EQ(plan().find("Start time unknown"), std::string::npos) << plan();
            EXPECT_EQ(host.takeReports().empty(), !isPutBack) << it.failing;
        }
}

TEST_F(ScheduleUnknown, ADurationThatCannotBeReadIsNotInventedAndIsShownWhenItIsReadNext)
{
    const struct {
        const char* how;
        std::int32_t stops;
        std::function<void()> event;
        const char* then; // the drivers' settings
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
                      page().moveFocus(&page().cmbInterval);
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
            openAnew(1, it.stops, "8:00:00 AM", 77);
            openFailing({"Duration"});
            EXPECT_EQ(page().txtDuration.text() + page().txtStopTime.text(), "") << it.how;
            EXPECT_NE(plan().find("unknown"), std::string::npos) << plan();
            EXPECT_EQ(page().lblDurationValue.caption(), page().notApplicableText);
            if (readable)
                failIn({});
            it.event();
            EXPECT_EQ(held(), Texts(2, it.then)) << it.how;
            EXPECT_EQ(plan().find("unknown") == std::string::npos, readable) << it.how << plan();
            EXPECT_EQ(page().txtDuration.text().empty(), !readable) << it.how;
            host.takeReports();
        }
}

TEST_F(ScheduleUnknown, TheTriggerIsSwitchedForAStartThatIsKnownAndBeforeTheHostIsNotified)
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

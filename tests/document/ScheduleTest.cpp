#include "ScheduleFixture.h"

namespace ko::test {
namespace {

TEST_F(ScheduleTest, ModesTimesAndTheLargestUnitAreShown)
{
    const char* const at = "11/21/2026 9:30:00 AM";
    const struct {
        std::int32_t start, stop;
        float seconds;
        std::string shown;
    } cases[] = {
        {0, 0, 90, "10010|||1.5 minutes|"},
        {0, 0, 0.1F, "10010|||0.1 seconds|"},
        {2, 0, 86400, "00110|||1 days|"},
        {1, 0, 3600, std::string("01010|") + at + "||1 hours|"},
        {1, 1, 100, std::string("01001|") + at + "|11/21/2026 9:31:40 AM|1.66666666666667 minutes|"},
    };
    for (const auto& it : cases) {
        openAnew(it.start, it.stop, at, it.seconds);
        EXPECT_EQ(shown().substr(0, it.shown.size()), it.shown);
        EXPECT_TRUE(page().activeControl()->name().starts_with("opt"));
    }
}

TEST_F(ScheduleTest, EveryStepFromOneStartAndStopToAnotherReachesAllDrivers)
{
    openTwo();
    const std::pair<int, int> modes[] = {{0, 0}, {1, 0}, {1, 1}, {2, 0}};
    for (const auto& [fromStart, fromStop] : modes) {
        for (int toStart = 0; toStart < 3; ++toStart) {
            start(1).userClicked();
            stop(fromStop).userClicked();
            start(fromStart).userClicked();
            start(toStart).userClicked();
            const int shownStop = toStart == 1 && fromStart == 1 ? fromStop : 0;
            expectEverywhere(std::to_string(toStart) + " " + std::to_string(shownStop) + " 9:30:00 AM 10");
            const bool atTime = toStart == 1;
            EXPECT_EQ(page().txtStartTime.enabled(), atTime);
            EXPECT_EQ(page().cmdStartTime.enabled(), atTime);
            EXPECT_EQ(page().optStopTime.enabled(), atTime);
            EXPECT_EQ(page().txtDuration.enabled(), shownStop == 0);
            EXPECT_EQ(page().cmbInterval.enabled(), shownStop == 0);
            EXPECT_EQ(page().txtStopTime.enabled(), shownStop == 1);
            EXPECT_EQ(page().cmdStopTime.enabled(), shownStop == 1);
            EXPECT_EQ(page().lblStopTimeValue.visible(), shownStop == 1);
        }
    }
    EXPECT_EQ(page().txtStartTime.text() + " " + page().txtStopTime.text(), "9:30:00 AM 9:30:10 AM");
}

TEST_F(ScheduleTest, TheStopMustBeLaterThanTheStart)
{
    openTwo(1, 1, "11/21/2026 10:00:00 AM", 60);
    EXPECT_EQ(page().txtStopTime.text(), "11/21/2026 10:01:00 AM");
    for (const int hour : {9, 10}) {
        pickTime(page().cmdStopTime, {2026, 11, 21, hour, 0, 0});
        EXPECT_EQ(host.takeMessages(), Texts{"Error: Stop time must be later than start time. (48)"});
        EXPECT_EQ(page().txtStopTime.text(), "11/21/2026 10:01:00 AM");
        EXPECT_EQ(fakes[0]->writes, Texts{});
    }
    pickTime(page().cmdStartTime, {2026, 11, 21, 11, 0, 0});
    EXPECT_EQ(page().txtStopTime.text(), "11/21/2026 11:01:00 AM");
    expectEverywhere("1 1 11/21/2026 11:00:00 AM 60");
    pickTime(page().cmdStopTime, {2026, 11, 21, 11, 10, 0});
    expectEverywhere("1 1 11/21/2026 11:00:00 AM 600");
    EXPECT_EQ(page().lblStopTimeValue.caption(), "11/21/2026 11:10:00 AM");
}

TEST_F(ScheduleTest, AnUndatedStartThatRunsOverMidnightIsTakenTodayUnlessItHasPassed)
{
    openTwo(1, 1, "11:50:00 PM", 900);
    EXPECT_EQ(page().txtStopTime.text(), "11/22/2026 12:05:00 AM");
    EXPECT_EQ(page().lblStopTimeValue.caption(), "11/22/2026 12:05:00 AM");
    pickTime(page().cmdStartTime, {0, 0, 0, 11, 55, 0}, false);
    host.takeMessages();
    pickTime(page().cmdStartTime, {0, 0, 0, 23, 55, 0}, false);
    EXPECT_EQ(held()[1], "1 1 11:55:00 PM 600");
    fakes[0]->blockSize = 1e6;
    pickTime(page().cmdStopTime, {0, 0, 0, 23, 55, 1}, false);
    expectEverywhere("1 1 11:55:00 PM 1");
    EXPECT_EQ(page().lblStopTimeValue.caption(), "11/22/2026 12:11:40 AM");
    host.time = toDateTime("11/21/2026 11:56:00 PM", {});
    page().minutePassed();
    EXPECT_EQ(page().lblStopTimeValue.caption(), "11/23/2026 12:11:40 AM") << "the start is tomorrow, too";
}

TEST_F(ScheduleTest, ATextThatIsNoDateIsReportedOnceAndWritesNothing)
{
    openTwo(1, 1);
    for (TextBox* box : {&page().txtStartTime, &page().txtStopTime}) {
        const std::string text = box->text();
        ASSERT_TRUE(page().moveFocus(box));
        EXPECT_EQ(box->userTyped("x"), Outcome::Inert);
        document->menu().OnCommand(command::cut);
        EXPECT_EQ(host.clipboardText, text);
        EXPECT_EQ(box->text(), text);
        EXPECT_EQ(host.takeReports(), Texts{"KoTimebaseEditor:" + box->name() + "_Change 13: Type mismatch"});
    }
    EXPECT_EQ(fakes[0]->writes, Texts{});
    host.time = toDateTime("12/31/9999 11:59:59 PM", {});
    pickTime(page().cmdStartTime, {9999, 12, 31, 23, 59, 59});
    EXPECT_EQ(page().txtStartTime.text(), "8:00:00 AM");
    EXPECT_EQ(host.takeReports().size(), 1U);
    EXPECT_EQ(fakes[0]->writes, Texts{});
}

TEST_F(ScheduleTest, AStopTimeStaysWithTheStartThatADriverKeeps)
{
    openTwo(1, 1, "11/22/2026 8:00:00 AM", 60);
    fakes[0]->refuses = true;
    pickTime(page().cmdStartTime, {2026, 11, 22, 17, 0, 0});
    EXPECT_EQ(page().txtStartTime.text(), "11/22/2026 8:00:00 AM");
    EXPECT_EQ(page().txtStopTime.text(), "11/22/2026 8:01:00 AM");

    openAnew(1, 1, "12:00:00 PM", 0);
    fakes[0]->refuses = true;
    pickTime(page().cmdStartTime, {2026, 11, 21, 12, 0, 0});
    stop(0).userClicked();
    EXPECT_EQ(page().txtStopTime.text(), "12:00:00 PM") << "filled, because the driver still stops at a time";
    EXPECT_NE(plan().find("records until 12:00:00 PM"), std::string::npos) << plan();
}

TEST_F(ScheduleTest, TheDialogOpensWithTheTimeInForceAndTheFlagsOfItsBox)
{
    openTwo(1, 1, "12:00:00 PM", 10);
    page().txtStartTime.userDoubleClicked(); // cancelled
    EXPECT_EQ(fakes[0]->writes, Texts{});
    host.cursor = {100, 50};
    pick([&](SetDateTime& dialog) {
        EXPECT_TRUE(page().isDialogOpen);
        EXPECT_TRUE(dialog.bounds().left == 1500 && dialog.bounds().top == 750);
        EXPECT_TRUE(dialog.optCurrentDay.value() && dialog.optCurrentDay.enabled());
        EXPECT_FALSE(dialog.calDate.enabled());
        EXPECT_EQ(dialog.calDate.day(), 21);
        EXPECT_EQ(dialog.dtpTimeSelector.hour(), 12);
        EXPECT_EQ(dialog.calDate.userChose(2026, 11, 30), Outcome::Inert);
        dialog.optSpecifiedDay.userClicked();
        EXPECT_EQ(dialog.calDate.userChose(2026, 2, 29), Outcome::Inert);
        EXPECT_EQ(dialog.calDate.userChose(1899, 12, 30), Outcome::Inert);
        dialog.calDate.userChose(2026, 11, 30);
        dialog.optCurrentDay.userClicked();
        EXPECT_EQ(dialog.calDate.userChose(2026, 11, 29), Outcome::Inert);
        dialog.optSpecifiedDay.userClicked();
        EXPECT_EQ(dialog.calDate.day(), 30);
        dialog.btnOK.userClicked();
    });
    page().txtStartTime.userDoubleClicked();
    EXPECT_FALSE(page().isDialogOpen);
    expectEverywhere("1 1 11/30/2026 12:00:00 PM 10");
    pick([&](SetDateTime& dialog) {
        EXPECT_FALSE(dialog.optCurrentDay.enabled());
        EXPECT_TRUE(dialog.optSpecifiedDay.value() && dialog.calDate.enabled());
        EXPECT_EQ(dialog.dtpTimeSelector.second(), 10);
        dialog.btnCancel.userClicked();
    });
    page().txtStopTime.userDoubleClicked();
    pick([](SetDateTime& dialog) { dialog.btnCancel.userClicked(); });
    shared.dialogs.setDateTime().Display({}, true, true);
    EXPECT_FALSE(shared.dialogs.setDateTime().optCurrentDay.enabled()) << "both flags leave the options as they were";
    EXPECT_TRUE(shared.dialogs.setDateTime().optSpecifiedDay.enabled());
}

TEST_F(ScheduleTest, EveryControlClearsTheHintOfTheOneBefore)
{
    openTwo(1, 1);
    document->mode().setClientSite(host.site());
    page().moveFocus(nullptr);
    std::size_t hints = 0;
    for (Control* control : std::initializer_list<Control*>{
             &page().optStartTime, &page().optImmediate, &page().optOnTrigger, &page().txtStartTime,
             &page().optStopTime, &page().optAfter, &page().txtStopTime}) {
        ASSERT_TRUE(page().moveFocus(control)) << control->name();
        EXPECT_EQ(host.hints.size(), ++hints) << control->name();
    }
    EXPECT_EQ(host.hints, Texts(hints));
}

} // namespace
} // namespace ko::test

#include "ScheduleFixture.h"
#include "triggering/SelectChannel.h"

namespace ko::test {
namespace {

TEST_F(ScheduleTest, ADurationIsTypedInEveryUnitAndOutlivesAHiddenPage)
{
    openTwo();
    type(page().txtDuration, "0.1");
    expectEverywhere("0 0 8:00:00 AM 0.1");
    page().cmbInterval.userChose(1);
    expectEverywhere("0 0 8:00:00 AM 6");
    EXPECT_NE(page().activeControl(), nullptr);
    EXPECT_EQ(page().lblDurationValue.caption(), "0.1 minutes");
    fakes[0]->duration = 1; // the value accepted by the page is used, not this one
    document->UserDocument_Hide();
    EXPECT_EQ(page().activeControl(), nullptr);
    document->UserDocument_Show();
    expectEverywhere("0 0 8:00:00 AM 6");
    EXPECT_EQ(page().txtDuration.text() + page().cmbInterval.text(), "6seconds");

    ASSERT_TRUE(page().moveFocus(&page().txtDuration));
    for (const auto& [text, message] :
         {std::pair{"-1", "in the range 0 to 3.40282346638529E+38 is "},
          std::pair{"1e39", "in the range 0 to 3.40282346638529E+38 is "}, std::pair{"soon", "is "}}) {
        page().txtDuration.userReplaced(text, 0, 0);
        bool allowed = true;
        document->state().OKToLeave(allowed);
        EXPECT_FALSE(allowed);
        EXPECT_FALSE(page().moveFocus(&page().optAfter));
        EXPECT_EQ(page().txtDuration.text(), "6");
        const std::string shown = std::string("Invalid input: A valid real number ") + message + "required. (48)";
        EXPECT_EQ(host.takeMessages(), (Texts{shown, shown}));
    }
    fakes[0]->bytes = fakes[1]->bytes = nullptr;
    page().txtDuration.userReplaced("1e37", 0, 0);
    page().cmbInterval.userChose(3); // in days it exceeds single precision
    EXPECT_EQ(host.takeMessages().size(), 1U);
    EXPECT_EQ(page().cmbInterval.index(), 0);
    EXPECT_EQ(page().txtDuration.text(), "1E+37");
    EXPECT_EQ(fakes[1]->duration, 1e37F);
    host.takeReports();
    type(page().txtDuration, "0");
    expectEverywhere("0 0 8:00:00 AM 0");
}

TEST_F(ScheduleTest, AStopBeyondTheCalendarIsNotTaken)
{
    openTwo(1, 0, "8:00:00 AM", 1e37F);
    stop(1).userClicked();
    EXPECT_EQ(host.takeReports().size(), 1U);
    expectEverywhere("1 0 8:00:00 AM 1E+37");
}

TEST_F(ScheduleTest, ARecordingShorterThanItsFirstSampleLastsAsLongAsItShould)
{
    openTwo();
    fakes[0]->samplePeriod = 20;
    fakes[0]->blockSize = 0;
    fakes[0]->bytes = [](const FakeDriver&) { return 1073741824.0 - 416; };
    open();
    EXPECT_EQ(page().lblNumSamplesValue.caption(), "0");
    EXPECT_EQ(page().lblDurationValue.caption(), "10 seconds");
    EXPECT_NEAR(page().lblNumDynamicBytesValue.share(), 0.5, 0.01) << "of the limit";
}

TEST_F(ScheduleTest, AUnitThatMakesTheTextTheDurationInForceChangesTheLabelsAlone)
{
    openTwo(0, 0, "8:00:00 AM", 30);
    for (const auto& driver : fakes)
        driver->duration = 1800;
    page().cmbInterval.userChose(1);
    EXPECT_TRUE(page().lblDurationValue.caption().ends_with(" minutes")) << page().lblDurationValue.caption();
    for (const auto& driver : fakes)
        EXPECT_EQ(driver->writes, Texts());
}

TEST_F(ScheduleTest, ThePlanFollowsTheTriggerAndTheHost)
{
    const auto expectPart = [this](const char* part) { EXPECT_NE(plan().find(part), std::string::npos) << plan(); };
    FakeDriver& driver = addDriver();
    driver.startRank = 5;
    driver.groups = {{"Inputs", {{.name = "Crank"}, {.name = "Cam"}}}};
    driver.parameters = {{}};
    open();
    page().optOnTrigger.userClicked();
    expectPart("Starts on trigger at Fake, records");
    host.inModalForm = [](Form& form) {
        auto& dialog = dynamic_cast<SelectChannel&>(form);
        dialog.chsNavigate.userPicked({2});
        dialog.cmdOK.userClicked();
    };
    page().cmdChannel.userClicked();
    expectPart("Starts on trigger at Crank (Level 0.5), records");
    EXPECT_EQ(page().grdParam.userEditedCell(1, "0.75"), Outcome::Done);
    expectPart("(Level 0.75)");
    const std::string editable = plan();
    document->mode().setReadOnly(true);
    EXPECT_EQ(plan(), editable);
    document->mode().setReadOnly(false);
    fakes.clear();
    handOver();
    EXPECT_EQ(plan(), "Records nothing: this set-up has no instruments.");
}

} // namespace
} // namespace ko::test

#include "ScheduleFixture.h"
#include "triggering/SelectChannel.h"

namespace ko::test {
namespace {

class PlanEvents : public ScheduleTest {
protected:
    const std::string& plan() { return page().lblPlan.caption(); }
    void expectPart(const std::string& part) { EXPECT_NE(plan().find(part), std::string::npos) << plan(); }
};

TEST_F(PlanEvents, ThePlanFollowsEveryEntryAndARefusalTakesItBack)
{
    openTwo();
    expectPart("Starts immediately, records 10 s, 10,240 samples");
    expectPart("later.");
    type(page().txtDuration, "20");
    expectPart("records 20 s, 20,480 samples");
    page().txtDuration.userTyped("x");
    expectPart("records 20 s, 20,480 samples");
    page().txtDuration.userReplaced("20", 2, 0);
    host.inMessage = [&] { expectPart("records 20 s, 20,480 samples"); };
    page().cmbInterval.userChose(1);
    EXPECT_EQ(host.takeMessages().size(), 1U);
    expectPart("records 20 s, 20,480 samples");
    page().optStartTime.userClicked();
    page().optStopTime.userClicked();
    expectPart("Starts at 9:30:00 AM, records until 9:30:20 AM, that is 20 s");
    pickTime(page().cmdStopTime, {.year = 2026, .month = 11, .day = 21, .hour = 9, .minute = 31}, false);
    expectPart("records until 9:31:00 AM, that is 1 min");
}

TEST_F(PlanEvents, ThePlanFollowsTheTriggerAndTheHost)
{
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

#include "fakes/DocumentTest.h"

namespace ko::test {
namespace {

class TriggerArea : public DocumentTest {
protected:
    FakeDriver& addTriggered()
    {
        FakeDriver& driver = addDriver();
        driver.groups = {{"Inputs", {{.name = "Crank", .enabled = 0, .triggerSource = true}}}};
        driver.parameters = {{}};
        driver.startMode = startMode::onTrigger;
        return driver;
    }
};

TEST_F(TriggerArea, APageBuiltOnTriggerShowsTheMarkedChannelAndWarnsOnce)
{
    FakeDriver& driver = addTriggered();
    driver.startRank = 5;
    open();
    EXPECT_EQ(page().txtChannel.text(), "Crank");
    EXPECT_EQ(page().grdParam.rowCount(), 1);
    EXPECT_TRUE(page().grdParam.isEditable(1));
    EXPECT_EQ(host.takeMessages().size(), 1U);
    document->mode().setReadOnly(true);
    EXPECT_EQ(host.takeMessages().size(), 1U);
    EXPECT_FALSE(page().grdParam.isEditable(1));
    EXPECT_FALSE(page().optOnTrigger.enabled());
    document->mode().setReadOnly(false);
    host.takeMessages();
    fakes.clear();
    addDriver().startRank = 5;
    handOver();
    EXPECT_EQ(page().TriggerChannel, -1);
    EXPECT_EQ(page().grdParam.rowCount(), 0);
}

TEST_F(TriggerArea, AListForAPageThatIsNotEditedBringsItsOwnTriggerChannel)
{
    const auto take = [this](std::size_t marked) {
        fakes.clear();
        FakeDriver& driver = addTriggered();
        driver.startRank = 5;
        driver.groups = {{"Inputs", {{}, {}, {}}}};
        driver.groups[0].channels[marked].triggerSource = true;
        handOver();
    };
    take(0);
    document->UserDocument_Show();
    take(1);
    EXPECT_EQ(page().TriggerChannel, 0) << "the page's own, as the user sees it";
    EXPECT_TRUE(fakes[0]->groups[0].channels[1].triggerSource);
    document->mode().setReadOnly(true);
    take(2);
    EXPECT_EQ(page().TriggerChannel, 2);
    document->mode().setReadOnly(false);
    EXPECT_EQ(page().TriggerChannel, 2);
    document->UserDocument_Hide();
    take(1);
    document->UserDocument_Show();
    EXPECT_EQ(page().TriggerChannel, 1);
    for (std::size_t channel = 0; channel < 3; ++channel)
        EXPECT_EQ(fakes[0]->groups[0].channels[channel].triggerSource, channel == 1) << channel;
    page().optImmediate.userClicked();
    EXPECT_FALSE(fakes[0]->groups[0].channels[1].triggerSource) << "the user's own choice switches it off";
    take(1);
    EXPECT_TRUE(fakes[0]->groups[0].channels[1].triggerSource) << "a page that is built does not";
}

TEST_F(TriggerArea, EditCommandsAndTheLeaveCheckWorkInAnOpenCell)
{
    FakeDriver& driver = addTriggered();
    driver.startRank = 5;
    driver.groups[0].channels[0].enabled = 1;
    open();
    Grid& grid = page().grdParam;
    ASSERT_TRUE(page().moveFocus(&grid));
    std::int32_t enabled = -1;
    document->menu().OnUpdateCommandUI(command::copy, enabled);
    EXPECT_EQ(enabled, 0) << "no cell is open";
    grid.userOpenedCell(1);
    document->menu().OnCommand(command::cut);
    EXPECT_EQ(host.clipboardText, "0.5");
    EXPECT_EQ(grid.editor().text(), "");
    bool allowed = true;
    document->state().OKToLeave(allowed);
    EXPECT_FALSE(allowed);
    EXPECT_EQ(host.takeMessages(), Texts{"Invalid input: A valid integer is required. (48)"});
    host.clipboardText = "7";
    document->menu().OnCommand(command::paste);
    document->state().OKToLeave(allowed);
    EXPECT_TRUE(allowed);
    EXPECT_EQ(driver.parameters[0].value, Value(0.5)) << "only checked";
    const int changes = host.changes;
    document->menu().OnCommand(command::acceptEntry);
    EXPECT_EQ(driver.parameters[0].value, Value(7.0));
    EXPECT_EQ(host.changes, changes + 1);
    EXPECT_EQ(grid.editedRow(), 0);
}

} // namespace
} // namespace ko::test

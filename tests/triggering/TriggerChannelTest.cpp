#include "triggering/TriggerChannel.h"
#include "fakes/SectionTest.h"
#include "triggering/SelectChannel.h"

namespace ko::test {
namespace {

class TriggerArea : public SectionTest {
protected:
    SelectChannel dialog{support};
    TriggerChannel area{page, support, *this, [this]() -> SelectChannel& { return dialog; }};
    Grid& grid = page.grdParam;
    FakeDriver& driver = addDriver();

    TriggerArea()
    {
        driver.name = "Digitizer";
        driver.groups = {{"Inputs", {{.address = "0:3:1"}, {.name = "Crank"}}}};
        page.dynamicDriverIndex = 0;
        page.hasDynamicDrivers = true;
        page.frmStart.setVisible(true);
    }
    /// Triggering on, with the second channel stored.
    void switchOn()
    {
        page.TriggerSlot = 0;
        page.TriggerChannel = 1;
        area.enableTriggering(true);
        driver.writes.clear();
    }
    Texts values()
    {
        Texts texts;
        for (std::int32_t row = 1; row <= grid.rowCount(); ++row)
            texts.push_back(grid.cell(row, 1).value);
        return texts;
    }
};

TEST_F(TriggerArea, EveryTypeHasItsCellAndTheDriversOwnParametersHaveNone)
{
    driver.parameters = {{.id = 1},
                         {.id = 2, .name = "Rising", .type = "Bool", .value = -1},
                         {.id = 4, .type = "String", .value = "ab"},
                         {.id = 5, .type = "StringReadOnly", .value = "fixed"},
                         {.id = 6, .type = "Enum", .value = "other", .choices = {"up", "down"}},
                         {.id = 3},
                         {.id = 7, .type = "Float", .value = 0.25},
                         {.id = 8, .type = "Integer", .value = 7},
                         {.id = 9, .type = "float", .value = "odd"}};
    switchOn();
    EXPECT_EQ(host.takeMessages(), Texts{": Unrecognized Parameter Type: float (0)"});
    EXPECT_EQ(values(), (Texts{"True", "ab", "fixed", "other", "0.25", "7", "odd"}));
    using Control = CellStyle::Control;
    const std::pair<Control, bool> cells[] = {{Control::check, true}, {Control::edit, true}, {Control::edit, false},
                                              {Control::list, true},  {Control::edit, true}, {Control::edit, true},
                                              {Control::edit, true}};
    for (std::int32_t row = 1; row <= grid.rowCount(); ++row) {
        EXPECT_EQ(grid.cell(row, 1).style.control, cells[row - 1].first) << row;
        EXPECT_EQ(grid.isEditable(row), cells[row - 1].second) << row;
        EXPECT_FALSE(grid.cell(row, 0).style.enabled);
    }
    EXPECT_EQ(grid.cell(1, 0).value, "Rising");
    EXPECT_EQ(grid.cell(7, 2).value, "9");
    EXPECT_EQ(grid.cell(1, 1).style.alignment, CellStyle::Alignment::center);
    EXPECT_EQ(grid.cell(5, 1).style.format, 3);
    EXPECT_EQ(grid.cell(4, 1).style.choices, (Texts{"up", "down"}));
    page.readOnly = true;
    driver.parameters.pop_back();
    area.enableTriggering(true);
    EXPECT_FALSE(grid.isEditable(1));
    driver.parameters = {{.id = 1}, {.id = 3}};
    area.enableTriggering(true);
    EXPECT_EQ(grid.rowCount(), 0);
    EXPECT_FALSE(grid.enabled());
}

TEST_F(TriggerArea, AnEditIsCheckedWrittenAsItsTypeAndReadBack)
{
    struct Case {
        const char* type;
        Value before;
        const char* typed;
        Outcome outcome;
        Value after;
        const char* message;
    };
    const char* range = "Invalid input: A valid real number in the range -10 to 10 is required. (48)";
    const Case cases[] = {
        {"Bool", false, "true", Outcome::Done, true, nullptr},
        {"Bool", 5, "False", Outcome::Done, false, nullptr},
        {"Bool", true, "maybe", Outcome::Inert, true, nullptr},
        {"String", "a", "b c", Outcome::Done, "b c", nullptr},
        {"StringReadOnly", "a", "b", Outcome::Inert, "a", nullptr},
        {"Enum", "gone", "down", Outcome::Done, "down", nullptr},
        {"Enum", "up", "sideways", Outcome::Inert, "up", nullptr},
        {"Float", 1.0, " 2.5 ", Outcome::Done, 2.5, nullptr},
        {"Float", 1.0, "10.1", Outcome::Refused, 1.0, range},
        {"Float", 1.0, "abc", Outcome::Refused, 1.0, "Invalid input: A valid integer is required. (48)"},
        {"Integer", 1, "1e1", Outcome::Done, 10, nullptr},
        {"Integer", 1, "11", Outcome::Refused, 1,
         "Invalid input: A valid integer in the range -10 to 10 is required. (48)"},
        {"mystery", "a", "b", Outcome::Refused, "a", nullptr},
    };
    for (const Case& c : cases) {
        driver.parameters = {{.type = c.type, .value = c.before, .choices = {"up", "down"}}};
        switchOn();
        host.messages.clear();
        marks = 0;
        EXPECT_EQ(grid.userEditedCell(1, c.typed), c.outcome) << c.type << c.typed;
        EXPECT_EQ(driver.parameters[0].value, c.after) << c.type << c.typed;
        EXPECT_EQ(driver.writes.size(), c.outcome == Outcome::Done ? 1U : 0U) << c.type << c.typed;
        EXPECT_EQ(marks, c.outcome == Outcome::Done) << c.type << c.typed;
        EXPECT_EQ(host.takeMessages(), c.message ? Texts{c.message} : Texts()) << c.type << c.typed;
        EXPECT_EQ(grid.editedRow(), c.outcome == Outcome::Refused);
        if (c.outcome == Outcome::Refused) {
            EXPECT_EQ(grid.editor().text(), c.typed) << "the editor stays open with the user's text";
        }
    }
}

TEST_F(TriggerArea, ARefusedCellKeepsTheFocusUntilItIsCorrectedOrGivenUp)
{
    driver.parameters = {{.id = 2, .value = 1.0}, {.id = 4, .value = 2.0}};
    switchOn();
    EXPECT_EQ(grid.userEditedCell(1, "x"), Outcome::Refused);
    EXPECT_EQ(page.editFlags, 3);
    EXPECT_FALSE(page.moveFocus(&page.cmdChannel));
    EXPECT_EQ(grid.userEditedCell(2, "3"), Outcome::Refused) << "the other cell is left first";
    EXPECT_FALSE(area.grid().check());
    EXPECT_EQ(host.takeMessages().size(), 4U);
    EXPECT_EQ(grid.userEditedCell(1, "4"), Outcome::Done);
    EXPECT_EQ(grid.userOpenedCell(2), Outcome::Done);
    EXPECT_EQ(grid.selText(), "2");
    grid.setSelText("5");
    EXPECT_TRUE(page.moveFocus(&page.cmdChannel));
    EXPECT_EQ(values(), (Texts{"4", "5"}));
    EXPECT_EQ(page.editFlags, 0);
    driver.writes.clear();
    EXPECT_EQ(grid.userOpenedCell(2), Outcome::Done);
    EXPECT_TRUE(page.moveFocus(&page.cmdChannel));
    EXPECT_EQ(driver.writes, Texts()) << "nothing was changed";
    grid.userOpenedCell(1);
    grid.userTypedInCell("x", 1, 0);
    page.frmStart.setEnabled(false);
    EXPECT_EQ(grid.editedRow(), 0);
    EXPECT_EQ(values(), (Texts{"4", "5"}));
}

TEST_F(TriggerArea, AValueOfATypeThatTheDriverDoesNotTellIsNotWritten)
{
    driver.parameters = {{}};
    switchOn();
    driver.failing = {"GetTriggerParamType"};
    EXPECT_EQ(grid.userEditedCell(1, "0.25"), Outcome::Refused);
    EXPECT_EQ(driver.writes, Texts());
    EXPECT_EQ(host.takeReports(), Texts{"KoTimebaseEditor:grdParam_OnValidateCell 1000: GetTriggerParamType failed"});
}

TEST_F(TriggerArea, ASwitchIsShownWhateverItsDriverKeepsItAs)
{
    const std::pair<Value, const char*> cases[] = {
        {true, "True"},    {2.5, "True"}, {0.0, "False"}, {std::string("true"), "True"}, {std::string("odd"), "False"},
        {Value(), "False"}};
    for (const auto& [value, shown] : cases) {
        driver.parameters = {{.type = "Bool", .value = value}};
        switchOn();
        EXPECT_EQ(values(), Texts{shown}) << &value - &cases[0].first;
    }
}

TEST_F(TriggerArea, AfterAWriteEveryRowShowsWhatTheDriverHas)
{
    driver.parameters = {{.id = 2, .value = 1.0}, {.id = 4, .type = "odd", .value = 2.0}};
    driver.afterParameter = [](FakeDriver& d) {
        d.parameters[0].value = 7.5;
        d.parameters[1].value = 9;
    };
    switchOn();
    EXPECT_EQ(host.takeMessages().size(), 1U);
    int drawn = 0;
    grid.view = [&](Aspect aspect) { drawn += aspect == Aspect::Items; };
    grid.userEditedCell(1, "3");
    EXPECT_EQ(values(), (Texts{"7.5", "9"}));
    EXPECT_EQ(drawn, 1);
    driver.failing = {"SetTriggerParamValue"};
    grid.userEditedCell(1, "4");
    EXPECT_EQ(values(), (Texts{"7.5", "9"}));
    EXPECT_EQ(marks, 1);
    EXPECT_EQ(host.takeReports(), Texts{"KoTimebaseEditor:grdParam_CellEdited 1000: SetTriggerParamValue failed"});
    driver.failing = {"GetTriggerParamMin"};
    grid.userEditedCell(1, "-99");
    EXPECT_EQ(driver.parameters[0].value, Value(7.5)) << "written, and changed by the driver";
    EXPECT_EQ(marks, 2) << "a missing bound is no bound";
    EXPECT_EQ(host.takeReports(), Texts{"KoTimebaseEditor:grdParam_OnValidateCell 1000: GetTriggerParamMin failed"});
}

TEST_F(TriggerArea, SwitchingOnAndOffShowsAndHidesTheAreaAndWarnsOnceEachTime)
{
    driver.parameters = {{}};
    driver.groups[0].channels[1].enabled = 0;
    page.TriggerSlot = 0;
    page.TriggerChannel = 1;
    const std::initializer_list<Control*> controls{&page.cmdChannel, &page.txtChannel, &page.lblChannel, &grid};
    for (int round = 0; round < 2; ++round) {
        area.enableTriggering(true);
        area.enableTriggering(true);
        EXPECT_EQ(host.takeMessages(), Texts{"Warning: " + support.text(1161) + " (64)"});
        EXPECT_EQ(page.txtChannel.text(), "Crank");
        EXPECT_TRUE(driver.groups[0].channels[1].triggerSource);
        for (const Control* control : controls)
            EXPECT_TRUE(control->enabled() && control->visible()) << control->name();
        area.disableTriggering(true);
        EXPECT_TRUE(grid.visible()) << "it changes nothing";
        area.disableTriggering(false);
        for (const Control* control : controls)
            EXPECT_FALSE(control->enabled() || control->visible()) << control->name();
        EXPECT_EQ(page.txtChannel.text(), "Crank");
    }
    page.optOnTrigger.showSelected();
    for (const auto& [index, dynamic, readOnly] :
         {std::tuple{0, true, false}, {-1, true, false}, {0, false, false}, {0, true, true}}) {
        page.dynamicDriverIndex = index;
        page.hasDynamicDrivers = dynamic;
        page.readOnly = readOnly;
        area.disableTriggering(true);
        EXPECT_EQ(page.optOnTrigger.enabled(), index == 0 && dynamic && !readOnly);
    }
}

TEST_F(TriggerArea, TheColumnsShareTheWidthThatTheScrollBarLeaves)
{
    for (std::int32_t id = 10; id < 12; ++id)
        driver.parameters.push_back({.id = id});
    for (const std::int32_t visible : {1, 2}) {
        grid.setVisibleRows(visible);
        switchOn();
        const std::int32_t bar = visible < 2 ? support.scrollBarWidth() : 0;
        EXPECT_EQ(grid.columnWidth(0) + grid.columnWidth(1), grid.innerWidth() - bar);
        EXPECT_EQ(grid.columnWidth(0), (grid.innerWidth() - bar) / 2);
        EXPECT_EQ(grid.columnWidth(2), 0);
    }
}

TEST_F(TriggerArea, WithoutAStoredChannelTheDriverIsNotAskedForOne)
{
    driver.parameters = {{}};
    area.enableTriggering(true);
    area.clearTriggerSource();
    EXPECT_EQ(page.txtChannel.text(), "Digitizer");
    EXPECT_EQ(grid.rowCount(), 0);
    EXPECT_FALSE(grid.enabled());
    for (const char* call : {"GetTriggerParamCount", "ChannelAttribute", "setTriggerEnabled", "TriggerEnabled"})
        EXPECT_EQ(driver.calls.count(call), 0U) << call;
    area.disableTriggering(false);
    EXPECT_EQ(page.txtChannel.text(), "");
    page.isLoading = true;
    driver.groups[0].channels[1].triggerSource = true;
    area.enableTriggering(true);
    EXPECT_EQ(page.TriggerChannel, 1) << "while the page is built the channel that the driver marks is taken over";
    EXPECT_EQ(grid.rowCount(), 1);
    driver.hasParameters = false;
    area.enableTriggering(true);
    EXPECT_EQ(grid.rowCount(), 0);
}

TEST_F(TriggerArea, AChannelThatTheStartMasterLacksIsForgotten)
{
    driver.parameters = {{}};
    switchOn();
    driver.failing = {"ChannelCount"};
    area.followStartMaster();
    EXPECT_EQ(page.TriggerChannel, 1) << "a driver that fails does not lack it";
    EXPECT_EQ(host.takeReports().size(), 1U);
    addDriver().groups = {{"Inputs", {{}, {}}}};
    page.dynamicDriverIndex = 1;
    area.followStartMaster();
    EXPECT_EQ(page.TriggerChannel, 1);
    EXPECT_EQ(grid.rowCount(), 0) << "but the rows were the other driver's";
    EXPECT_FALSE(grid.enabled());
    fakes[1]->groups[0].channels.pop_back();
    area.followStartMaster();
    EXPECT_EQ(page.TriggerSlot, -1);
    EXPECT_EQ(page.TriggerChannel, -1);
    EXPECT_EQ(page.txtChannel.text(), "");
}

TEST_F(TriggerArea, ChoosingAChannelMovesTheDriversSwitch)
{
    dialog.FilterCanTrigger(true);
    driver.parameters = {{}};
    switchOn();
    host.inModalForm = [&](Form&) {
        EXPECT_TRUE(page.isDialogOpen);
        dialog.chsNavigate.userPicked({2});
        dialog.cmdOK.userClicked();
    };
    page.cmdChannel.userClicked();
    EXPECT_EQ(driver.writes, (Texts{"setTriggerEnabled 0 1 off", "setTriggerEnabled 0 0 on"}));
    EXPECT_EQ(page.txtChannel.text(), "Mainframe: 0 Slot: 3 Channel: 1");
    EXPECT_EQ(page.TriggerChannel, 0);
    EXPECT_EQ(marks, 1);
    int shown = 0;
    host.inModalForm = [&](Form&) {
        EXPECT_EQ(dialog.chsNavigate.selected(), ChannelSelector::Lines{2}) << "the previous channel again";
        dialog.chsNavigate.userPicked({});
        (++shown < 3 ? dialog.cmdOK : dialog.cmdCancel).userClicked();
    };
    page.cmdChannel.userClicked();
    EXPECT_EQ(host.takeMessages(), Texts(2, "Error: " + support.text(1159) + " (64)"));
    EXPECT_EQ(page.TriggerChannel, 0);
    EXPECT_EQ(marks, 1);
    host.inModalForm = [&](Form&) { dialog.chsNavigate.userActivated(0); };
    page.cmdChannel.userClicked();
    EXPECT_EQ(page.TriggerSlot, -1);
    EXPECT_EQ(page.txtChannel.text(), "Digitizer") << "the whole device";
    EXPECT_EQ(grid.rowCount(), 0);
    EXPECT_EQ(driver.writes.back(), "setTriggerEnabled 0 0 off");
}

} // namespace
} // namespace ko::test

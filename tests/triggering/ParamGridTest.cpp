#include "TriggerArea.h"

namespace ko::test {
namespace {

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
        {"Integer", 99, "99", Outcome::Done, 99, nullptr}, // unchanged: neither checked nor written
    };
    for (const Case& c : cases) {
        driver.parameters = {{.type = c.type, .value = c.before, .choices = {"up", "down"}}};
        switchOn();
        host.messages.clear();
        marks = 0;
        EXPECT_EQ(grid.userEditedCell(1, c.typed), c.outcome) << c.type << c.typed;
        EXPECT_EQ(driver.parameters[0].value, c.after) << c.type << c.typed;
        const bool written = c.after != c.before;
        EXPECT_EQ(driver.writes.size(), written) << c.type << c.typed;
        EXPECT_EQ(marks, written) << c.type << c.typed;
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
    EXPECT_FALSE(grid.checkEdit());
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

TEST_F(TriggerArea, AnEditThatCannotBeCorrectedIsGivenUp)
{
    page.statusSite = host.queryStatusSite();
    const struct {
        const char *type, *typed, *failing;
        std::ptrdiff_t hints;
    } cases[]{{"mystery", "b", "", 1},
              {"Enum", "sideways", "", 0},
              {"Bool", "maybe", "", 0},
              {"Float", "2", "GetTriggerParamType", 0}};
    const std::function<bool()> ways[] = {[&] { return page.moveFocus(&page.cmdChannel); },
                                          [&] { return grid.checkEdit(); },
                                          [&] { return grid.userEndedEdit() == Outcome::Refused; }};
    for (const auto& c : cases)
        for (const auto& way : ways) {
            driver.failing = {};
            driver.parameters = {{.type = c.type, .value = "False", .choices = {"up", "False"}}};
            switchOn();
            host.messages.clear();
            host.hints.clear();
            ASSERT_EQ(grid.userOpenedCell(1), Outcome::Done) << c.type;
            EXPECT_TRUE(grid.checkEdit()) << "an unchanged cell passes";
            grid.setSelText(c.typed);
            driver.failing = {c.failing};
            EXPECT_TRUE(way()) << c.type;
            EXPECT_EQ(grid.editedRow(), 0) << c.type;
            EXPECT_EQ(values(), Texts{"False"});
            EXPECT_EQ(std::count(host.hints.begin(), host.hints.end(), "Unrecognized Parameter Type: mystery"),
                      c.hints);
            EXPECT_EQ(host.takeReports().size(), *c.failing ? 1U : 0U);
            EXPECT_EQ(grid.isEditable(1), !*c.failing) << "a value without a type is not edited again";
            EXPECT_EQ(driver.writes, Texts());
        }
    driver.failing = {"GetTriggerParamType"};
    switchOn();
    EXPECT_FALSE(grid.isEditable(1));
    EXPECT_EQ(host.takeReports().size(), 1U);
}

TEST_F(TriggerArea, AnOpenCellShowsItsRangeAndMarksWhatItWouldRefuse)
{
    page.statusSite = host.queryStatusSite();
    const struct {
        const char *type, *failing, *hint, *bad;
    } cases[] = {{"Float", "", "  A valid real number in the range -9.5 to 10.5 is required.", "10.6"},
                 {"Integer", "", "  A valid integer in the range -9 to 10 is required.", "x"},
                 {"Float", "GetTriggerParamMax", "", ""},
                 {"String", "", "", ""}};
    for (const auto& c : cases) {
        driver.parameters = {{.type = c.type, .value = 2, .min = -9.5, .max = 10.5}};
        switchOn();
        host.hints.clear();
        driver.failing = {c.failing};
        grid.userOpenedCell(1);
        driver.failing = {};
        EXPECT_EQ(host.hints, Texts(*c.hint ? 1 : 0, c.hint));
        for (const char* typed : {"x", c.bad, "5", "2"}) {
            grid.userTypedInCell(typed, 0, 0);
            EXPECT_EQ(grid.editorMarked(), *c.hint && (typed == std::string("x") || typed == std::string(c.bad)))
                << typed;
        }
        grid.userDroppedEdit();
        EXPECT_EQ(host.hints.empty() ? "" : host.hints.back(), "");
        EXPECT_FALSE(grid.editorMarked());
        EXPECT_EQ(grid.cell(1, Grid::valueColumn).style.alignment,
                  *c.type == 'S' ? CellStyle::Alignment::left : CellStyle::Alignment::right);
    }
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
    EXPECT_EQ(grid.userEditedCell(1, "99"), Outcome::Refused) << "the other bound still counts";
    EXPECT_EQ(host.takeMessages().size(), 1U);
    EXPECT_EQ(host.takeReports().size(), 1U);
    grid.userEditedCell(1, "-99");
    EXPECT_EQ(driver.parameters[0].value, Value(7.5)) << "written, and changed by the driver";
    EXPECT_EQ(marks, 2) << "a missing bound is no bound";
    EXPECT_EQ(host.takeReports(), Texts{"KoTimebaseEditor:grdParam_OnValidateCell 1000: GetTriggerParamMin failed"});
}

TEST_F(TriggerArea, ARowThatCannotBeReadShowsWhatWasWrittenAndFollowsAtTheNextEdit)
{
    const struct {
        const char* failing;
        bool whenFilled, isEditable;
        const char* shown;
    } cases[] = {{"GetTriggerParamValue", false, true, "up"},
                 {"GetTriggerParamType", false, false, "down"}, // given up, and not written
                 {"GetTriggerParamType", true, false, "down"}};
    for (const auto& c : cases) {
        driver.parameters = {{.id = 2, .type = "Enum", .value = "down", .choices = {"up", "down"}},
                             {.id = 4, .type = "StringReadOnly", .value = "fixed"},
                             {.id = 5, .value = 1.0}};
        driver.failing = {c.whenFilled ? c.failing : ""};
        switchOn();
        driver.failing = {c.failing};
        grid.userEditedCell(1, "up");
        EXPECT_EQ(values()[0], c.shown) << &c - cases;
        EXPECT_EQ(grid.isEditable(1), c.isEditable) << &c - cases;
        EXPECT_FALSE(host.takeReports().empty());
        driver.failing = {};
        driver.parameters[0].value = "gone";
        if (c.whenFilled)
            area.enableTriggering(true);
        EXPECT_EQ(grid.userEditedCell(3, "2"), Outcome::Done);
        EXPECT_EQ(values(), (Texts{"gone", "fixed", "2"})) << &c - cases;
        EXPECT_FALSE(grid.isEditable(2));
        EXPECT_EQ(grid.userEditedCell(1, "up"), Outcome::Done) << &c - cases;
        EXPECT_EQ(driver.parameters[0].value, Value("up"));
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

} // namespace
} // namespace ko::test

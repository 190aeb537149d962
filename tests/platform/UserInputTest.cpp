#include "AnyForm.h"
#include "platform/Utf8.h"

#include <optional>

namespace ko::test {
namespace {

using UserInput = AnyForm;

using Words = std::vector<std::string>;

TEST_F(UserInput, InputToWhatCannotBeUsedIsInertAndInputThatIsNotLetInIsRefused)
{
    before.validate = [] { return false; };
    ASSERT_TRUE(moveFocus(&before));
    for (const auto& [name, door] : doors)
        EXPECT_EQ(door(), Outcome::Refused) << name;
    EXPECT_EQ(tabs.userChoseTab(0), Outcome::Refused);
    EXPECT_EQ(activeControl(), &before);
    before.validate = [&] {
        EXPECT_FALSE(moveFocus(&box)) << "who is asked cannot go elsewhere meanwhile";
        frame.setEnabled(false);
        return true;
    };
    EXPECT_EQ(list.userChose(0), Outcome::Refused) << "the answer has disabled it";
    for (const auto& [name, door] : doors)
        EXPECT_EQ(door(), Outcome::Inert) << name;
    EXPECT_FALSE(moveFocus(&box)) << "it is disabled";
    for (const Outcome outcome :
         {box.userTyped("x"), box.userReplaced("x", 0, 0), box.userSelected(0, 0), box.userUndid(),
          grid.userTypedInCell("x", 0, 0), grid.userSelectedInCell(0, 0), grid.userEndedEdit(), grid.userDroppedEdit(),
          list.userChose(2), calendar.userChose(2026, 11, 24), picker.userChose(15, 4, 5), tabs.userChoseTab(1),
          tabs.userChoseTab(-1), selector.userPicked({7}), selector.userActivated(7)})
        EXPECT_EQ(outcome, Outcome::Inert);
    EXPECT_EQ(box.text(), "");
    EXPECT_EQ(list.index(), -1);
    EXPECT_EQ(grid.cell(2, 1).value, "text");
}

TEST_F(UserInput, WhatIsPutInEndsAtItsFirstLineBreakAndOneThatBeginsWithItChangesNothing)
{
    const struct {
        std::string given; // for the "12" of "A12B"
        const char *text, *selected;
    } cases[] = {{"1\n2", "A1B", ""},      {"1\r\n2", "A1B", ""},    {"\u00e9\u20282", "A\u00e9B", ""},
                 {"12", "A12B", ""},       {"7\n", "A7B", ""},       {" \n7", "A B", ""},
                 {"", "AB", ""},           {"\n1\n2", "A12B", "12"}, {"\r\n", "A12B", "12"},
                 {"\u20287", "A12B", "12"}};
    grid.cellEdited = [&](CellEvent& event) { grid.setValue(event.row, event.text); };
    for (const auto& c : cases) {
        const std::string edited = "A" + c.given + "B";
        const std::size_t cursor = utf8Length(edited) - 1;
        const std::function<void()> ways[] = {[&] { box.userTyped(c.given); }, [&] { box.setSelText(c.given); },
                                              [&] { box.userReplaced(edited, cursor, 0); },
                                              [&] { grid.setSelText(c.given); },
                                              [&] { grid.userTypedInCell(edited, cursor, 0); }};
        for (const auto& way : ways) {
            ASSERT_EQ(grid.userOpenedCell(1), Outcome::Done);
            box.userReplaced("A12B", 1, 2);
            grid.userTypedInCell("A12B", 1, 2);
            way();
            const bool inBox = &way < &ways[3];
            EXPECT_EQ(inBox ? box.text() : grid.editor().text(), c.text) << c.given << &way - ways;
            EXPECT_EQ(inBox ? box.selText() : grid.selText(), c.selected) << c.given << &way - ways;
            grid.userDroppedEdit();
        }
        grid.setValue(1, "12");
        box.setText("12");
        EXPECT_EQ(grid.userEditedCell(1, c.given), Outcome::Done);
        box.userReplaced(c.given, utf8Length(c.given), 0);
        EXPECT_EQ("A" + box.text() + "B", c.text) << "as a whole";
        EXPECT_EQ("A" + grid.cell(1, 1).value + "B", c.text) << "as a whole";
    }
}

TEST_F(UserInput, InputMovesTheFocusFirstAndIsReportedAsAScenarioCommand)
{
    std::vector<Words> reported;
    userActs = [&](const Words& words) { reported.push_back(words); };
    for (const auto& [name, door] : doors) {
        dropFocus();
        reported.clear();
        EXPECT_EQ(door(), Outcome::Done) << name;
        ASSERT_FALSE(reported.empty()) << name;
        EXPECT_EQ(reported.front().front(), "focus") << name;
        EXPECT_TRUE(reported.back().front() == name || name == std::string("drop")) << name;
    }
    EXPECT_EQ(selector.userPicked({0}), Outcome::Inert) << "there is no line";
    EXPECT_EQ(grid.userTypedInCell("text", 0, 0), Outcome::Inert) << "no cell is open";
    box.setText("text");
    EXPECT_EQ(box.userSelected(1, 2), Outcome::Done);
    EXPECT_EQ(box.selText(), "ex");
    frame.setVisible(false);
    EXPECT_TRUE(before.isShown() && !box.isShown());
    frame.setVisible(true);
    EXPECT_TRUE(box.isShown());
    box.setText("");
    reported.clear();
    EXPECT_EQ(selector.userPicked({}), Outcome::Done);
    EXPECT_EQ(reported.back(), (Words{"pick", "none"}));
    EXPECT_EQ(menu.userClicked(), Outcome::Done);
    EXPECT_EQ(reported.back(), (Words{"click", "menu"}));
    EXPECT_EQ(tabs.userChoseTab(0), Outcome::Done);
    EXPECT_EQ(reported.back(), (Words{"choose", "tabs", "#0"}));
    for (const Outcome outcome : {grid.userOpenedCell(1), grid.userOpenedCell(1), grid.userSelectedInCell(1, 2)})
        EXPECT_EQ(outcome, Outcome::Done);
    EXPECT_EQ(reported.back(), (Words{"select", "grid", "1", "2"}));
    EXPECT_EQ(grid.selText(), "ex");
    reported.clear();
    EXPECT_EQ(grid.userSelectedInCell(1, 2), Outcome::Done);
    EXPECT_EQ(reported, std::vector<Words>()) << "views repeat input that was already reported";
    grid.setRowCount(2);
    EXPECT_EQ(grid.editedRow(), 0) << "its rows may be others now";
    EXPECT_EQ(grid.userOpenedCell(1), Outcome::Done);
    Grid::Cell closed = grid.cell(1, 1);
    closed.style.enabled = false;
    grid.setCell(1, 1, closed);
    EXPECT_EQ(grid.editedRow(), 0) << "nor can a cell be edited that was taken away";
    EXPECT_EQ(grid.textEditing(), nullptr);
    EXPECT_TRUE(moveFocus(&box));
    reported.clear();
    for (const Outcome outcome : {box.userReplaced("a", 1, 0), box.userReplaced("ab", 2, 0),
                                  box.userReplaced("xyz", 3, 0), box.userReplaced("xyz", 0, 3)})
        EXPECT_EQ(outcome, Outcome::Done);
    EXPECT_EQ(reported, (std::vector<Words>{
                            {"type", "a"}, {"type", "b"}, {"text", "box", "xyz"}, {"text", "box", "xyz", "0", "3"}}));
    reported.clear();
    for (const std::int16_t code : {key::f1, std::int16_t{key::f1 - 1}, std::int16_t{key::f12 + 1}}) {
        KeyPress press{code, 3};
        userPressedKey(press);
    }
    EXPECT_EQ(reported, (std::vector<Words>{{"key", "Shift+Ctrl+F1"}}));
}

TEST_F(UserInput, AnOpenCellIsEndedAsItsStyleSaysAndALockedBoxIsReadOnly)
{
    for (const char* text : {"TRUE", "1", "-1", "False", "0"})
        EXPECT_EQ(checkState(text), text[0] != 'F' && text[0] != '0') << text;
    for (const char* text : {"tru", "yes", "-0"})
        EXPECT_EQ(checkState(text), std::nullopt) << text;
    for (const std::int32_t row : {0, 3})
        EXPECT_EQ(grid.userOpenedCell(row), Outcome::Inert);
    EXPECT_EQ(grid.userOpenedCell(1), Outcome::Done);
    std::vector<Aspect> reported;
    grid.view = [&](Aspect aspect) { reported.push_back(aspect); };
    for (const Outcome outcome :
         {grid.userTypedInCell("text", 4, 0), grid.userTypedInCell("texts", 5, 0), grid.userTypedInCell("texts", 0, 5)})
        EXPECT_EQ(outcome, Outcome::Done);
    EXPECT_EQ(reported, (std::vector{Aspect::Selection, Aspect::Text, Aspect::Selection}));
    grid.OnValidateCell = [&](CellEvent& event) {
        EXPECT_EQ(grid.userEndedEdit(), Outcome::Refused) << "it is being ended already";
        event.Value = false;
    };
    EXPECT_EQ(grid.userEndedEdit(), Outcome::Refused);
    EXPECT_EQ(grid.editedRow(), 1) << "a text can be corrected";
    frame.setEnabled(false);
    for (const Outcome outcome : {grid.userTypedInCell("x", 0, 0), grid.userSelectedInCell(0, 0)})
        EXPECT_EQ(outcome, Outcome::Inert);
    EXPECT_EQ(grid.editedRow(), 0) << "dropped with the focus";
    frame.setEnabled(true);
    Grid::Cell check = grid.cell(1, 1);
    check.style.control = CellStyle::Control::check;
    grid.setCell(1, 1, check);
    EXPECT_EQ(grid.userEditedCell(1, "1"), Outcome::Refused);
    EXPECT_EQ(grid.editedRow(), 0) << "a check has nothing to correct";
    box.setLocked(true);
    for (const Outcome outcome : {box.userReplaced("x", 0, 0), box.userUndid()})
        EXPECT_EQ(outcome, Outcome::Inert);
}

} // namespace
} // namespace ko::test

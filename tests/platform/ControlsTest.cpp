#include "AnyForm.h"
#include "fakes/Thrown.h"
#include "platform/OneBased.h"

namespace ko::test {
namespace {

using Controls = AnyForm;

TEST_F(Controls, AMissingItemIsAFailureAndChangesNothing)
{
    const std::function<void()> invalid[] = {[&] { list.select(2); },           [&] { list.select(-2); },
                                             [&] { list.replaceItem(2, {}); },  [&] { return list.itemData(); },
                                             [&] { return grid.editor(); },     [&] { menu.setToolTipText("x"); },
                                             [&] { return menu.toolTipText(); }};
    for (const auto& call : invalid)
        EXPECT_EQ(failureOf(call), failure::invalidCall) << &call - invalid;
    const std::function<void()> outside[] = {
        [&] { return grid.cell(3, 0); }, [&] { return grid.cell(-1, 0); },   [&] { return grid.cell(0, 3); },
        [&] { tabs.setTab(1); },         [&] { tabs.setTab(-1); },           [&] { return &tabs.frame(1); },
        [&] { return &tabs.frame(-1); }, [] { return OneBased<int>{1}[2]; }, [] { return OneBased<int>{1}[0]; }};
    for (const auto& call : outside)
        EXPECT_EQ(failureOf(call), failure::subscriptOutOfRange) << &call - outside;
    EXPECT_EQ(list.index() + tabs.tab(), -1);
}

TEST_F(Controls, AnInvalidDateOrTimeIsRefusedPartByPart)
{
    const int dates[][3] = {{99, 1, 1},   {10000, 1, 1}, {2026, 0, 1}, {2026, 13, 1},
                            {2026, 1, 0}, {2026, 1, 32}, {2026, 2, 29}};
    for (const auto& d : dates) {
        EXPECT_EQ(calendar.userChose(d[0], d[1], d[2]), Outcome::Inert) << &d - dates;
        EXPECT_EQ(failureOf([&] { calendar.setDate(d[0], d[1], d[2]); }), failure::invalidCall);
    }
    const int times[][3] = {{-1, 0, 0}, {24, 0, 0}, {0, -1, 0}, {0, 60, 0}, {0, 0, -1}, {0, 0, 60}};
    for (const auto& t : times) {
        EXPECT_EQ(picker.userChose(t[0], t[1], t[2]), Outcome::Inert) << &t - times;
        EXPECT_EQ(failureOf([&] { picker.setTime(t[0], t[1], t[2]); }), failure::invalidCall);
    }
    EXPECT_EQ(picker.hour() + picker.minute() + picker.second(), 0);
    for (const int year : {100, 9999}) {
        calendar.setDate(year, 12, 31);
        EXPECT_EQ(calendar.year(), year);
    }
}

TEST_F(Controls, AnUnchangedPropertyDoesNotNotifyTheView)
{
    int drawn = 0, ofForm = 0;
    const auto count = [&](Aspect) { ++drawn; };
    for (Control* control : controls())
        control->view = count;
    view = [&] { ++drawn, ++ofForm; };
    const std::function<void()> settings[] = {[&] { setCaption("caption"); },
                                              [&] { resize(10, 20); },
                                              [&] { resize(10, 30); },
                                              [&] { box.setLocked(true); },
                                              [&] { box.setText("text"); },
                                              [&] { box.setMarked(true); },
                                              [&] {
                                                  label.move({1, 2, 3, 4});
                                              },
                                              [&] { label.setCaption("caption"); },
                                              [&] { list.select(1); },
                                              [&] { option.showSelected(); },
                                              [&] { setForReading(true); },
                                              [&] { box.setTag("tag"); },
                                              [&] { box.setToolTipText("tip"); },
                                              [&] { box.setFont({.name = "Serif"}); },
                                              [&] { box.setEscapeText("old"); },
                                              [&] { box.select(1, 2); },
                                              [&] { box.setVisible(false); },
                                              [&] { frame.setEnabled(false); },
                                              [&] { calendar.setDate(2026, 5, 7); },
                                              [&] { picker.setTime(1, 2, 3); },
                                              [&] { picker.setFormat({.picture = "H:mm"}); },
                                              [&] { image.setPicture(7); },
                                              [&] { share.setShare(0.5); },
                                              [&] {
                                                  table.setContent({"a"}, {{"b", {{"c", "", {}}}}});
                                              },
                                              [&] {
                                                  timeline.setPoints({{}, {}});
                                              },
                                              [&] { option.deselect(); }};
    for (const auto& set : settings)
        for (const bool isSet : {false, true}) {
            drawn = 0;
            set();
            EXPECT_EQ(drawn == 0, isSet) << &set - settings;
        }
    setForReading(false);
    const std::function<void()> parts[] = {[&] { tabs.setTabCaption(0, "tab"); }, [&] { tabs.setTabEnabled(0, false); },
                                           [&] { grid.setColumnWidth(0, 7); },    [&] { grid.setValue(1, "other"); },
                                           [&] { grid.setRowCount(1); },          [&] { grid.setColHeaderStyle({}); },
                                           [&] { selector.setCanTrigger(true); }, [&] { selector.setNotes({"note"}); }};
    for (const auto& set : parts) {
        drawn = 0;
        set();
        EXPECT_GT(drawn, 0) << &set - parts;
    }
    before.validate = [] { return false; };
    for (const auto& set : std::initializer_list<std::function<void()>>{
             [&] { setCaption("other"); }, [&] { move(1, 2); }, [&] { resize(7, 8); }, [&] { setForReading(true); },
             [&] { moveFocus(&before); }, [&] { moveFocus(&tabs); }, [&] { dropFocus(); }}) {
        ofForm = 0;
        set();
        EXPECT_EQ(ofForm, 1);
    }
}

} // namespace
} // namespace ko::test

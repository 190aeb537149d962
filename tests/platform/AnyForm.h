#pragma once

#include "platform/CaptionControls.h"
#include "platform/ChannelSelector.h"
#include "platform/ComboBox.h"
#include "platform/DateControls.h"
#include "platform/Form.h"
#include "platform/Grid.h"
#include "platform/TabControl.h"
#include "platform/Table.h"
#include "platform/TextBox.h"
#include "platform/Timeline.h"

#include <functional>
#include <gtest/gtest.h>

namespace ko::test {

/// A form with one control of each kind that accepts the user's input.
class AnyForm : public testing::Test, protected Form {
protected:
    AnyForm() : Form("Any")
    {
        list.setItems({{"one", 1}, {"two", 2}});
        grid.setRowCount(2);
        for (std::int32_t row = 1; row <= 2; ++row) {
            Grid::Cell cell{"text", grid.standardStyle()};
            cell.style.enabled = true;
            grid.setCell(row, 1, cell);
        }
    }

    Frame frame{*this, "frame"};
    TextBox before{*this, "before"};
    TextBox box{*this, "box", &frame};
    ComboBox list{*this, "list", &frame};
    Grid grid{*this, "grid", &frame};
    Calendar calendar{*this, "calendar", &frame};
    TimePicker picker{*this, "picker", &frame};
    OptionButton option{*this, "option", &frame};
    Frame page{*this, "page"};
    TabControl tabs{*this, "tabs", {&page}};
    ChannelSelector selector{*this, "selector", &frame};
    Label label{*this, "label", &frame};
    Menu menu{*this, "menu"};
    Image image{*this, "image"};
    LimitedLabel share{*this, "share"};
    Table table{*this, "table"};
    Timeline timeline{*this, "timeline"};

    /// Every function for the user's input to a control, except those of an open cell.
    const std::pair<const char*, std::function<Outcome()>> doors[7] = {
        {"choose", [this] { return list.userChose(1); }},
        {"double-click", [this] { return box.userDoubleClicked(); }},
        {"drop", [this] { return box.userDropsText(); }},
        {"open-cell", [this] { return grid.userOpenedCell(1); }},
        {"cell", [this] { return grid.userEditedCell(2, "more"); }},
        {"click", [this] { return option.userClicked(); }},
        {"pick", [this] { return selector.userPicked({}); }}};
};

} // namespace ko::test

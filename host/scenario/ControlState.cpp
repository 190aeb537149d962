#include "host/scenario/ControlState.h"

#include "host/scenario/Commands.h"
#include "platform/ChannelSelector.h"
#include "platform/DateControls.h"
#include "platform/TabControl.h"
#include "platform/Table.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <nlohmann/json.hpp>

namespace ko {

namespace {

Json textsOf(const std::vector<ComboBox::Item>& items)
{
    Json texts = Json::array();
    for (const ComboBox::Item& item : items)
        texts.push_back(item.text);
    return texts;
}

const char* cellControlName(CellStyle::Control control)
{
    switch (control) {
    case CellStyle::Control::check: return "check";
    case CellStyle::Control::list: return "list";
    case CellStyle::Control::edit: break;
    }
    return "edit";
}

Json rowState(const Grid& grid, std::int32_t row)
{
    const Grid::Cell& value = grid.cell(row, 1);
    const std::string& id = grid.cell(row, 2).value;
    const auto number = integerIn(id);
    return {{"name", grid.cell(row, 0).value},         {"value", value.value},
            {"id", number ? Json(*number) : Json(id)}, {"control", cellControlName(value.style.control)},
            {"choices", value.style.choices},          {"editable", value.style.enabled && !value.style.readOnly}};
}

Json rowsOf(const Grid& grid)
{
    Json rows = Json::array();
    for (std::int32_t row = 1; row <= grid.rowCount(); ++row)
        rows.push_back(rowState(grid, row));
    return rows;
}

void addContent(Json& state, const TextBox& box)
{
    state["text"] = box.text();
    state["locked"] = box.locked();
    state["selStart"] = box.selStart();
    state["selLength"] = box.selLength();
}

void addContent(Json& state, const ComboBox& box)
{
    state["items"] = textsOf(box.items());
    state["index"] = box.index();
    state["text"] = box.text();
}

/// Formats three numbers as the command `text` takes them.
std::string joined(const char* format, int first, int second, int third)
{
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), format, first, second, third);
    return text.data();
}

void addContent(Json& state, const Calendar& calendar)
{
    state["text"] = joined("%04d-%02d-%02d", calendar.year(), calendar.month(), calendar.day());
}

void addContent(Json& state, const TimePicker& picker)
{
    state["text"] = joined("%02d:%02d:%02d", picker.hour(), picker.minute(), picker.second());
}

void addContent(Json& state, const CaptionControl& control)
{
    if (const auto* image = dynamic_cast<const Image*>(&control))
        state["picture"] = image->picture();
    else
        state["caption"] = control.caption();
    if (const auto* option = dynamic_cast<const OptionButton*>(&control))
        state["value"] = option->value();
}

void addContent(Json& state, const Grid& grid)
{
    state["rows"] = rowsOf(grid);
    if (grid.editedRow() > 0)
        state["editor"] = {{"row", grid.editedRow()}, {"text", grid.editor().text()}};
}

void addContent(Json& state, const TabControl& control)
{
    state["items"] = Json::array();
    state["enabledItems"] = Json::array();
    for (const TabControl::Tab& tab : control.tabs()) {
        state["items"].push_back(tab.caption);
        state["enabledItems"].push_back(tab.enabled);
    }
    state["index"] = control.tab();
}

void addContent(Json& state, const Table& table)
{
    state["columns"] = table.columns();
    state["rows"] = Json::array();
    for (const Table::Row& row : table.rows()) {
        Json cells = Json::array();
        for (const Table::Cell& cell : row.cells)
            cells.push_back(cell.text);
        state["rows"].push_back({{"name", row.header}, {"cells", std::move(cells)}});
    }
}

void addContent(Json& state, const ChannelSelector& selector)
{
    const auto& selected = selector.selected();
    state["entries"] = Json::array();
    for (std::size_t line = 0; line < selector.entries().size(); ++line) {
        const ChannelSelector::Entry& entry = selector.entries()[line];
        const bool isSelected = std::find(selected.begin(), selected.end(), line) != selected.end();
        state["entries"].push_back(
            {{"slot", entry.slot}, {"channel", entry.channel}, {"text", entry.text}, {"selected", isSelected}});
    }
}

} // namespace

Json controlState(const Control& control)
{
    Json state{{"type", control.typeName()},
               {"enabled", control.enabled()},
               {"visible", control.visible()},
               {"tag", control.tag()}};
    if (const auto* text = dynamic_cast<const TextBox*>(&control))
        addContent(state, *text);
    else if (const auto* combo = dynamic_cast<const ComboBox*>(&control))
        addContent(state, *combo);
    else if (const auto* caption = dynamic_cast<const CaptionControl*>(&control))
        addContent(state, *caption);
    else if (const auto* calendar = dynamic_cast<const Calendar*>(&control))
        addContent(state, *calendar);
    else if (const auto* picker = dynamic_cast<const TimePicker*>(&control))
        addContent(state, *picker);
    else if (const auto* grid = dynamic_cast<const Grid*>(&control))
        addContent(state, *grid);
    else if (const auto* tabs = dynamic_cast<const TabControl*>(&control))
        addContent(state, *tabs);
    else if (const auto* table = dynamic_cast<const Table*>(&control))
        addContent(state, *table);
    else if (const auto* selector = dynamic_cast<const ChannelSelector*>(&control))
        addContent(state, *selector);
    return state;
}

Json formState(const Form& form)
{
    return {{"type", "Form"}, {"caption", form.caption()}};
}

Json pageState(const Page& page)
{
    return {{"editFlags", page.editFlags},
            {"readOnly", page.readOnly},
            {"isShown", page.isShown},
            {"isLoading", page.isLoading},
            {"dynamicDriver", page.dynamicDriverIndex},
            {"staticDriver", page.staticDriverIndex},
            {"trigger", {{"slot", page.TriggerSlot}, {"channel", page.TriggerChannel}}},
            {"lines",
             {{"start", page.lines.line(LineTrigger::start)},
              {"sync", page.lines.line(LineTrigger::scan)},
              {"availableStart", page.lines.available(LineTrigger::start)},
              {"availableSync", page.lines.available(LineTrigger::scan)}}}};
}

std::string propertyText(const Json& property)
{
    return property.is_string() ? property.get<std::string>()
                                : property.dump(-1, ' ', false, Json::error_handler_t::replace);
}

} // namespace ko

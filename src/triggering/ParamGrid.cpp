#include "triggering/ParamGrid.h"

#include "interfaces/InternalParameters.h"
#include "interfaces/TriggerParameters.h"
#include "page/Hints.h"
#include "platform/NumberText.h"
#include "support/TextNumbers.h"
#include "triggering/TriggerParameter.h"

#include <algorithm>
#include <utility>

namespace ko {

namespace {

/// Redraws the grid once for all changes within its scope.
class DrawingLock {
public:
    explicit DrawingLock(Grid& grid) : grid_(grid) { grid_.lockDrawing(true); }
    ~DrawingLock() { grid_.lockDrawing(false); }
    DrawingLock(const DrawingLock&) = delete;
    DrawingLock& operator=(const DrawingLock&) = delete;

private:
    Grid& grid_;
};

} // namespace

ParamGrid::ParamGrid(Page& page, Support& support, Actions& actions)
    : page_(page), support_(support), actions_(actions), grid_(page.grdParam)
{
    grid_.OnValidateCell = [this](CellEvent& event) { grdParam_OnValidateCell(event); };
    grid_.cellEdited = [this](CellEvent& event) { grdParam_CellEdited(event); };
    grid_.editorChanged = [this] { followEditor(); };
    grid_.cellOpened = [this] { grdParam_Open(); };
    grid_.editorTyped = [this] { followTyping(); };
}

void ParamGrid::clear()
{
    grid_.setRowCount(0);
    grid_.setEnabled(false);
}

void ParamGrid::SetupParamGrid(Driver* driver, std::int32_t slot, std::int32_t channel)
{
    const Steps step(support_.errors, "SetupParamGrid");
    slot_ = slot;
    channel_ = channel;
    TriggerParameters* parameters =
        driver && channel >= 0 ? step.value([&] { return driver->queryTriggerParameters(); }) : nullptr;
    const std::int32_t count =
        parameters ? step.value([&] { return parameters->GetTriggerParamCount(slot, channel); }) : 0;
    const DrawingLock lock(grid_);
    grid_.setRowCount(0);
    std::int32_t row = 1;
    for (std::int32_t index = 0; index < count; ++index)
        if (fillRow(step, *parameters, index, row))
            ++row;
    step([&] { grid_.setRowCount(row - 1); });
    grid_.setEnabled(grid_.rowCount() > 0);
    step([&] { makeEditable(); });
    step([&] { sizeColumns(); });
}

/// False when the parameter is not shown.
bool ParamGrid::fillRow(const Steps& step, TriggerParameters& parameters, std::int32_t index, std::int32_t row)
{
    std::int32_t id = 0;
    if (!step([&] { id = parameters.GetTriggerParamId(slot_, channel_, index); }) || isInternalParameter(id))
        return false;
    grid_.setRowCount(row);
    CellStyle fixed = parameterStyle({});
    fixed.font = grid_.standardStyle().font;
    grid_.setCell(row, Grid::nameColumn,
                  {step.value([&] { return parameters.GetTriggerParamName(slot_, channel_, id); }), fixed});
    grid_.setCell(row, Grid::idColumn, {std::to_string(id), fixed});
    std::string type;
    const bool typeKnown = step([&] { type = parameters.GetTriggerParamType(slot_, channel_, id); });
    CellStyle style = styleOf(step, parameters, id, type);
    style.readOnly = style.readOnly || !typeKnown;
    if (typeKnown && !isKnownType(type))
        step([&] {
            support_.platform.messageBox.show(support_.text(textNumber::page::unrecognizedType) + type, "",
                                              messageStyle::plain);
        });
    const Value value = step.value([&] { return parameters.GetTriggerParamValue(slot_, channel_, id); });
    grid_.setCell(row, Grid::valueColumn, {parameterText(type, value, support_.locale()), style});
    return true;
}

CellStyle ParamGrid::styleOf(const Steps& step, TriggerParameters& parameters, std::int32_t id,
                             const std::string& type) const
{
    CellStyle style = parameterStyle(type);
    style.font = grid_.standardStyle().font;
    if (type == "Enum")
        style.choices = step.value([&] { return parameters.GetTriggerParamChoices(slot_, channel_, id); });
    return style;
}

/// A row that was filled or locked while its type was unknown becomes editable once the type can be read.
void ParamGrid::unlockRow(const Steps& step, TriggerParameters& parameters, std::int32_t row, std::int32_t id,
                          const std::string& type)
{
    Grid::Cell cell = grid_.cell(row, Grid::valueColumn);
    if (cell.style.readOnly == parameterStyle(type).readOnly)
        return;
    cell.style = styleOf(step, parameters, id, type);
    grid_.setCell(row, Grid::valueColumn, cell);
    makeEditable();
}

void ParamGrid::makeEditable()
{
    if (page_.readOnly || !page_.optOnTrigger.value())
        return;
    for (std::int32_t row = 1; row <= grid_.rowCount(); ++row) {
        Grid::Cell cell = grid_.cell(row, Grid::valueColumn);
        cell.style.enabled = true;
        cell.style.interior = SystemColor::windowBackground;
        grid_.setCell(row, Grid::valueColumn, cell);
    }
}

void ParamGrid::sizeColumns()
{
    const bool scrolls = grid_.rowCount() > grid_.visibleRows();
    const std::int32_t width = std::max(grid_.innerWidth() - (scrolls ? support_.scrollBarWidth() : 0), 0);
    grid_.setColumnWidth(Grid::nameColumn, width / 2);
    grid_.setColumnWidth(Grid::valueColumn, width - width / 2);
    grid_.setColumnWidth(Grid::idColumn, 0);
}

TriggerParameters& ParamGrid::parametersOfMaster() const
{
    return required(required(page_.driverAt(page_.dynamicDriverIndex)).queryTriggerParameters());
}

std::int32_t ParamGrid::idAt(std::int32_t row) const
{
    return toLong(grid_.cell(row, Grid::idColumn).value, support_.locale());
}

/// An open text cell allows copying and pasting.
void ParamGrid::followEditor()
{
    page_.editFlags = grid_.editedRow() > 0 ? editFlag::copy | editFlag::paste : editFlag::none;
    if (std::exchange(open_, std::nullopt))
        showRange(Steps(support_.errors, "grdParam_Close"));
}

void ParamGrid::grdParam_Open()
{
    const Steps step(support_.errors, "grdParam_Open");
    open_ = checkOf(step, grid_.editedRow());
    if (open_)
        showRange(step);
}

void ParamGrid::followTyping()
{
    const bool isChanged = grid_.editor().text() != grid_.cell(grid_.editedRow(), Grid::valueColumn).value;
    grid_.setEditorMarked(open_ && isChanged &&
                          !validateNumber(support_, grid_.editor().text(), open_->type, open_->bounds, false));
}

/// A failure is not reported here, because the check when the edit ends reads again.
std::optional<NumberCheck> ParamGrid::checkOf(const Steps& step, std::int32_t row) const
{
    return step.value([&]() -> std::optional<NumberCheck> {
        try {
            return readNumberCheck(parametersOfMaster(), slot_, channel_, idAt(row));
        } catch (...) {
            return std::nullopt;
        }
    });
}

/// Shows the range of the open cell in the status site, or an empty hint.
void ParamGrid::showRange(const Steps& step)
{
    const std::string range =
        open_ ? step.value([&] { return rangeText(support_, open_->type, open_->bounds); }) : std::string();
    step([&] { showHint(page_, range.empty() ? range : "  " + range); });
}

/// A value whose type is unknown can be shown but not edited.
void ParamGrid::lockRow(std::int32_t row)
{
    Grid::Cell cell = grid_.cell(row, Grid::valueColumn);
    cell.style.readOnly = true;
    grid_.setCell(row, Grid::valueColumn, cell);
}

void ParamGrid::grdParam_OnValidateCell(CellEvent& event)
{
    const Steps step(support_.errors, "grdParam_OnValidateCell");
    TriggerParameters* parameters = nullptr;
    std::int32_t id = 0;
    std::string type;
    const bool typeKnown = step([&] {
        parameters = &parametersOfMaster();
        id = idAt(event.row);
        type = parameters->GetTriggerParamType(slot_, channel_, id);
    });
    event.Value = event.staysOpen = typeKnown && isKnownType(type);
    if (!typeKnown)
        return lockRow(event.row);
    if (!event.Value)
        step([&] { showHint(page_, support_.text(textNumber::page::unrecognizedType) + type); });
    const std::optional<NumberType> number = checkedAs(type);
    if (!number)
        return;
    NumberBounds bounds;
    step([&] { bounds.minimum = boundOf(parameters->GetTriggerParamMin(slot_, channel_, id)); });
    step([&] { bounds.maximum = boundOf(parameters->GetTriggerParamMax(slot_, channel_, id)); });
    event.Value = validateNumber(support_, event.text, *number, bounds, true);
}

void ParamGrid::grdParam_CellEdited(CellEvent& event)
{
    const Steps step(support_.errors, "grdParam_CellEdited");
    TriggerParameters* parameters = step.value([&] { return &parametersOfMaster(); });
    std::int32_t id = 0;
    std::string type;
    std::optional<Value> value;
    if (parameters)
        step([&] {
            id = idAt(event.row);
            type = parameters->GetTriggerParamType(slot_, channel_, id);
            value = parameterValue(type, event.text, support_.locale());
        });
    event.Value = event.staysOpen = value.has_value();
    if (!value)
        return;
    const bool written = step([&] { parameters->SetTriggerParamValue(slot_, channel_, id, *value); });
    {
        const DrawingLock lock(grid_);
        // Show the written value until it can be read back.
        if (written)
            step([&] { grid_.setValue(event.row, parameterText(type, *value, support_.locale())); });
        readAgain(step, *parameters);
    }
    actions_.refreshPlan();
    if (written)
        step([&] { actions_.markChanged(); });
}

/// Parameters may depend on each other, so every row is read again.
void ParamGrid::readAgain(const Steps& step, TriggerParameters& parameters)
{
    for (std::int32_t row = 1; row <= grid_.rowCount(); ++row) {
        std::int32_t id = 0;
        std::string type;
        const bool typeKnown = step([&] {
            id = idAt(row);
            type = parameters.GetTriggerParamType(slot_, channel_, id);
        });
        if (!typeKnown) {
            lockRow(row);
            continue;
        }
        step([&] { unlockRow(step, parameters, row, id, type); });
        step([&] {
            const Value value = parameters.GetTriggerParamValue(slot_, channel_, id);
            grid_.setValue(row, parameterText(type, value, support_.locale()));
        });
    }
}

} // namespace ko

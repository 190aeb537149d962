#pragma once

#include "page/Actions.h"
#include "page/Page.h"
#include "support/Steps.h"
#include "support/Support.h"
#include "triggering/TriggerParameter.h"

namespace ko {

/// The grid `grdParam`: the trigger parameters of the chosen channel. Every accepted edit is written to the driver at
/// once, and all rows are then read again.
class ParamGrid {
public:
    /// Sets the grid's event handlers. Referenced objects must outlive this object.
    ParamGrid(Page& page, Support& support, Actions& actions);

    /// Fills the grid from a channel of a driver; leaves it empty and disabled when the driver has no trigger
    /// parameters or the channel has none to show. Reports its own failures.
    void SetupParamGrid(Driver* driver, std::int32_t slot, std::int32_t channel);
    /// Removes all rows and disables the grid.
    void clear();

private:
    void grdParam_CellEdited(CellEvent& event);
    void grdParam_OnValidateCell(CellEvent& event);
    void grdParam_Open();
    void followEditor();
    void followTyping();
    [[nodiscard]] std::optional<NumberCheck> checkOf(const Steps& step, std::int32_t row) const;
    void showRange(const Steps& step);
    bool fillRow(const Steps& step, TriggerParameters& parameters, std::int32_t index, std::int32_t row);
    CellStyle styleOf(const Steps& step, TriggerParameters& parameters, std::int32_t id, const std::string& type) const;
    void unlockRow(const Steps& step, TriggerParameters& parameters, std::int32_t row, std::int32_t id,
                   const std::string& type);
    void makeEditable();
    void sizeColumns();
    void readAgain(const Steps& step, TriggerParameters& parameters);
    [[nodiscard]] TriggerParameters& parametersOfMaster() const;
    [[nodiscard]] std::int32_t idAt(std::int32_t row) const;
    void lockRow(std::int32_t row);

    Page& page_;
    Support& support_;
    Actions& actions_;
    Grid& grid_;
    std::int32_t slot_ = -1; ///< the channel shown in the rows
    std::int32_t channel_ = -1;
    std::optional<NumberCheck> open_; ///< of the open cell, read when it was opened
};

} // namespace ko

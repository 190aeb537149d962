#pragma once

#include "page/Quantities.h"
#include "timebase/DynamicEditors.h"
#include "timebase/StaticEditors.h"

#include <string>

namespace ko {

/// Sets a quantity of all drivers to one value that the user enters.
class SetAll {
public:
    /// Referenced objects must outlive this object.
    SetAll(Page& page, Support& support, DynamicEditors& dynamicEditors, StaticEditors& staticEditors)
        : page_(page), support_(support), dynamicEditors_(dynamicEditors), staticEditors_(staticEditors)
    {
    }

    /// Whether the user can edit the quantity at present.
    [[nodiscard]] bool isPossible(const Quantity& quantity) const;

    /// Checks the text as the quantity's box does, with its message, then writes the value to every driver that does
    /// not hold it. Beyond the limit every driver gets its own old value back. Inert when it is not possible. Reports
    /// its own failures.
    Outcome enter(const Quantity& quantity, const std::string& text);

private:
    Page& page_;
    Support& support_;
    DynamicEditors& dynamicEditors_;
    StaticEditors& staticEditors_;
};

} // namespace ko

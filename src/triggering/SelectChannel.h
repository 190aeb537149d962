#pragma once

#include "platform/ChannelSelector.h"
#include "support/DialogForm.h"

namespace ko {

/// The dialog "Select Trigger Channel". Its help topic is set by the document.
class SelectChannel : public DialogForm {
public:
    explicit SelectChannel(Support& support);

    ChannelSelector chsNavigate{*this, "chsNavigate"};
    CommandButton cmdOK{*this, "cmdOK"};
    CommandButton cmdCancel{*this, "cmdCancel"};
    CommandButton cmdHelp{*this, "cmdHelp"};

    /// Shows the dialog on one channel (slot and channel -1: none) until the user ends it. True after OK, with the
    /// selection in the arguments: no driver, -1 and -1 when nothing is selected, else the first one selected. After
    /// Cancel they are as they were. Reports its own failures.
    bool Display(std::shared_ptr<Driver>& driver, std::int32_t& slot, std::int32_t& channel);
    /// The same with any number of channels; an empty selection is one element of no driver, -1 and -1.
    bool Display(ChannelSelections& channels);

    // The selector's filters.
    void DriverType(std::int32_t type) { chsNavigate.setDriverType(type); }
    void FilterCanTrigger(bool only) { chsNavigate.setCanTrigger(only); }
    void FilterDirection(std::int32_t direction) { chsNavigate.setDirection(direction); }
    void FilterSingleValue(bool only) { chsNavigate.setSingleValue(only); }
    void FilterMultiValue(bool only) { chsNavigate.setMultiValue(only); }
    /// More than one: several channels can be selected, up to this many.
    void MaxSelections(std::int32_t count);

    /// The drivers whose channels are offered.
    void UpdateDrivers(const DriverList& drivers, std::int32_t count);

private:
    void Form_Resize();
    bool select(const ChannelSelections& channels);

    // NOLINTBEGIN(readability-identifier-naming): the names that hosts know
    ChannelSelections Sel; ///< what was selected when the dialog was accepted
    std::int32_t SelCount = 0;
    // NOLINTEND(readability-identifier-naming)
};

} // namespace ko

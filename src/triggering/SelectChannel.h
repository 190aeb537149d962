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

    /// Shows the dialog with one channel preselected (slot and channel -1: none) until the user ends it. Returns true
    /// after OK and sets the arguments to the first selection, or to no driver, -1 and -1 when nothing is selected.
    /// After Cancel they are unchanged. Reports its own failures.
    bool Display(std::shared_ptr<Driver>& driver, std::int32_t& slot, std::int32_t& channel);
    /// As above with any number of channels; an empty selection is one element with no driver, -1 and -1.
    bool Display(ChannelSelections& channels);

    // The selector's filters.
    void DriverType(std::int32_t type) { chsNavigate.setDriverType(type); }
    void FilterCanTrigger(bool only) { chsNavigate.setCanTrigger(only); }
    void FilterDirection(std::int32_t direction) { chsNavigate.setDirection(direction); }
    void FilterSingleValue(bool only) { chsNavigate.setSingleValue(only); }
    void FilterMultiValue(bool only) { chsNavigate.setMultiValue(only); }
    /// The maximum number of channels that can be selected.
    void MaxSelections(std::int32_t count);

    /// Sets the drivers whose channels are offered.
    void UpdateDrivers(const DriverList& drivers, std::int32_t count);

    /// Whether the drivers have a channel that passes the filters.
    [[nodiscard]] bool offersChannels() const;
    /// Sets the lines that say what is not offered.
    void setNotes(std::vector<std::string> notes) { chsNavigate.setNotes(std::move(notes)); }

private:
    void Form_Resize();
    bool select(const ChannelSelections& channels);

    // NOLINTBEGIN(readability-identifier-naming): the names that hosts know
    ChannelSelections Sel; ///< the selection when the dialog was accepted
    std::int32_t SelCount = 0;
    // NOLINTEND(readability-identifier-naming)
};

} // namespace ko

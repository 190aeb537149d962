#pragma once

#include "interfaces/IKopDrivers.h"
#include "platform/Control.h"
#include "platform/OneBased.h"

#include <optional>

namespace ko {

/// Channels as three parallel arrays: the driver of each, its slot (the group's index, in `groups`) and its index in
/// the group. A channel of -1 means a whole group; a slot and channel of -1 mean a whole device.
struct ChannelSelections {
    OneBased<std::shared_ptr<Driver>> drivers;
    OneBased<std::int32_t> groups;
    OneBased<std::int32_t> channels;

    bool operator==(const ChannelSelections&) const = default;
};

/// A browser of the drivers' channels: a tree of drivers, groups and channels that pass its filters. A group without
/// listed channels is not listed. The selector shares ownership of its drivers.
class ChannelSelector : public Control, private IKopDrivers {
public:
    /// A line of the tree; lines are in depth-first order.
    struct Entry {
        std::shared_ptr<Driver> driver;
        std::int32_t slot = -1;
        std::int32_t channel = -1;
        std::string text;

        /// 0 a driver, 1 a group, 2 a channel.
        [[nodiscard]] int depth() const { return slot < 0 ? 0 : channel < 0 ? 1 : 2; }
    };
    using Lines = std::vector<std::size_t>; ///< indices of entries

    /// Values of the driver-type filter.
    enum DriverTypes : std::int32_t { everyDriver, dynamicDrivers, staticDrivers };
    /// Values of the direction filter. Drivers report no direction, so every channel counts as an input.
    enum Directions : std::int32_t { inputs, outputs };

    using Control::Control;

    [[nodiscard]] std::string_view typeName() const override { return "ChannelSelector"; }
    [[nodiscard]] bool takesFocus() const override { return true; }
    [[nodiscard]] bool hasFont() const override { return false; }

    /// Accepts the drivers whose channels are listed.
    [[nodiscard]] IKopDrivers& driverList() { return *this; }

    // Filters; each change rebuilds the list of channels.
    void setDriverType(std::int32_t type) { set(driverType_, type); }
    /// Omits the channels that cannot be a trigger source according to their driver.
    void setCanTrigger(bool only) { set(canTrigger_, only); }
    void setDirection(std::int32_t direction) { set(direction_, direction); }
    /// Lists only drivers that scan single values, or only drivers that sample blocks; both or neither: every driver.
    void setSingleValue(bool only) { set(singleValue_, only); }
    void setMultiValue(bool only) { set(multiValue_, only); }
    /// When off, at most one line can be selected, whatever the limit.
    void setMultipleSelection(bool on) { multipleSelection_ = on; }
    [[nodiscard]] bool multipleSelection() const { return multipleSelection_; }
    void setSelectionLimit(std::int32_t limit) { selectionLimit_ = limit; }
    [[nodiscard]] std::size_t mostSelections() const;

    /// Clears the selection.
    void reset();
    /// Selects those of `channels` that are listed; a whole device is not preselected.
    void preselect(const ChannelSelections& channels);
    /// Fills the arrays with the selection, in the tree's order, and returns the number of selections.
    std::int32_t getSelections(ChannelSelections& selections) const;

    /// Lines below the entries that say what is not listed; they cannot be selected.
    [[nodiscard]] const std::vector<std::string>& notes() const { return notes_; }
    void setNotes(std::vector<std::string> notes);

    [[nodiscard]] const std::vector<Entry>& entries() const { return entries_; }
    [[nodiscard]] const Lines& selected() const { return selected_; }
    /// The line of a channel, group or device; of any driver when `driver` is null. None when it is not listed.
    [[nodiscard]] std::optional<std::size_t> lineOf(const Driver* driver, std::int32_t slot,
                                                    std::int32_t channel) const;

    /// The user selects exactly these lines, up to the maximum number of selections. Inert when a line does not exist.
    Outcome userPicked(Lines lines);
    /// The user activates a line, which selects it.
    Outcome userActivated(std::size_t line);

    std::function<void()> activated;
    /// Raised while a driver's failure (the current exception) is being handled; the listing continues without the
    /// value that failed.
    std::function<void()> failed;

private:
    void setNumberOfDrivers(std::int32_t count) override { announced_ = count; }
    bool HasProcessedDriverChanges() override { return true; }
    void setDrivers(const DriverList& drivers) override;
    void DriversHaveChanged() override { list(); }

    template <class T> void set(T& filter, T value)
    {
        if (filter == value)
            return;
        filter = value;
        list();
    }
    void list();
    Outcome pick(const char* verb, Lines lines);
    void recordLines(const char* verb, const Lines& lines) const;
    void listDriver(const std::shared_ptr<Driver>& driver);
    /// `trigger` decides whether a channel can be a trigger source; when it is null, all channels are listed.
    void listGroup(const std::shared_ptr<Driver>& driver, std::int32_t slot, TriggerParameters* trigger);
    [[nodiscard]] bool passesFilters(Driver& driver) const;
    void select(Lines lines);
    template <class Question> auto resultOf(Question&& question) const;

    std::int32_t announced_ = 0;
    DriverList drivers_;
    std::int32_t driverType_ = everyDriver;
    std::int32_t direction_ = inputs;
    bool canTrigger_ = false, singleValue_ = false, multiValue_ = false, multipleSelection_ = false;
    std::int32_t selectionLimit_ = 1;
    std::vector<Entry> entries_;
    std::vector<std::string> notes_;
    Lines selected_;
};

} // namespace ko

#pragma once

#include "interfaces/IKopDrivers.h"
#include "platform/Control.h"
#include "platform/OneBased.h"

#include <optional>

namespace ko {

/// Channels as three parallel arrays: the driver of each, its slot (the group's index, in `groups`) and its index in
/// the group. -1 stands for a whole group, or for a whole device where both are -1.
struct ChannelSelections {
    OneBased<std::shared_ptr<Driver>> drivers;
    OneBased<std::int32_t> groups;
    OneBased<std::int32_t> channels;

    bool operator==(const ChannelSelections&) const = default;
};

/// A browser of the drivers' channels: a tree of driver, group and channel, as far as its filters let them through.
/// A group of which nothing is listed is not listed either. The selector shares ownership of its drivers.
class ChannelSelector : public Control, private IKopDrivers {
public:
    /// A line of the tree, in depth-first order.
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
    /// Values of the direction filter. What drivers tell of their channels makes all of them inputs.
    enum Directions : std::int32_t { inputs, outputs };

    using Control::Control;

    [[nodiscard]] std::string_view typeName() const override { return "ChannelSelector"; }
    [[nodiscard]] bool takesFocus() const override { return true; }
    [[nodiscard]] bool hasFont() const override { return false; }

    /// Hands over the drivers whose channels are listed.
    [[nodiscard]] IKopDrivers& driverList() { return *this; }

    // Filters; each change lists the channels anew.
    void setDriverType(std::int32_t type) { set(driverType_, type); }
    /// Leaves out the channels that their driver says cannot be a trigger source.
    void setCanTrigger(bool only) { set(canTrigger_, only); }
    void setDirection(std::int32_t direction) { set(direction_, direction); }
    /// Only drivers that scan single values, that sample blocks of them; both or neither: every driver.
    void setSingleValue(bool only) { set(singleValue_, only); }
    void setMultiValue(bool only) { set(multiValue_, only); }
    /// Off: one selection at most, whatever the limit.
    void setMultipleSelection(bool on) { multipleSelection_ = on; }
    [[nodiscard]] bool multipleSelection() const { return multipleSelection_; }
    void setSelectionLimit(std::int32_t limit) { selectionLimit_ = limit; }
    [[nodiscard]] std::size_t mostSelections() const;

    /// Nothing is selected any more.
    void reset();
    /// Selects what of `channels` is listed; a whole device is not preselected.
    void preselect(const ChannelSelections& channels);
    /// Fills the arrays with what is selected, in the tree's order, and returns how many that are.
    std::int32_t getSelections(ChannelSelections& selections) const;

    [[nodiscard]] const std::vector<Entry>& entries() const { return entries_; }
    [[nodiscard]] const Lines& selected() const { return selected_; }
    /// The line of a channel, group or device; of any driver when `driver` is null. None where it is not listed.
    [[nodiscard]] std::optional<std::size_t> lineOf(const Driver* driver, std::int32_t slot,
                                                    std::int32_t channel) const;

    /// The user selects these lines and no others, as many as may be selected. Inert where a line does not exist.
    Outcome userPicked(Lines lines);
    /// The user activates a line, which selects it.
    Outcome userActivated(std::size_t line);

    std::function<void()> activated;
    /// Raised while a driver's failure (the current exception) is being handled; the listing goes on without what
    /// the driver could not tell.
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
    void tellLines(const char* verb, const Lines& lines) const;
    void listDriver(const std::shared_ptr<Driver>& driver);
    /// `trigger` answers whether a channel can be a trigger source; without it all are listed.
    void listGroup(const std::shared_ptr<Driver>& driver, std::int32_t slot, TriggerParameters* trigger);
    [[nodiscard]] bool letsThrough(Driver& driver) const;
    void select(Lines lines);
    template <class Question> auto asked(Question&& question) const;

    std::int32_t announced_ = 0;
    DriverList drivers_;
    std::int32_t driverType_ = everyDriver;
    std::int32_t direction_ = inputs;
    bool canTrigger_ = false, singleValue_ = false, multiValue_ = false, multipleSelection_ = false;
    std::int32_t selectionLimit_ = 1;
    std::vector<Entry> entries_;
    Lines selected_;
};

} // namespace ko

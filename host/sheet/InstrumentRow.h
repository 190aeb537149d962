#pragma once

#include "host/instruments/HostInstrument.h"
#include "platform/Locale.h"
#include "widgets/support/Convert.h"

#include <memory>
#include <vector>

namespace ko {

/// A row of the instruments' tree. Child rows are created on first access and kept, because the structure of an
/// instrument never changes, only its values.
class InstrumentRow {
public:
    enum class Kind { Root, Instrument, Timebase, Quantity, Group, Channel, Parameter, Lines, Line };

    /// The root, with a row for each instrument.
    explicit InstrumentRow(const HostInstruments& drivers);
    InstrumentRow(InstrumentRow& parent, Kind kind, HostInstrument& driver);

    [[nodiscard]] Kind kind() const { return kind_; }
    [[nodiscard]] InstrumentRow* parent() const { return parent_; }
    /// Index among the parent's rows.
    [[nodiscard]] int number() const { return number_; }
    [[nodiscard]] bool hasRows() const;
    [[nodiscard]] const std::vector<std::unique_ptr<InstrumentRow>>& rows();

    /// Not for the root.
    [[nodiscard]] HostInstrument& driver() const { return *driver_; }
    [[nodiscard]] int group() const { return group_; }
    [[nodiscard]] int channel() const { return channel_; }
    [[nodiscard]] const GroupSettings& groupSettings() const;
    [[nodiscard]] const ChannelSettings& channelSettings() const;
    /// Index of the quantity, parameter or line.
    [[nodiscard]] std::size_t item() const { return item_; }

private:
    InstrumentRow& add(Kind kind, HostInstrument& driver);
    void addItems(Kind kind, std::size_t count);
    void addInstrumentRows();
    void addChannels();

    Kind kind_ = Kind::Root;
    InstrumentRow* parent_ = nullptr;
    HostInstrument* driver_ = nullptr;
    int number_ = 0;
    int group_ = -1;
    int channel_ = -1;
    std::size_t item_ = 0;
    bool filled_ = false;
    std::vector<std::unique_ptr<InstrumentRow>> rows_;
};

/// Return a row's name and its present value, in the program's language.
QString nameOf(const InstrumentRow& row, const Texts& texts);
QString valueOf(const InstrumentRow& row, const Texts& texts, const Locale& locale);

/// Returns whether the row is the start time of an instrument that does not start at a time.
bool isIdleStartTime(const InstrumentRow& row);

/// Return the number of rows of a timebase and of trigger lines.
std::size_t quantityCount();
std::size_t lineCount();

} // namespace ko

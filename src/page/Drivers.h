#pragma once

#include "interfaces/Driver.h"
#include "page/Figures.h"
#include "platform/Locale.h"
#include "support/StringTable.h"

#include <memory>
#include <optional>
#include <span>
#include <string>

namespace ko {

/// A view of a driver list; entries may be empty and are skipped.
using Drivers = std::span<const std::shared_ptr<Driver>>;

/// True exactly when the driver's measurement mode and sampling mode are both 1; any other driver is static. Failures
/// reach the caller.
bool isDynamicDriver(Driver& driver);

/// The same for the totals: a driver whose modes cannot be read counts as static.
bool countsAsDynamic(Driver& driver);

/// The number of enabled channels in all groups. Failures reach the caller.
std::int32_t countEnabledChannels(Driver& driver);

/// Whether the value of a channel's enabled attribute means enabled: anything except integer 0.
bool isEnabledValue(const Value& value);

/// The bytes of a static driver's recording with these numbers of scans and channels. Failure 6 when they overflow 32
/// bits.
double staticBytes(std::int32_t scans, std::int32_t channels);

/// The bytes of a static driver's recording: (4 x scans + 230) x enabled channels + 416, in 32 bits. Failure 6 when
/// that overflows; other failures reach the caller.
double staticDriverBytes(Driver& driver);

/// The bytes of a dynamic driver's recording. Failures reach the caller.
double dynamicDriverBytes(Driver& driver);

/// The totals of both kinds of drivers. A driver whose figure fails is skipped without a report.
struct ByteTotals {
    double staticBytes = 0.0;
    double dynamicBytes = 0.0;
    std::optional<std::int32_t> scans{}; ///< of `scanned`; none when it is not static or failed
    std::vector<DriverFigures> each{};   ///< one for each entry of the list
};
/// `scanned` is the driver whose scans are returned, too; may be null.
ByteTotals sumDriverBytes(Drivers drivers, const Driver* scanned = nullptr);

/// The text of a value; empty for the empty value, "True" or "False" for a boolean.
std::string valueText(const Value& value, const Locale& locale);

/// The page's name of a trigger device (group below 0), group (channel below 0) or channel. A channel without a name is
/// named by its address, spelt out unless `raw`. Empty when `driver` is null. Failures reach the caller.
std::string describeChannel(Driver* driver, std::int32_t group, std::int32_t channel, bool raw,
                            const StringTable& strings, const Locale& locale);

} // namespace ko

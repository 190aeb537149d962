#pragma once

#include "interfaces/Values.h"

#include <string>

namespace ko {

class Timebase;
class TriggerParameters;
class TriggerLines;
class StaticMeasurement;
class DynamicMeasurement;

/// Attribute numbers of `Driver::ChannelAttribute`.
namespace attribute {
inline constexpr std::int32_t address = 1; ///< text, "mainframe:slot:channel" or "slot:channel"
inline constexpr std::int32_t enabled = 2; ///< any value other than integer 0 counts as enabled
inline constexpr std::int32_t name = 3;    ///< the user-given name, text
} // namespace attribute

/// One measurement module in a mainframe slot. The host implements it; the document calls it on the
/// user-interface thread only.
///
/// Every operation may fail by throwing. A `Failure` carries its own number and description; of any other
/// `std::exception` only the description is kept. A failing driver never stops the page.
///
/// From inside any of these calls, and of the views' calls, the host may call any member of the document, replace the
/// list of drivers, or end the document. The event in progress keeps the drivers it started with alive. Once the list
/// has been replaced or the document has ended, the rest of that event does nothing, with one exception: a value that
/// the event wrote and that is refused is restored, in every driver if the document has ended, or in the drivers that
/// are also in the new list if the list was replaced. No other driver of the old list is written.
///
/// Group and channel indices count from 0.
class Driver {
public:
    virtual ~Driver() = default;

    virtual std::int32_t GroupCount() = 0;
    virtual std::int32_t ChannelCount(std::int32_t group) = 0;
    virtual Value ChannelAttribute(std::int32_t group, std::int32_t channel, std::int32_t attribute) = 0;
    virtual std::int32_t MeasurementMode() = 0;
    virtual std::int32_t SamplingMode() = 0;
    /// The display name; the document always passes 0.
    virtual std::string DriverName(std::int32_t form) = 0;
    virtual std::string GroupName(std::int32_t group) = 0;

    /// Views of the same module, or null when the module does not offer the view. The driver owns the returned object,
    /// which stays valid for the driver's lifetime.
    virtual Timebase* queryTimebase() = 0;
    virtual TriggerParameters* queryTriggerParameters() = 0;
    virtual TriggerLines* queryTriggerLines() = 0;
    virtual StaticMeasurement* queryStaticMeasurement() = 0;
    virtual DynamicMeasurement* queryDynamicMeasurement() = 0;
};

/// Recording size of a scanning module.
class StaticMeasurement {
public:
    /// Number of scans in the recording.
    virtual std::int32_t NumberOfScans() = 0;

protected:
    ~StaticMeasurement() = default;
};

/// Recording size of a sampling module.
class DynamicMeasurement {
public:
    /// Size of the recording in bytes.
    virtual double DynamicBytes() = 0;

protected:
    ~DynamicMeasurement() = default;
};

} // namespace ko

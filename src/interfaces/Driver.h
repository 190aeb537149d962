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
/// From inside any of these calls, and of the views' calls, the host may call any member of the document, hand over
/// another list of drivers, or end the document. The event in progress keeps the list that it began with alive; once
/// the list or the document is another the rest of that event does nothing, except that a value that the event has
/// written, and that is refused, is put back: after the end of the document in every driver, and once another list is
/// there in the drivers that are in that list, too. No other driver of the old list is written.
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
    /// The display name; the document always asks with 0.
    virtual std::string DriverName(std::int32_t form) = 0;
    virtual std::string GroupName(std::int32_t group) = 0;

    /// Views of the same module. Null when the module does not offer the view; the driver owns what it returns,
    /// which stays valid as long as the driver lives.
    virtual Timebase* queryTimebase() = 0;
    virtual TriggerParameters* queryTriggerParameters() = 0;
    virtual TriggerLines* queryTriggerLines() = 0;
    virtual StaticMeasurement* queryStaticMeasurement() = 0;
    virtual DynamicMeasurement* queryDynamicMeasurement() = 0;
};

/// What a scanning module tells of the recording.
class StaticMeasurement {
public:
    /// How many scans the recording will hold.
    virtual std::int32_t NumberOfScans() = 0;

protected:
    ~StaticMeasurement() = default;
};

/// What a sampling module tells of the recording.
class DynamicMeasurement {
public:
    /// How many bytes the recording will take.
    virtual double DynamicBytes() = 0;

protected:
    ~DynamicMeasurement() = default;
};

} // namespace ko

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ko {

/// Every operation that a simulated driver answers, its queries for views left out.
enum class Operation : std::uint8_t {
    GroupCount,
    ChannelCount,
    ChannelAttribute,
    MeasurementMode,
    SamplingMode,
    DriverName,
    GroupName,
    SamplePeriodSet,
    SamplePeriodGet,
    BlockSizeSet,
    BlockSizeGet,
    ScanPeriodSet,
    ScanPeriodGet,
    SampleChoiceList,
    BlockSizeChoiceList,
    BlockSizeRange,
    ScanChoiceList,
    ChoiceRange,
    StartTimeGet,
    StartTimeSet,
    DurationGet,
    DurationSet,
    StopModeGet,
    StopModeSet,
    StartModeGet,
    StartModeSet,
    GetTriggerParamCount,
    GetTriggerParamId,
    GetTriggerParamName,
    GetTriggerParamType,
    GetTriggerParamValue,
    GetTriggerParamChoices,
    GetTriggerParamMin,
    GetTriggerParamMax,
    SetTriggerParamValue,
    TriggerEnabledGet,
    TriggerEnabledSet,
    CanTrigger,
    GetTriggerGroupName,
    StartMasterRank,
    StartTriggerLineGet,
    StartTriggerLineSet,
    StartTriggerInput,
    ScanMasterRank,
    ScanTriggerLineGet,
    ScanTriggerLineSet,
    ScanTriggerInput,
    StartLinesAsMaster,
    ScanLinesAsListener,
    ScanLinesAsMaster,
    StartLinesAsListener,
    NumberOfScans,
    DynamicBytes
};

/// The operation's name without `get` or `set`.
std::string_view operationName(Operation operation);

/// True for an operation that changes the driver.
bool isWrite(Operation operation);

/// The name by which failures are asked for: with `get` or `set` where it is a property.
std::string failingName(Operation operation);

/// The operation of this failing name. `get` or `set` may be left out where a property has just one of the two;
/// none when no operation has this name.
std::optional<Operation> findOperation(std::string_view failingName);

} // namespace ko

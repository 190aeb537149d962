#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ko {

// clang-format off
/// Every operation of a simulated driver except the queries for its views: X(enumerator, name, kind).
#define KO_OPERATIONS(X) \
    X(GroupCount, "GroupCount", Method) \
    X(ChannelCount, "ChannelCount", Method) \
    X(ChannelAttribute, "ChannelAttribute", Method) \
    X(MeasurementMode, "MeasurementMode", Method) \
    X(SamplingMode, "SamplingMode", Method) \
    X(DriverName, "DriverName", Method) \
    X(GroupName, "GroupName", Method) \
    X(SamplePeriodSet, "SamplePeriod", Setter) \
    X(SamplePeriodGet, "SamplePeriod", Getter) \
    X(BlockSizeSet, "BlockSize", Setter) \
    X(BlockSizeGet, "BlockSize", Getter) \
    X(ScanPeriodSet, "ScanPeriod", Setter) \
    X(ScanPeriodGet, "ScanPeriod", Getter) \
    X(SampleChoiceList, "SampleChoiceList", Getter) \
    X(BlockSizeChoiceList, "BlockSizeChoiceList", Getter) \
    X(BlockSizeRange, "BlockSizeRange", Method) \
    X(ScanChoiceList, "ScanChoiceList", Getter) \
    X(ChoiceRange, "ChoiceRange", Method) \
    X(StartTimeGet, "StartTime", Getter) \
    X(StartTimeSet, "StartTime", Setter) \
    X(DurationGet, "Duration", Getter) \
    X(DurationSet, "Duration", Setter) \
    X(StopModeGet, "StopMode", Getter) \
    X(StopModeSet, "StopMode", Setter) \
    X(StartModeGet, "StartMode", Getter) \
    X(StartModeSet, "StartMode", Setter) \
    X(GetTriggerParamCount, "GetTriggerParamCount", Method) \
    X(GetTriggerParamId, "GetTriggerParamId", Method) \
    X(GetTriggerParamName, "GetTriggerParamName", Method) \
    X(GetTriggerParamType, "GetTriggerParamType", Method) \
    X(GetTriggerParamValue, "GetTriggerParamValue", Method) \
    X(GetTriggerParamChoices, "GetTriggerParamChoices", Method) \
    X(GetTriggerParamMin, "GetTriggerParamMin", Method) \
    X(GetTriggerParamMax, "GetTriggerParamMax", Method) \
    X(SetTriggerParamValue, "SetTriggerParamValue", Writer) \
    X(TriggerEnabledGet, "TriggerEnabled", Getter) \
    X(TriggerEnabledSet, "TriggerEnabled", Setter) \
    X(CanTrigger, "CanTrigger", Method) \
    X(GetTriggerGroupName, "GetTriggerGroupName", Method) \
    X(StartMasterRank, "StartMasterRank", Getter) \
    X(StartTriggerLineGet, "StartTriggerLine", Getter) \
    X(StartTriggerLineSet, "StartTriggerLine", Setter) \
    X(StartTriggerInput, "StartTriggerInput", Setter) \
    X(ScanMasterRank, "ScanMasterRank", Getter) \
    X(ScanTriggerLineGet, "ScanTriggerLine", Getter) \
    X(ScanTriggerLineSet, "ScanTriggerLine", Setter) \
    X(ScanTriggerInput, "ScanTriggerInput", Setter) \
    X(StartLinesAsMaster, "StartLinesAsMaster", Getter) \
    X(ScanLinesAsListener, "ScanLinesAsListener", Getter) \
    X(ScanLinesAsMaster, "ScanLinesAsMaster", Getter) \
    X(StartLinesAsListener, "StartLinesAsListener", Getter) \
    X(NumberOfScans, "NumberOfScans", Method) \
    X(DynamicBytes, "DynamicBytes", Method)
// clang-format on

enum class Operation : std::uint8_t {
#define KO_ENUMERATOR(enumerator, name, kind) enumerator,
    KO_OPERATIONS(KO_ENUMERATOR)
#undef KO_ENUMERATOR
};
inline constexpr std::size_t operationCount = static_cast<std::size_t>(Operation::DynamicBytes) + 1;

/// Returns the operation's name without `get` or `set`.
std::string_view operationName(Operation operation);

/// Returns true for an operation that changes the driver.
bool isWrite(Operation operation);

/// Returns the name that failures use: with `get` or `set` for a property.
std::string failingName(Operation operation);

/// Returns the operation with this failing name; none if there is no such operation. `get` or `set` may be omitted if a
/// property has only one of the two.
std::optional<Operation> findOperation(std::string_view failingName);

} // namespace ko

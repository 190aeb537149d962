#include "host/Operations.h"

#include <algorithm>
#include <array>

namespace ko {

namespace {

enum class Kind { Method, Writer, Getter, Setter };

struct Entry {
    std::string_view name;
    Kind kind;
};

// In the order of `Operation`.
constexpr std::array entries{
    Entry{"GroupCount", Kind::Method},
    Entry{"ChannelCount", Kind::Method},
    Entry{"ChannelAttribute", Kind::Method},
    Entry{"MeasurementMode", Kind::Method},
    Entry{"SamplingMode", Kind::Method},
    Entry{"DriverName", Kind::Method},
    Entry{"GroupName", Kind::Method},
    Entry{"SamplePeriod", Kind::Setter},
    Entry{"SamplePeriod", Kind::Getter},
    Entry{"BlockSize", Kind::Setter},
    Entry{"BlockSize", Kind::Getter},
    Entry{"ScanPeriod", Kind::Setter},
    Entry{"ScanPeriod", Kind::Getter},
    Entry{"SampleChoiceList", Kind::Getter},
    Entry{"BlockSizeChoiceList", Kind::Getter},
    Entry{"BlockSizeRange", Kind::Method},
    Entry{"ScanChoiceList", Kind::Getter},
    Entry{"ChoiceRange", Kind::Method},
    Entry{"StartTime", Kind::Getter},
    Entry{"StartTime", Kind::Setter},
    Entry{"Duration", Kind::Getter},
    Entry{"Duration", Kind::Setter},
    Entry{"StopMode", Kind::Getter},
    Entry{"StopMode", Kind::Setter},
    Entry{"StartMode", Kind::Getter},
    Entry{"StartMode", Kind::Setter},
    Entry{"GetTriggerParamCount", Kind::Method},
    Entry{"GetTriggerParamId", Kind::Method},
    Entry{"GetTriggerParamName", Kind::Method},
    Entry{"GetTriggerParamType", Kind::Method},
    Entry{"GetTriggerParamValue", Kind::Method},
    Entry{"GetTriggerParamChoices", Kind::Method},
    Entry{"GetTriggerParamMin", Kind::Method},
    Entry{"GetTriggerParamMax", Kind::Method},
    Entry{"SetTriggerParamValue", Kind::Writer},
    Entry{"TriggerEnabled", Kind::Getter},
    Entry{"TriggerEnabled", Kind::Setter},
    Entry{"CanTrigger", Kind::Method},
    Entry{"GetTriggerGroupName", Kind::Method},
    Entry{"StartMasterRank", Kind::Getter},
    Entry{"StartTriggerLine", Kind::Getter},
    Entry{"StartTriggerLine", Kind::Setter},
    Entry{"StartTriggerInput", Kind::Setter},
    Entry{"ScanMasterRank", Kind::Getter},
    Entry{"ScanTriggerLine", Kind::Getter},
    Entry{"ScanTriggerLine", Kind::Setter},
    Entry{"ScanTriggerInput", Kind::Setter},
    Entry{"StartLinesAsMaster", Kind::Getter},
    Entry{"ScanLinesAsListener", Kind::Getter},
    Entry{"ScanLinesAsMaster", Kind::Getter},
    Entry{"StartLinesAsListener", Kind::Getter},
    Entry{"NumberOfScans", Kind::Method},
    Entry{"DynamicBytes", Kind::Method},
};
static_assert(entries.size() == static_cast<std::size_t>(Operation::DynamicBytes) + 1);

const Entry& entryOf(Operation operation)
{
    return entries[static_cast<std::size_t>(operation)];
}

std::string_view suffixOf(Kind kind)
{
    return kind == Kind::Getter ? " get" : kind == Kind::Setter ? " set" : "";
}

bool isOnlyOne(const Entry& entry)
{
    return std::count_if(entries.begin(), entries.end(), [&](const Entry& e) { return e.name == entry.name; }) == 1;
}

bool answersTo(const Entry& entry, std::string_view name)
{
    if (name.substr(0, entry.name.size()) != entry.name)
        return false;
    const std::string_view rest = name.substr(entry.name.size());
    return rest == suffixOf(entry.kind) || (rest.empty() && isOnlyOne(entry));
}

} // namespace

std::string_view operationName(Operation operation)
{
    return entryOf(operation).name;
}

bool isWrite(Operation operation)
{
    const Kind kind = entryOf(operation).kind;
    return kind == Kind::Setter || kind == Kind::Writer;
}

std::string failingName(Operation operation)
{
    const Entry& entry = entryOf(operation);
    return std::string(entry.name).append(suffixOf(entry.kind));
}

std::optional<Operation> findOperation(std::string_view failingName)
{
    const auto found =
        std::find_if(entries.begin(), entries.end(), [&](const Entry& e) { return answersTo(e, failingName); });
    if (found == entries.end())
        return std::nullopt;
    return static_cast<Operation>(found - entries.begin());
}

} // namespace ko

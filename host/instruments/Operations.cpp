#include "host/instruments/Operations.h"

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
#define KO_ENTRY(enumerator, name, kind) Entry{name, Kind::kind},
    KO_OPERATIONS(KO_ENTRY)
#undef KO_ENTRY
};

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

bool hasFailingName(const Entry& entry, std::string_view name)
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
        std::find_if(entries.begin(), entries.end(), [&](const Entry& e) { return hasFailingName(e, failingName); });
    if (found == entries.end())
        return std::nullopt;
    return static_cast<Operation>(found - entries.begin());
}

} // namespace ko

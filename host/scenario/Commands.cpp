#include "host/scenario/Commands.h"

#include <algorithm>
#include <charconv>

namespace ko {

std::optional<std::int32_t> integerIn(std::string_view word)
{
    std::int32_t number = 0;
    const char* const end = word.data() + word.size();
    const auto [stop, error] = std::from_chars(word.data(), end, number);
    return error == std::errc{} && stop == end ? std::optional(number) : std::nullopt;
}

std::int32_t Arguments::integer(std::size_t index) const
{
    const auto number = integerIn(text(index));
    if (!number)
        scenario_.refuse("\"" + text(index) + "\" is no whole number");
    return *number;
}

bool Arguments::onOff(std::size_t index) const
{
    if (text(index) != "on" && text(index) != "off")
        scenario_.refuse("\"" + text(index) + "\" is neither on nor off");
    return text(index) == "on";
}

const Command* findCommand(std::string_view name)
{
    for (const auto& table : {hostCommands(), machineCommands(), userCommands(), gridAndDialogCommands(),
                              questionCommands(), recordCommands()}) {
        const auto found = std::find_if(table.begin(), table.end(), [&](const Command& c) { return c.name == name; });
        if (found != table.end())
            return &*found;
    }
    return nullptr;
}

} // namespace ko

#pragma once

#include "host/scenario/Scenario.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ko {

/// A command's arguments. Indices count from 0, after the command's name.
class Arguments {
public:
    Arguments(const Scenario& scenario, const ScriptLine& line) : scenario_(scenario), words_(line.words) {}

    [[nodiscard]] std::size_t count() const { return words_.size() - 1; }
    [[nodiscard]] const std::string& text(std::size_t index) const { return words_[index + 1]; }
    /// The argument as a 32-bit whole number; any other word is a fault of the line.
    [[nodiscard]] std::int32_t integer(std::size_t index) const;
    /// True for `on`, false for `off`; any other word is a fault of the line.
    [[nodiscard]] bool onOff(std::size_t index) const;

private:
    const Scenario& scenario_;
    const std::vector<std::string>& words_;
};

/// Parses a 32-bit whole number; returns none if the word is anything else.
std::optional<std::int32_t> integerIn(std::string_view word);

/// Whose action a command is. `Scenario::Place` decides which commands a block may contain.
enum class Giver { Host, User, Question, Machine };

/// A command of the script's language.
struct Command {
    std::string_view name;
    Giver giver;
    std::size_t least, most; ///< minimum and maximum number of arguments
    void (*run)(Scenario&, const Arguments&);
};

inline constexpr std::size_t anyNumber = static_cast<std::size_t>(-1);

/// In place of `run` for a command that the language defines but this program does not implement.
inline constexpr void (*notAvailable)(Scenario&, const Arguments&) = nullptr;

std::span<const Command> hostCommands();
std::span<const Command> machineCommands();
std::span<const Command> userCommands();
std::span<const Command> gridAndDialogCommands();
std::span<const Command> questionCommands();
std::span<const Command> recordCommands();

/// Returns the command with this name, or null.
const Command* findCommand(std::string_view name);

} // namespace ko

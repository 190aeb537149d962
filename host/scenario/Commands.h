#pragma once

#include "host/scenario/Scenario.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ko {

/// The words behind a command's name.
class Arguments {
public:
    Arguments(const Scenario& scenario, const ScriptLine& line) : scenario_(scenario), words_(line.words) {}

    [[nodiscard]] std::size_t count() const { return words_.size() - 1; }
    [[nodiscard]] const std::string& text(std::size_t index) const { return words_[index + 1]; }
    /// Faults: a word that is no whole number of 32 bits; one that is neither `on` nor `off`.
    [[nodiscard]] std::int32_t integer(std::size_t index) const;
    [[nodiscard]] bool onOff(std::size_t index) const;

private:
    const Scenario& scenario_;
    const std::vector<std::string>& words_;
};

/// A whole number of 32 bits and nothing else; none otherwise.
std::optional<std::int32_t> integerIn(std::string_view word);

/// Who gives a command: only users and questions have their place in a dialog block.
enum class Giver { Host, User, Question, Machine };

/// A command of the script's language.
struct Command {
    std::string_view name;
    Giver giver;
    std::size_t least, most; ///< how many words may follow the name
    void (*run)(Scenario&, const Arguments&);
};

inline constexpr std::size_t anyNumber = static_cast<std::size_t>(-1);

/// A command that the language knows but that nothing answers yet.
inline constexpr void (*notAvailable)(Scenario&, const Arguments&) = nullptr;

std::span<const Command> hostCommands();
std::span<const Command> machineCommands();
std::span<const Command> userCommands();
std::span<const Command> questionCommands();

/// The command of this name; null when there is none.
const Command* findCommand(std::string_view name);

} // namespace ko

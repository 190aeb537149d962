#include "fuzz/Played.h"
#include "fuzz/Targets.h"
#include "host/support/InputError.h"

#include <optional>

namespace ko::fuzz {

namespace {

constexpr std::string_view divider = "\n----\n";

/// Returns the set-up after the divider, or else the demo's; none if it is refused.
std::optional<Setup> setupIn(std::string_view input)
{
    const std::size_t at = input.find(divider);
    try {
        return at == std::string_view::npos ? demoSetup()
                                            : parseSetup(std::string(input.substr(at + divider.size())), "bench.json");
    } catch (const InputError&) {
        return std::nullopt;
    }
}

void run(std::string_view input)
{
    auto setup = setupIn(input);
    // `setup FILE` would read an endless device.
    if (!setup || input.find("/dev") != std::string_view::npos)
        return;
    setup->clock = setup->clock.value_or(DateTime{46347.0});
    play(std::string(input.substr(0, input.find(divider))),
         {.setup = *setup, .folder = KO_CORPUS_FOLDER "/setups", .locale = {}, .language = {}});
}

} // namespace

const Target scripts{"scripts", run};

} // namespace ko::fuzz

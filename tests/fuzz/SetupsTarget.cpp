#include "fuzz/Played.h"
#include "fuzz/Targets.h"
#include "host/support/InputError.h"

namespace ko::fuzz {

namespace {

const char* const tour = R"(site help status
setup
show
state
click optOnTrigger
click optStartTime
click optStopTime
click optAfter
text txtDuration 7
leave
drivers
hide
)";

void run(std::string_view input)
{
    Setup setup;
    try {
        setup = parseSetup(std::string(input), "bench.json");
    } catch (const InputError& error) {
        return requireLine(error.what(), "bench.json:");
    }
    checkSaved(setup);
    setup.clock = setup.clock.value_or(DateTime{46347.0});
    play(tour, {.setup = setup, .folder = {}, .locale = {}, .language = {}});
}

} // namespace

const Target setups{"setups", run};

} // namespace ko::fuzz

#include "fuzz/Played.h"
#include "fuzz/Targets.h"
#include "host/support/InputError.h"

#include <regex>

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

void checkRefusal(const std::string& refusal)
{
    static const std::regex form("bench\\.json:[1-9][0-9]*: .+");
    require(std::regex_match(refusal, form), "a refusal names file, line and fault, in one line", refusal);
}

void run(std::string_view input)
{
    Setup setup;
    try {
        setup = parseSetup(std::string(input), "bench.json");
    } catch (const InputError& error) {
        return checkRefusal(error.what());
    }
    checkSaved(setup);
    setup.clock = setup.clock.value_or(DateTime{46347.0});
    play(tour, {.setup = setup, .folder = {}, .locale = {}, .language = {}});
}

} // namespace

const Target setups{"setups", run};

} // namespace ko::fuzz

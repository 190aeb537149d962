#include "fuzz/Played.h"
#include "fuzz/Targets.h"
#include "support/StringTable.h"

namespace ko::fuzz {

namespace {

// The texts of the page and of the first dialogs only, because each number without a text costs time for its failure.
constexpr int firstNumber = 1100;
constexpr int lastNumber = 1310;

const char* const tour = R"(site help status
setup
show
state
dialog AdvancedTrig
state
end
click mnuTimebaseTriggerLines
dialog SetDateTime
state
end
click optStartTime
double-click txtStartTime
focus txtDuration
type x
hide
)";

std::string fileOf(const StringTable& table)
{
    std::string file;
    for (int number = firstNumber; number <= lastNumber; ++number) {
        try {
            file += std::to_string(number) + " \"" + table.text(number) + "\"\n";
        } catch (const Failure& failure) {
            require(failure.number() == failure::resourceNotFound, "a number without a text is not found", file);
        }
    }
    return file;
}

void run(std::string_view input)
{
    try {
        const std::string file = fileOf(StringTable(input));
        require(fileOf(StringTable(file)) == file, "what is written is read again", file);
    } catch (const Failure& failure) {
        require(failure.number() == failure::invalidCall, "a file is refused as an invalid call", failure.what());
        return requireLine(failure.what(), "string file, line ");
    }
    play(tour, {.setup = demoSetup(), .folder = {}, .locale = {}, .language = std::string(input)});
}

} // namespace

const Target strings{"strings", run};

} // namespace ko::fuzz

#include "host/scenario/Commands.h"
#include "host/scenario/LocaleWords.h"
#include "platform/Failure.h"

namespace ko {

namespace {

void cursor(Scenario& scenario, const Arguments& words)
{
    scenario.screen.cursor = {words.integer(0), words.integer(1)};
}

void workArea(Scenario& scenario, const Arguments& words)
{
    scenario.screen.area = {words.integer(0), words.integer(1), words.integer(2), words.integer(3)};
}

void failCommand(Scenario& scenario, const Arguments& words)
{
    SimulatedFailure failure{.operation = words.text(1)};
    if (words.count() > 2)
        failure.number = words.integer(2);
    if (words.count() > 3)
        failure.description = words.text(3);
    if (!scenario.driver(words.text(0)).calls().fail(failure))
        scenario.refuse("\"" + words.text(1) + "\" is no operation that can fail");
}

void heal(Scenario& scenario, const Arguments& words)
{
    CallGate& calls = scenario.driver(words.text(0)).calls();
    if (words.count() == 1)
        calls.healAll();
    else if (!calls.heal(words.text(1)))
        scenario.refuse("\"" + words.text(1) + "\" is no operation that can fail");
}

void enable(Scenario& scenario, const Arguments& words)
{
    HostInstrument& driver = scenario.driver(words.text(0));
    const std::int32_t on = words.integer(3);
    if (on != 0 && on != 1)
        scenario.refuse("a channel is enabled with 1 and disabled with 0");
    scenario.history().finish();
    try {
        driver.enableChannel(words.integer(1), words.integer(2), on == 1);
    } catch (const Failure&) {
        scenario.refuse("there is no such channel");
    }
    // A step of its own, also while something is being typed.
    scenario.history().finish();
}

void clock(Scenario& scenario, const Arguments& words)
{
    const auto time = readClockTime(words.text(0));
    if (!time)
        scenario.refuse("\"" + words.text(0) + "\" is no date and time such as \"2026-11-21 09:30:00\"");
    scenario.clock.time = time;
}

void clipboard(Scenario& scenario, const Arguments& words)
{
    if (words.count() > 0)
        scenario.clipboard.setText(words.text(0));
    else
        scenario.log.event("clipboard", {{"value", scenario.clipboard.text()}});
}

void locale(Scenario& scenario, const Arguments& words)
{
    Locale changed;
    for (std::size_t i = 0; i < words.count(); ++i)
        if (!takeLocaleWord(changed, words.text(i)))
            scenario.refuse("\"" + words.text(i) + "\" is no setting such as decimalSeparator=,");
    scenario.stage().setLocale(changed);
}

} // namespace

std::span<const Command> machineCommands()
{
    static constexpr Command commands[]{
        {"cursor", Giver::Machine, 2, 2, cursor},    {"work-area", Giver::Machine, 4, 4, workArea},
        {"fail", Giver::Machine, 2, 4, failCommand}, {"heal", Giver::Machine, 1, 2, heal},
        {"clock", Giver::Machine, 1, 1, clock},      {"clipboard", Giver::Machine, 0, 1, clipboard},
        {"enable", Giver::Machine, 4, 4, enable},    {"locale", Giver::Host, 1, anyNumber, locale},
    };
    return commands;
}

} // namespace ko

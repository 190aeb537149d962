#include "host/scenario/UserInput.h"

#include "platform/ChannelSelector.h"
#include "platform/Grid.h"

#include <algorithm>
#include <array>

namespace ko {

namespace {

Grid& theGrid(const Scenario& scenario)
{
    return controlAs<Grid>(scenario, "grdParam", "edited");
}

void cell(Scenario& scenario, const Arguments& words)
{
    const std::int32_t row = words.integer(0);
    Grid& grid = theGrid(scenario);
    give(scenario, grid, [&] { return grid.userEditedCell(row, words.text(1)); });
}

void openCell(Scenario& scenario, const Arguments& words)
{
    Grid& grid = theGrid(scenario);
    const std::int32_t row = words.integer(0);
    give(scenario, grid, [&] { return grid.userOpenedCell(row); });
}

void endCell(Scenario& scenario, const Arguments&)
{
    Grid& grid = theGrid(scenario);
    give(scenario, grid, [&] { return grid.userEndedEdit(); });
}

void dropCell(Scenario& scenario, const Arguments&)
{
    Grid& grid = theGrid(scenario);
    give(scenario, grid, [&] { return grid.userDroppedEdit(); });
}

/// Returns the selector's line for the two arguments at `at`; beyond the last line if there is none.
std::size_t lineOf(const ChannelSelector& selector, const Arguments& words, std::size_t at)
{
    return selector.lineOf(nullptr, words.integer(at), words.integer(at + 1)).value_or(selector.entries().size());
}

void pick(Scenario& scenario, const Arguments& words)
{
    auto& selector = controlAs<ChannelSelector>(scenario, "chsNavigate", "picked from");
    const bool none = words.count() == 1 && words.text(0) == "none";
    if (!none && words.count() % 2 != 0)
        scenario.refuse("channels are picked by slot and channel");
    ChannelSelector::Lines lines;
    for (std::size_t at = 0; !none && at < words.count(); at += 2)
        lines.push_back(lineOf(selector, words, at));
    give(scenario, selector, [&] { return selector.userPicked(lines); });
}

void activate(Scenario& scenario, const Arguments& words)
{
    auto& selector = controlAs<ChannelSelector>(scenario, "chsNavigate", "activated in");
    const std::size_t line = lineOf(selector, words, 0);
    give(scenario, selector, [&] { return selector.userActivated(line); });
}

void dialog(Scenario& scenario, const Arguments& words)
{
    constexpr std::array<std::string_view, 4> forms{"SelectChannel", "AdvancedTrig", "SetDateTime", "ShowOffers"};
    if (std::find(forms.begin(), forms.end(), words.text(0)) == forms.end())
        scenario.refuse("there is no form \"" + words.text(0) + "\"");
    scenario.dialogs.queue(words.text(0), scenario.readBlock(Scenario::Place::Dialog));
}

void strayEnd(Scenario& scenario, const Arguments&)
{
    scenario.refuse("end without dialog or during");
}

} // namespace

std::span<const Command> gridAndDialogCommands()
{
    static constexpr Command commands[]{
        {"cell", Giver::User, 2, 2, cell},         {"open-cell", Giver::User, 1, 1, openCell},
        {"end-cell", Giver::User, 0, 0, endCell},  {"drop-cell", Giver::User, 0, 0, dropCell},
        {"pick", Giver::User, 1, anyNumber, pick}, {"activate", Giver::User, 2, 2, activate},
        {"dialog", Giver::Host, 1, 1, dialog},     {"end", Giver::Host, 0, 0, strayEnd},
    };
    return commands;
}

} // namespace ko

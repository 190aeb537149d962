#include "host/scenario/Commands.h"
#include "host/setup/InstrumentEdits.h"

#include <algorithm>
#include <functional>

namespace ko {

namespace {

/// The devices of failing instruments are opened again first, as the user of a window tries again.
void handOver(Scenario& scenario, std::size_t count)
{
    scenario.health().reopenDevices();
    scenario.rebuild([&] { scenario.document().drivers().setDrivers(scenario.driverList(count)); });
}

/// Makes the host's calls in turn, until one of them ends the script's page.
void inTurn(const Scenario& scenario, std::initializer_list<std::function<void()>> calls)
{
    for (const auto& call : calls)
        if (!scenario.stage().isOver())
            call();
}

void setup(Scenario& scenario, const Arguments& words)
{
    const auto page = [&]() -> IKopDrivers& { return scenario.document().drivers(); };
    if (words.count() > 0)
        scenario.stage().loadSetup(scenario.path(words.text(0)));
    inTurn(scenario, {[&] { page().setNumberOfDrivers(static_cast<std::int32_t>(scenario.drivers().size())); },
                      [&] { handOver(scenario, scenario.drivers().size()); }, [&] { page().DriversHaveChanged(); },
                      [&] { scenario.stage().setupShown(); }});
}

/// Changes the instruments to those of a file, as an edit.
void instruments(Scenario& scenario, const Arguments& words)
{
    const Setup setup = loadSetup(scenario.path(words.text(0)));
    const HeldState to = changedInstruments(
        scenario.drivers(), [&](Setup& edited) { edited.instruments = setup.instruments; }, scenario.stage().devices());
    scenario.history().edit(to);
}

void announce(Scenario& scenario, const Arguments& words)
{
    scenario.document().drivers().setNumberOfDrivers(words.integer(0));
}

void handOverCommand(Scenario& scenario, const Arguments& words)
{
    std::int32_t count = words.count() > 0 ? words.integer(0) : static_cast<std::int32_t>(scenario.drivers().size());
    if (count < 0)
        scenario.refuse("fewer than no drivers cannot be handed over");
    handOver(scenario, static_cast<std::size_t>(count));
}

void driversChanged(Scenario& scenario, const Arguments&)
{
    scenario.rebuild([&] { scenario.document().drivers().DriversHaveChanged(); });
}

void offer(Scenario& scenario, PartialSite& site, const std::string& word)
{
    if (word == "help")
        site.help = std::make_shared<LoggedHelpSite>(scenario.log);
    else if (word == "status")
        site.status = std::make_shared<LoggedStatusSite>(scenario.log, scenario.title());
    else
        scenario.refuse("a site offers help and status, not \"" + word + "\"");
}

void site(Scenario& scenario, const Arguments& words)
{
    const auto site = std::make_shared<PartialSite>();
    const bool none = words.count() == 1 && words.text(0) == "none";
    for (std::size_t i = 0; i < words.count() && !none; ++i)
        offer(scenario, *site, words.text(i));
    scenario.stage().setSite(site);
}

void readOnly(Scenario& scenario, const Arguments& words)
{
    const bool on = words.onOff(0);
    scenario.rebuild([&] { scenario.document().mode().setReadOnly(on); });
}

void show(Scenario& scenario, const Arguments&)
{
    inTurn(scenario, {[&] { scenario.history().finish(); },
                      [&] { scenario.health().rebuild([&] { scenario.document().UserDocument_Show(); }); },
                      [&] { scenario.history().absorb(); }});
}

void hide(Scenario& scenario, const Arguments&)
{
    scenario.document().UserDocument_Hide();
}

void can(Scenario& scenario, const Arguments& words)
{
    const std::int32_t id = words.integer(0);
    std::int32_t enable = 0;
    scenario.document().menu().OnUpdateCommandUI(id, enable);
    scenario.log.event("enabled", {{"command", id}, {"value", enable}});
}

void menuCommand(Scenario& scenario, const Arguments& words)
{
    scenario.document().menu().OnCommand(words.integer(0));
}

void okToLeave(Scenario& scenario, const Arguments&)
{
    bool allowed = false;
    scenario.document().state().OKToLeave(allowed);
    scenario.log.event("ok-to-leave", {{"value", allowed}});
}

void processed(Scenario& scenario, const Arguments&)
{
    const bool done = scenario.document().drivers().HasProcessedDriverChanges();
    scenario.log.event("processed", {{"value", done}});
}

void printMode(Scenario& scenario, const Arguments& words)
{
    IKopPrint& print = scenario.document().print();
    if (words.count() > 0)
        return print.setPrintMode(words.integer(0));
    std::string description;
    const std::int32_t mode = print.PrintMode();
    print.GetPrintModeDescription(description);
    scenario.log.event("print-mode", {{"value", mode}, {"description", description}});
}

std::int32_t& printSetting(const Scenario& scenario, DeviceMode& mode, std::string_view name)
{
    if (name == "copies")
        return mode.copies;
    if (name == "color")
        return mode.color;
    if (name == "duplex")
        return mode.duplex;
    if (name == "orientation")
        return mode.orientation;
    if (name == "paper")
        return mode.paperSize;
    if (name == "quality")
        return mode.printQuality;
    scenario.refuse("there is no print setting \"" + std::string(name) + "\"");
}

void print(Scenario& scenario, const Arguments& words)
{
    DeviceMode mode;
    for (std::size_t i = 1; i < words.count(); ++i) {
        const std::string_view word = words.text(i);
        const std::size_t sign = std::min(word.find('='), word.size());
        const auto value = integerIn(word.substr(std::min(sign + 1, word.size())));
        if (!value)
            scenario.refuse("\"" + words.text(i) + "\" is no print setting such as copies=2");
        printSetting(scenario, mode, word.substr(0, sign)) = *value;
    }
    scenario.document().print().DefaultPrint(words.text(0), mode);
}

void terminate(Scenario& scenario, const Arguments&)
{
    static_cast<void>(scenario.document()); // a fault if there is none
    scenario.stage().terminate();
}

void document(Scenario& scenario, const Arguments&)
{
    scenario.stage().makeDocument();
}

/// Runs the block inside the next call of the operation, or while the next message box is open.
void during(Scenario& scenario, const Arguments& words)
{
    const bool isMessage = words.count() == 1 && words.text(0) == "message";
    if (words.count() == 1 && !isMessage)
        scenario.refuse("during takes a driver and an operation, or message");
    HostInstrument* const driver = isMessage ? nullptr : &scenario.driver(words.text(0));
    const auto operation = isMessage ? std::nullopt : findOperation(words.text(1));
    if (!isMessage && !operation)
        scenario.refuse("there is no operation \"" + words.text(1) + "\"");
    // A call that comes after the script has ended, in a window, plays nothing.
    const auto act = [&scenario, life = scenario.life(), block = scenario.readBlock(Scenario::Place::During)] {
        if (!life.expired())
            scenario.playDuring(block);
    };
    if (isMessage)
        scenario.messageBox.during(act);
    else
        driver->calls().during(*operation, act);
}

/// Moves through the history, at once, and logs the texts of the steps.
void move(Scenario& scenario, const Arguments& words, const char* event, bool isUndo)
{
    History& history = scenario.history();
    history.finish();
    const std::int32_t number = words.count() > 0 ? words.integer(0) : 1;
    if (number < 1)
        scenario.refuse("fewer than one step cannot be undone or redone");
    const auto count = static_cast<std::size_t>(number);
    const std::size_t from = history.position();
    const std::vector<std::string> steps = history.steps();
    if (count > (isUndo ? from : steps.size() - from) || scenario.dialogs.form() || scenario.document().page().readOnly)
        return scenario.log.event("inert", {{"control", CallValue()}});
    if (!history.moveTo(isUndo ? from - count : from + count))
        return;
    for (std::size_t i = 0; i < count; ++i)
        scenario.log.event(event, {{"step", steps[isUndo ? from - 1 - i : from + i]}});
}

void undo(Scenario& scenario, const Arguments& words)
{
    move(scenario, words, "undone", true);
}

void redo(Scenario& scenario, const Arguments& words)
{
    move(scenario, words, "redone", false);
}

} // namespace

std::span<const Command> hostCommands()
{
    static constexpr Command commands[]{
        {"undo", Giver::Host, 0, 1, undo},
        {"redo", Giver::Host, 0, 1, redo},
        {"setup", Giver::Host, 0, 1, setup},
        {"instruments", Giver::Host, 1, 1, instruments},
        {"announce", Giver::Host, 1, 1, announce},
        {"hand-over", Giver::Host, 0, 1, handOverCommand},
        {"drivers-changed", Giver::Host, 0, 0, driversChanged},
        {"site", Giver::Host, 0, 2, site},
        {"read-only", Giver::Host, 1, 1, readOnly},
        {"show", Giver::Host, 0, 0, show},
        {"hide", Giver::Host, 0, 0, hide},
        {"can", Giver::Host, 1, 1, can},
        {"command", Giver::Host, 1, 1, menuCommand},
        {"ok-to-leave", Giver::Host, 0, 0, okToLeave},
        {"processed", Giver::Host, 0, 0, processed},
        {"print-mode", Giver::Host, 0, 1, printMode},
        {"print", Giver::Host, 1, 7, print},
        {"terminate", Giver::Host, 0, 0, terminate},
        {"document", Giver::Host, 0, 0, document},
        {"during", Giver::Host, 1, 2, during},
    };
    return commands;
}

} // namespace ko

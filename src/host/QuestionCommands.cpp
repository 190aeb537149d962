#include "host/Commands.h"
#include "host/ControlState.h"
#include "host/SetupWriter.h"

namespace ko {

namespace {

/// The properties of the form or of one of its controls.
Json stateOf(const Scenario& scenario, const std::string& name)
{
    const Form& form = scenario.form();
    return name == form.name() ? formState(form) : controlState(scenario.control(name));
}

Json wholeState(const Scenario& scenario)
{
    const Form& form = scenario.form();
    Json controls{{form.name(), formState(form)}};
    for (const Control* control : form.controls())
        controls[control->name()] = controlState(*control);
    const Control* const active = form.activeControl();
    Json state{{"controls", std::move(controls)}, {"activeControl", active ? Json(active->name()) : Json()}};
    if (!scenario.dialogs.form())
        state.update(pageState(scenario.document().page()));
    return state;
}

void state(Scenario& scenario, const Arguments& words)
{
    if (words.count() == 0)
        return scenario.log.event("state", wholeState(scenario));
    Json controls = Json::object();
    for (std::size_t i = 0; i < words.count(); ++i)
        controls[words.text(i)] = stateOf(scenario, words.text(i));
    scenario.log.event("state", {{"controls", std::move(controls)}});
}

void drivers(Scenario& scenario, const Arguments&)
{
    Json list = Json::array();
    for (const auto& driver : scenario.drivers())
        list.push_back(toJson(driver->settings()));
    scenario.log.event("drivers", {{"drivers", std::move(list)}});
}

void expect(Scenario& scenario, const Arguments& words)
{
    const Json state = stateOf(scenario, words.text(0));
    const auto property = state.find(words.text(1));
    if (property == state.end())
        scenario.refuse("\"" + words.text(0) + "\" has no property \"" + words.text(1) + "\"");
    const std::string actual = propertyText(*property);
    if (actual == words.text(2))
        return;
    scenario.expectationFailed = true;
    scenario.log.event(
        "expectation",
        {{"control", words.text(0)}, {"property", words.text(1)}, {"expected", words.text(2)}, {"actual", actual}});
}

void quiet(Scenario& scenario, const Arguments& words)
{
    scenario.quiet = words.onOff(0);
}

void reads(Scenario& scenario, const Arguments& words)
{
    scenario.showReads = words.onOff(0);
}

constexpr Command commands[]{
    {"state", Giver::Question, 0, anyNumber, state}, {"drivers", Giver::Question, 0, 0, drivers},
    {"expect", Giver::Question, 3, 3, expect},       {"quiet", Giver::Question, 1, 1, quiet},
    {"reads", Giver::Question, 1, 1, reads},
};

} // namespace

std::span<const Command> questionCommands()
{
    return commands;
}

} // namespace ko

#include "host/scenario/Commands.h"
#include "host/scenario/ControlState.h"
#include "host/scenario/OfferJson.h"
#include "host/setup/SetupWriter.h"
#include "page/Quantities.h"
#include "platform/Table.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace ko {

namespace {

/// Returns the properties of the form or of one of its controls.
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
        return scenario.log.jsonEvent("state", wholeState(scenario));
    Json controls = Json::object();
    for (std::size_t i = 0; i < words.count(); ++i)
        controls[words.text(i)] = stateOf(scenario, words.text(i));
    scenario.log.jsonEvent("state", {{"controls", std::move(controls)}});
}

void drivers(Scenario& scenario, const Arguments&)
{
    Json list = Json::array();
    for (const auto& driver : scenario.drivers())
        list.push_back(toJson(driver->settings()));
    scenario.log.jsonEvent("drivers", {{"drivers", std::move(list)}});
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

void offers(Scenario& scenario, const Arguments& words)
{
    for (const TimebaseNumber* number : timebaseNumber::all)
        if (number->name == words.text(0)) {
            Json event = offersJson(scenario.document().page().*number->offers, scenario.drivers());
            event["quantity"] = words.text(0);
            return scenario.log.jsonEvent("offers", event);
        }
    scenario.refuse("\"" + words.text(0) + "\" is none of samplePeriod, blockSize and scanPeriod");
}

/// Finds a row or column by its header or by `#INDEX`.
std::size_t placeOf(const Scenario& scenario, const std::vector<std::string>& headers, const std::string& word)
{
    const auto index = word.starts_with('#') ? integerIn(std::string_view(word).substr(1)) : std::nullopt;
    const auto named = std::find(headers.begin(), headers.end(), word);
    const auto place =
        index && *index >= 0 ? static_cast<std::size_t>(*index) : static_cast<std::size_t>(named - headers.begin());
    if (place >= headers.size())
        scenario.refuse("there is no row or column \"" + word + "\"");
    return place;
}

void expectCell(Scenario& scenario, const Arguments& words)
{
    const auto* const table = dynamic_cast<const Table*>(&scenario.control(words.text(0)));
    if (!table)
        scenario.refuse("\"" + words.text(0) + "\" is no table");
    std::vector<std::string> rows;
    for (const Table::Row& row : table->rows())
        rows.push_back(row.header);
    const std::size_t row = placeOf(scenario, rows, words.text(1));
    const std::size_t column = placeOf(scenario, table->columns(), words.text(2));
    const std::string& actual = table->rows()[row].cells[column].text;
    if (actual == words.text(3))
        return;
    scenario.expectationFailed = true;
    scenario.log.event("expectation", {{"control", words.text(0)},
                                       {"row", words.text(1)},
                                       {"column", words.text(2)},
                                       {"expected", words.text(3)},
                                       {"actual", actual}});
}

Json toJson(const DriverFailure& failure)
{
    Json members{{"driver", failure.driver}, {"name", failure.name}, {"operation", failingName(failure.operation)}};
    if (!failure.arguments.empty())
        members["arguments"] = failure.arguments;
    members.update({{"number", failure.number}, {"reason", failure.reason}, {"time", failure.time.days}});
    return members;
}

void failing(Scenario& scenario, const Arguments&)
{
    Json list = Json::array();
    for (const DriverFailure& failure : scenario.health().failing())
        list.push_back(toJson(failure));
    scenario.log.jsonEvent("failing", {{"drivers", std::move(list)}});
}

void expectFailing(Scenario& scenario, const Arguments& words)
{
    const HostInstrument* const driver = &scenario.driver(words.text(0));
    std::string actual = "none";
    for (const DriverFailure& failure : scenario.health().failing())
        if (scenario.drivers()[failure.driver].get() == driver)
            actual = failingName(failure.operation);
    if (words.text(1) != "none" && !findOperation(words.text(1)))
        scenario.refuse("\"" + words.text(1) + "\" is no operation that can fail");
    if (actual == words.text(1))
        return;
    scenario.expectationFailed = true;
    scenario.log.event("expectation", {{"driver", words.text(0)}, {"expected", words.text(1)}, {"actual", actual}});
}

void quiet(Scenario& scenario, const Arguments& words)
{
    scenario.quiet = words.onOff(0);
}

void reads(Scenario& scenario, const Arguments& words)
{
    scenario.showReads = words.onOff(0);
}

void history(Scenario& scenario, const Arguments&)
{
    scenario.log.event("history", {{"steps", scenario.history().steps()},
                                   {"position", static_cast<std::int32_t>(scenario.history().position())}});
}

} // namespace

std::span<const Command> questionCommands()
{
    static constexpr Command commands[]{
        {"state", Giver::Question, 0, anyNumber, state}, {"drivers", Giver::Question, 0, 0, drivers},
        {"expect", Giver::Question, 3, 3, expect},       {"quiet", Giver::Question, 1, 1, quiet},
        {"reads", Giver::Question, 1, 1, reads},         {"expect-cell", Giver::Question, 4, 4, expectCell},
        {"offers", Giver::Question, 1, 1, offers},       {"failing", Giver::Question, 0, 0, failing},
        {"history", Giver::Question, 0, 0, history},     {"expect-failing", Giver::Question, 2, 2, expectFailing},
    };
    return commands;
}

} // namespace ko

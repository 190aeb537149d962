#include "host/settings/PlayedPage.h"

#include <nlohmann/json.hpp>

namespace ko {

namespace {

std::string told(const Json& event)
{
    if (event["event"] == "message")
        return event["text"].get<std::string>();
    return event["source"].get<std::string>() + ": " + event["description"].get<std::string>();
}

} // namespace

PlayedPage::PlayedPage(const ScenarioOptions& options) : scenario_(options, events_)
{
    scenario_.quiet = true;
    start_ = play({"setup", "show"});
}

PlayedPage::Outcome PlayedPage::play(const std::vector<std::string>& lines)
{
    std::stringstream script;
    for (const std::string& line : lines)
        script << line << '\n';
    events_.str({});
    scenario_.run(script);
    Outcome outcome;
    std::istringstream events(events_.str());
    for (std::string line; std::getline(events, line);) {
        const Json event = Json::parse(line);
        outcome.inert = outcome.inert || event["event"] == "inert";
        if (event["event"] == "message" || event["event"] == "report")
            outcome.told.push_back(told(event));
    }
    return outcome;
}

Driver* PlayedPage::driverAt(std::int32_t index) const
{
    const DriverList& drivers = page().drivers;
    return index >= 0 && static_cast<std::size_t>(index) < drivers.size()
               ? drivers[static_cast<std::size_t>(index)].get()
               : nullptr;
}

} // namespace ko

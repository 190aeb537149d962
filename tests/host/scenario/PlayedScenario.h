#pragma once

#include "host/scenario/Scenario.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

namespace ko::test {

/// The events of a script and its result.
struct Played {
    std::vector<Json> events;
    bool expectationsMet = false;
    std::string fault; ///< "LINE: message"; empty: none

    /// Returns the events with these names, one per line.
    [[nodiscard]] std::string only(const std::vector<std::string>& names) const
    {
        std::string result;
        for (const Json& event : events)
            if (std::find(names.begin(), names.end(), event["event"]) != names.end())
                result += event.dump() + "\n";
        return result;
    }
    /// Returns the last event with this name.
    [[nodiscard]] Json last(const std::string& name) const
    {
        EXPECT_TRUE(!events.empty() && events.back()["event"] == name) << (events.empty() ? "" : events.back().dump());
        return events.empty() ? Json() : events.back();
    }
};

inline Played play(const std::string& script, const std::string& setup, const std::string& folder = {},
                   const std::shared_ptr<DeviceSource>& devices = {})
{
    std::ostringstream output;
    std::istringstream input(script);
    Played run;
    ScenarioOptions options{parseSetup(setup, "bench.json"), folder, {}, {}};
    options.devices = devices;
    Scenario scenario(options, output);
    try {
        run.expectationsMet = scenario.run(input);
    } catch (const ScriptFault& fault) {
        run.fault = std::to_string(fault.line()) + ": " + fault.what();
    }
    std::istringstream lines(output.str());
    for (std::string line; std::getline(lines, line);)
        run.events.push_back(Json::parse(line));
    return run;
}

} // namespace ko::test

#pragma once

#include "host/settings/Settings.h"
#include "host/setup/SetupFile.h"

namespace ko::test {

// Two instruments with ranges; those of the demo have lists.
inline const char* const ranges = R"({ "clock": "2026-11-21 09:30:00", "drivers": [
  { "name": "Sampler", "timebase": { "samplePeriod": { "value": 0.001, "range": [0.0001, 10] },
                                     "blockSize": { "value": 1000, "range": [1, 4096] } },
    "groups": [ { "name": "In", "channels": [
      { "address": "0:3:1", "name": "A", "enabled": 0, "triggerParameters": [
        { "id": 2, "name": "Level", "type": "Float", "min": -10, "value": 0.1 },
        { "id": 4, "name": "Rising", "type": "Bool", "value": true },
        { "id": 5, "name": "Serial", "type": "StringReadOnly", "value": "77" } ] },
      { "address": "0:3:2", "name": "0:3:1" }, { "address": "0:3:3", "name": "C", "canTrigger": false } ] } ] },
  { "name": "Scanner", "measurementMode": 2, "timebase": { "scanPeriod": { "value": 0.1, "range": [0.01, 100] } } }
] })";

/// Splits at semicolons.
inline std::vector<std::string> assignmentsIn(const std::string& line)
{
    std::vector<std::string> all(1);
    for (const char letter : line)
        letter == ';' ? all.emplace_back() : all.back() += letter;
    return all;
}

/// A page without a window, whose settings are set and read by name.
class SettingsPage {
public:
    explicit SettingsPage(const std::string& setup) : played_({setupOf(setup), {}, {}, {}}) {}

    /// Returns the messages, or the refusal.
    std::string set(const std::vector<std::string>& assignments)
    {
        std::string notes;
        try {
            for (const std::string& one : assignments) {
                const Assignment wanted = assignmentIn(played_, one);
                for (const auto& note : ko::set(wanted.setting, played_, wanted.value))
                    notes += note + "\n";
            }
        } catch (const Refusal& refusal) {
            return notes + "refused: " + refusal.what();
        }
        return notes;
    }

    [[nodiscard]] std::string get(const std::string& name) const
    {
        try {
            return settingText(valueOf(settingNamed(played_, name), played_));
        } catch (const std::exception& refusal) {
            return refusal.what();
        }
    }

    [[nodiscard]] const HeadlessPage& played() const { return played_; }

private:
    static Setup setupOf(const std::string& text)
    {
        return text == "demo" ? loadSetup(KO_DEMO_FOLDER "/engine-bench-demo.json") : parseSetup(text, "ranges.json");
    }

    HeadlessPage played_;
};

} // namespace ko::test

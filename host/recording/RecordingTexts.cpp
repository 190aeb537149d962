#include "host/recording/RecordingTexts.h"

#include "host/recording/UnfinishedFile.h"

#include <array>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <numeric>

namespace ko {

namespace {

using Json = nlohmann::ordered_json;

Json planJson(const PlannedInstrument& instrument)
{
    const ArmedSettings& settings = instrument.settings;
    Json members{{"index", instrument.index}, {"name", instrument.name}};
    members["kind"] = settings.isDynamic ? "dynamic" : "static";
    members["samples"] = instrument.samples;
    members["channels"] = settings.channels.size();
    members["period"] = settings.period;
    members["blockSize"] = settings.blockSize;
    members["bytes"] = instrument.bytes();
    if (instrument.starts == StartsOn::OwnTrigger)
        members["trigger"] = {{"group", settings.trigger->group},
                              {"channel", settings.trigger->channel},
                              {"level", settings.trigger->level},
                              {"pretrigger", settings.trigger->pretrigger}};
    return members;
}

const char* activity(RunState state)
{
    constexpr std::array texts{
        "waiting for the start time", "waiting for the trigger", "recording",          "finishing",
        recordedState::complete,      recordedState::stopped,    recordedState::failed};
    return texts.at(static_cast<std::size_t>(state));
}

} // namespace

std::string byteText(double bytes)
{
    constexpr std::array units{"bytes", "KB", "MB", "GB", "TB"};
    std::size_t unit = 0;
    for (; bytes >= 1024.0 && unit + 1 < units.size(); ++unit)
        bytes /= 1024.0;
    char text[64];
    std::snprintf(text, sizeof text, unit == 0 ? "%.0f %s" : "%.1f %s", bytes, units.at(unit));
    return text;
}

std::string planText(const RecordingPlan& plan)
{
    Json list = Json::array();
    for (const PlannedInstrument& instrument : plan.instruments)
        if (instrument.isRecorded())
            list.push_back(planJson(instrument));
    const Json json{
        {"startMode", plan.startMode}, {"startTime", plan.startTime.days}, {"instruments", std::move(list)}};
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string programText()
{
    return "korvell-host " KO_VERSION;
}

const char* stateText(RunState state)
{
    return isOver(state) ? activity(state) : recordedState::recording;
}

std::string progressText(const RecordingProgress& progress)
{
    double bytes = 0.0;
    std::int64_t lost = 0;
    std::int64_t clipped = 0;
    for (const InstrumentProgress& instrument : progress.instruments) {
        bytes += instrument.bytes;
        lost += instrument.lost;
        clipped = std::accumulate(instrument.clipped.begin(), instrument.clipped.end(), clipped);
    }
    char text[512]; // with room for any number
    std::snprintf(text, sizeof text, "%s, %.1f s, %s, %lld samples lost", activity(progress.state), progress.elapsed,
                  byteText(bytes).c_str(), static_cast<long long>(lost));
    return clipped > 0 ? text + (", " + std::to_string(clipped)) + " clipped" : text;
}

} // namespace ko

#include "host/recording/SignalsInFile.h"

#include "host/recording/Hdf5Reading.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <tuple>

namespace ko {

namespace {

bool hasAttribute(hid_t object, const char* name)
{
    return made(H5Aexists(object, name)) > 0;
}

ArmedChannel channelOf(const Hdf5Dataset& data, std::int32_t group, std::int32_t channel)
{
    ArmedChannel it{group, channel, textOf(data.id(), "address"), textOf(data.id(), "name"), textOf(data.id(), "unit"),
                    {}};
    if (hasAttribute(data.id(), "minimum") && hasAttribute(data.id(), "maximum"))
        it.range = {numberOf(data.id(), "minimum"), numberOf(data.id(), "maximum")};
    return it;
}

/// Returns false if the time of the samples cannot be shown.
bool hasTimes(const SignalInFile& signal)
{
    constexpr double countable = 9e15; // as numbers of places
    const auto samples = static_cast<double>(signal.samples);
    return signal.channel.period > 0.0 && samples < countable &&
           std::isfinite(std::abs(signal.start) + (samples + 1.0) * signal.channel.period);
}

void addInstrument(SignalsInFile& signals, hid_t file, const std::string& name, std::size_t index)
{
    const Hdf5Group group = groupIn(file, name);
    const std::string instrument = textOf(group.id(), "name");
    const double period = numberOf(group.id(), "period");
    const double start = numberOf(group.id(), "start_offset");
    for (const std::string& member : namesIn(group.id())) {
        int place[2]{};
        if (std::sscanf(member.c_str(), "channel-%d-%d", &place[0], &place[1]) != 2)
            continue;
        Hdf5Dataset data = listIn(group.id(), member);
        SignalInFile signal{.dataset = {},
                            .channel = {index, instrument, channelOf(data, place[0], place[1]), period},
                            .start = start,
                            .samples = sizeOf(data),
                            .clipped = hasAttribute(data.id(), "clipped") ? wholeOf(data.id(), "clipped") : 0};
        signal.dataset = std::move(data);
        if (hasTimes(signal))
            signals.signals.push_back(std::move(signal));
    }
}

/// The trigger is where the pretrigger of the instrument that waited for it ends.
void addTrigger(SignalsInFile& signals, const std::string& plan)
{
    const nlohmann::json json = nlohmann::json::parse(plan, nullptr, false);
    const nlohmann::json nothing = nlohmann::json::object();
    const nlohmann::json instruments = json.is_object() ? json.value("instruments", nothing) : nothing;
    for (const auto& it : instruments) {
        const nlohmann::json trigger = it.is_object() ? it.value("trigger", nothing) : nothing;
        const nlohmann::json pretrigger = trigger.is_object() ? trigger.value("pretrigger", nothing) : nothing;
        for (const SignalInFile& signal : signals.signals)
            if (pretrigger.is_number() && it.value("index", nothing) == signal.channel.instrument && signal.samples > 0)
                signals.trigger = signal.start + pretrigger.get<double>() * signal.channel.period;
    }
}

void addMarkers(SignalsInFile& signals, hid_t file)
{
    constexpr std::int64_t most = 1 << 20;
    const Hdf5Dataset times = listIn(file, "markers/time");
    const Hdf5Dataset texts = listIn(file, "markers/text");
    const std::int64_t count = std::min({sizeOf(times), sizeOf(texts), most});
    const auto size = static_cast<std::size_t>(count);
    std::vector<double> time(size);
    std::string text(size * Marker::textSize, '\0');
    if (count > 0) {
        readPart(times, H5T_NATIVE_DOUBLE, 0, count, time.data());
        readPart(texts, textType(Marker::textSize).id(), 0, count, text.data());
    }
    for (std::size_t i = 0; i < size; ++i) {
        const std::string own = text.substr(i * Marker::textSize, Marker::textSize);
        signals.markers.push_back({time[i], own.substr(0, own.find('\0'))});
    }
}

} // namespace

SignalsInFile signalsInFile(hid_t file)
{
    SignalsInFile signals;
    for (const std::string& name : namesIn(file)) {
        unsigned index = 0;
        if (std::sscanf(name.c_str(), "instrument-%u", &index) == 1)
            addInstrument(signals, file, name, index);
    }
    const auto place = [](const SignalInFile& it) {
        return std::tuple(it.channel.instrument, it.channel.channel.group, it.channel.channel.channel);
    };
    std::sort(signals.signals.begin(), signals.signals.end(),
              [&](const SignalInFile& a, const SignalInFile& b) { return place(a) < place(b); });
    addTrigger(signals, textOf(file, "plan"));
    if (made(H5Lexists(file, "markers", H5P_DEFAULT)) > 0)
        addMarkers(signals, file);
    return signals;
}

} // namespace ko

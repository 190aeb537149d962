#include "host/recording/HeldRecording.h"

#include "host/recording/Hdf5Reading.h"
#include "host/support/InputError.h"

#include <algorithm>
#include <charconv>
#include <nlohmann/json.hpp>

namespace ko {

namespace {

void addChannel(HeldInstrument& instrument, hid_t group, const std::string& name)
{
    const Hdf5Dataset data = listIn(group, name);
    const std::int64_t samples = sizeOf(data);
    instrument.samples = instrument.channels == 0 ? samples : std::min(instrument.samples, samples);
    instrument.bytes += 4.0 * static_cast<double>(samples);
    ++instrument.channels;
}

HeldInstrument instrumentIn(hid_t file, const std::string& name, std::size_t index)
{
    const Hdf5Group group = groupIn(file, name);
    HeldInstrument held;
    held.index = index;
    held.name = textOf(group.id(), "name");
    held.period = numberOf(group.id(), "period");
    held.blockSize = wholeOf(group.id(), "block_size");
    held.lost = wholeOf(group.id(), "lost");
    for (const std::string& channel : namesIn(group.id()))
        if (channel.starts_with("channel-"))
            addChannel(held, group.id(), channel);
    return held;
}

/// A plan that another program has written may be anything.
void addPromised(HeldRecording& held, const std::string& plan)
{
    const auto json = nlohmann::json::parse(plan, nullptr, false);
    if (!json.is_object() || !json.contains("instruments") || !json["instruments"].is_array())
        return;
    for (const auto& promised : json["instruments"])
        for (HeldInstrument& instrument : held.instruments)
            if (promised.is_object() && promised.value("index", nlohmann::json()) == instrument.index &&
                promised.value("samples", nlohmann::json()).is_number_integer())
                instrument.promised = promised["samples"].get<std::int64_t>();
}

HeldRecording recordingIn(hid_t file)
{
    const std::string prefix = "instrument-";
    HeldRecording held{.state = textOf(file, "state"),
                       .instruments = {},
                       .title = textOf(file, "title"),
                       .start = textOf(file, "start"),
                       .setup = textOf(file, "setup")};
    for (const std::string& name : namesIn(file)) {
        std::size_t index = 0;
        const char* const end = name.data() + name.size();
        if (name.starts_with(prefix) && std::from_chars(name.data() + prefix.size(), end, index).ptr == end)
            held.instruments.push_back(instrumentIn(file, name, index));
    }
    std::sort(held.instruments.begin(), held.instruments.end(),
              [](const auto& a, const auto& b) { return a.index < b.index; });
    addPromised(held, textOf(file, "plan"));
    return held;
}

} // namespace

HeldRecording heldIn(const std::string& file)
{
    const Hdf5File opened = openedToRead(file);
    try {
        return recordingIn(opened.id());
    } catch (const LibraryFailure& failure) {
        throw InputError(file + ": is no recording: " + failure.reason);
    }
}

} // namespace ko

#include "host/recording/HeldRecording.h"

#include "host/recording/Hdf5Reading.h"
#include "host/support/InputError.h"

#include <algorithm>
#include <charconv>

namespace ko {

namespace {

void addChannel(HeldInstrument& instrument, hid_t group, const std::string& name)
{
    const Hdf5Dataset data(made(H5Dopen2(group, name.c_str(), H5P_DEFAULT)));
    const std::int64_t samples = sizeOf(data);
    instrument.samples = instrument.channels == 0 ? samples : std::min(instrument.samples, samples);
    instrument.bytes += 4.0 * static_cast<double>(samples);
    ++instrument.channels;
}

HeldInstrument instrumentIn(hid_t file, const std::string& name, std::size_t index)
{
    const Hdf5Group group(made(H5Gopen2(file, name.c_str(), H5P_DEFAULT)));
    HeldInstrument held{.index = index, .name = textOf(group.id(), "name")};
    held.isDynamic = textOf(group.id(), "kind") == "dynamic";
    held.period = numberOf(group.id(), "period");
    held.blockSize = wholeOf(group.id(), "block_size");
    held.lost = wholeOf(group.id(), "lost");
    forEachName(group.id(), [&](const std::string& channel) {
        if (channel.starts_with("channel-"))
            addChannel(held, group.id(), channel);
    });
    return held;
}

HeldRecording recordingIn(hid_t file)
{
    const std::string prefix = "instrument-";
    HeldRecording held{.state = textOf(file, "state"), .instruments = {}};
    forEachName(file, [&](const std::string& name) {
        std::size_t index = 0;
        const char* const end = name.data() + name.size();
        if (name.starts_with(prefix) && std::from_chars(name.data() + prefix.size(), end, index).ptr == end)
            held.instruments.push_back(instrumentIn(file, name, index));
    });
    std::sort(held.instruments.begin(), held.instruments.end(),
              [](const auto& a, const auto& b) { return a.index < b.index; });
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

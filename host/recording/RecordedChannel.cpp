#include "host/recording/RecordedChannel.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace ko {

namespace {

constexpr std::size_t enough = 16384; // samples for a write of their own

/// Samples in a chunk: whole blocks, and enough of them.
hsize_t chunkOf(const ArmedSettings& settings)
{
    constexpr std::int64_t most = std::int64_t{1} << 29; // a chunk is smaller than 4 GB
    const std::int64_t least = settings.isDynamic ? 16384 : 1024;
    const std::int64_t block = std::clamp<std::int64_t>(settings.blockSize, 1, most);
    const std::int64_t blocks = (least + block - 1) / block;
    return static_cast<hsize_t>(blocks) * static_cast<hsize_t>(block);
}

std::string nameOf(const ArmedChannel& channel)
{
    return "channel-" + std::to_string(channel.group) + "-" + std::to_string(channel.channel);
}

} // namespace

void RecordedChannel::create(hid_t group, const ArmedSettings& settings, const ArmedChannel& channel)
{
    const float lost = std::numeric_limits<float>::quiet_NaN();
    const Hdf5Dataset data = makeList(group, nameOf(channel), H5T_NATIVE_FLOAT, chunkOf(settings), &lost);
    setText(data.id(), "address", channel.address);
    setText(data.id(), "name", channel.name);
    setText(data.id(), "unit", channel.unit);
    if (channel.hasRange()) {
        setNumber(data.id(), "minimum", channel.range.minimum);
        setNumber(data.id(), "maximum", channel.range.maximum);
        setNumber(data.id(), "clipped", std::int64_t{0});
    }
}

RecordedChannel::RecordedChannel(hid_t group, const ArmedChannel& channel)
    : list_(group, nameOf(channel), Hdf5Type(made(H5Tcopy(H5T_NATIVE_FLOAT))))
{
}

void RecordedChannel::append(std::span<const float> samples)
{
    if (collected_.empty() && samples.size() >= enough)
        return write(samples);
    collected_.insert(collected_.end(), samples.begin(), samples.end());
    if (collected_.size() >= enough)
        flush();
}

void RecordedChannel::flush()
{
    if (!collected_.empty())
        write(collected_);
    collected_.clear();
}

void RecordedChannel::write(std::span<const float> samples)
{
    list_.write(size_, samples.size(), samples.data());
    size_ += samples.size();
}

void RecordedChannel::setClipped(std::int64_t count)
{
    // Of a channel without a range nothing is clipped, so that its missing attribute is never set.
    if (std::exchange(clipped_, count) != count)
        overwrite(list_.id(), "clipped", &count);
}

} // namespace ko

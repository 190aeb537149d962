#include "host/recording/RecordedChannel.h"

#include <algorithm>
#include <limits>

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
}

RecordedChannel::RecordedChannel(hid_t group, const ArmedChannel& channel)
{
    const Hdf5Properties access(made(H5Pcreate(H5P_DATASET_ACCESS)));
    // Without a cache samples are written before the size that shows them to readers.
    made(H5Pset_chunk_cache(access.id(), 0, 0, H5D_CHUNK_CACHE_W0_DEFAULT));
    data_ = Hdf5Dataset(made(H5Dopen2(group, nameOf(channel).c_str(), access.id())));
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
    const hsize_t count = samples.size();
    const hsize_t begin = size_;
    size_ += count;
    made(H5Dset_extent(data_.id(), &size_));
    const Hdf5Space place(made(H5Dget_space(data_.id())));
    made(H5Sselect_hyperslab(place.id(), H5S_SELECT_SET, &begin, nullptr, &count, nullptr));
    const Hdf5Space memory(made(H5Screate_simple(1, &count, nullptr)));
    made(H5Dwrite(data_.id(), H5T_NATIVE_FLOAT, memory.id(), place.id(), H5P_DEFAULT, samples.data()));
}

} // namespace ko

#pragma once

#include "host/instruments/Acquisition.h"
#include "host/recording/Hdf5.h"

#include <span>

namespace ko {

/// The dataset of a channel. Failures are `LibraryFailure`s.
class RecordedChannel {
public:
    /// Adds the dataset to the group of its instrument.
    static void create(hid_t group, const ArmedSettings& settings, const ArmedChannel& channel);

    /// Opens the dataset, in a file that others can read from now on.
    RecordedChannel(hid_t group, const ArmedChannel& channel);

    void append(std::span<const float> samples);
    /// Writes what has been collected.
    void flush();
    /// Stores how many samples are clipped, if the channel has a range.
    void setClipped(std::int64_t count);

private:
    void write(std::span<const float> samples);

    GrowingList list_;
    hsize_t size_ = 0;             ///< samples that were written
    std::vector<float> collected_; ///< later ones, too few for a write of their own
    std::int64_t clipped_ = 0;     ///< as stored
};

} // namespace ko

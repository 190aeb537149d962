#pragma once

#include "host/recording/RecordedChannel.h"
#include "host/recording/RecordedFile.h"
#include "host/support/TemporaryFile.h"

namespace ko {

/// What is open of the file; the members are closed in the reverse order.
struct RecordedContent {
    struct Instrument {
        Hdf5Group group;
        std::vector<RecordedChannel> channels;
        std::int64_t lost = 0;
    };

    TemporaryFile place; ///< locked as long as the file is written
    Hdf5File file;
    std::vector<Instrument> instruments;
    GrowingList markerTimes, markerTexts;

    explicit RecordedContent(const std::filesystem::path& folder) : place(folder, 0666) {}
    void create(const RecordedHead& head, const std::vector<RecordedInstrument>& described);
    void describe(const RecordedHead& head) const;
    void add(const RecordedInstrument& instrument);
    void addMarkers() const;
    [[nodiscard]] int descriptor() const;
    void flush();
    void extend() const;
    void closeParts();
    void close();
    void abandon();
};

} // namespace ko

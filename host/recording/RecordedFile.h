#pragma once

#include "host/recording/ChartSource.h"

#include <memory>
#include <string>
#include <vector>

namespace ko {

/// The texts with which a file begins.
struct RecordedHead {
    std::string title, program, created, start, plan, setup;
};

/// A group of a file.
struct RecordedInstrument {
    std::size_t index = 0; ///< in the set-up
    std::string name;
    ArmedSettings settings;
};

struct RecordedContent;

/// Returns the name under which a file of this name is kept when a recording replaces it: with "~", and a number if
/// that is taken, at its end.
std::string keptName(const std::string& file);

/// The file of a recording while it is written. Others can read it meanwhile (`swmr`); what has been flushed remains if
/// the program is killed. All members are called on one thread. Every failure is an `InputError` with the file and the
/// reason; after one the file holds what was flushed before, and takes nothing more than `close`.
class RecordedFile {
public:
    /// Creates the file. An earlier file of that name is kept, see `keptName`.
    RecordedFile(std::string name, const RecordedHead& head, const std::vector<RecordedInstrument>& instruments);
    /// Closes the file, if it is open, as it is.
    ~RecordedFile();
    RecordedFile(const RecordedFile&) = delete;
    RecordedFile& operator=(const RecordedFile&) = delete;

    [[nodiscard]] const std::string& name() const { return name_; }

    /// Appends `count` samples of each channel from sample `from` of the block on.
    void append(std::size_t instrument, const Block& block, std::int64_t from, std::int64_t count);
    /// Appends samples that are not known, in each channel, and stores how many were lost so far.
    void appendLost(std::size_t instrument, std::int64_t count);

    /// Sets the start of the earliest sample and, in seconds, how much later each instrument starts.
    void setStart(const std::string& start, const std::vector<double>& offsets);

    /// Sets how many samples of each channel of an instrument are clipped; channels without a range do not say.
    void setClipped(std::size_t instrument, const std::vector<std::int64_t>& counts);

    /// Sets all markers.
    void setMarkers(const std::vector<Marker>& markers);

    /// Passes everything to the system.
    void flush();

    /// Sets how and when the recording ended, and closes the file. Its content is on the disk afterwards.
    void close(const std::string& state, const std::string& stop);

private:
    /// Runs `act` with the content, if it is open; a failure closes it.
    template <class Act> void attempt(const Act& act);
    void replaceEarlier();
    /// Closes the file as it was flushed last, and throws.
    [[noreturn]] void refuse(const std::string& reason);

    std::string name_;
    std::unique_ptr<RecordedContent> content_; ///< null after `close` and after a failure
};

} // namespace ko

#include "host/recording/RecordedSignals.h"

#include "host/recording/Hdf5Reading.h"
#include "host/recording/SignalsInFile.h"
#include "host/support/InputError.h"

#include <algorithm>
#include <cmath>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace ko {

namespace {

constexpr float unknown = std::numeric_limits<float>::quiet_NaN();

/// Consecutive samples of a channel, as fine as a chart shows them.
struct Detail {
    std::int64_t first = 0;
    std::int64_t count = 0;
    std::int64_t width = 1;
    std::optional<Envelope> envelope; ///< of these samples, once they have been read

    [[nodiscard]] bool covers(const Detail& other) const
    {
        return first <= other.first && other.first + other.count <= first + count && width <= other.width;
    }
    [[nodiscard]] bool isRead() const { return count == 0 || envelope; }
};

/// The part from a sample up to another one, in extents of which there are several in each part of this width.
Detail detailOf(std::int64_t from, std::int64_t to, double width)
{
    Detail detail;
    while (16.0 * static_cast<double>(detail.width) <= width)
        detail.width *= 4;
    detail.first = from / detail.width * detail.width;
    detail.count = to - detail.first;
    return detail;
}

class RecordedSignals final : public ChartSource {
public:
    explicit RecordedSignals(const std::string& file) : file_(openedToRead(file)), described_(signalsInFile(file_.id()))
    {
        for (const SignalInFile& signal : described_.signals) {
            channels_.push_back(signal.channel);
            kept_.emplace_back(widthFor(signal.samples), extentsOfEach());
        }
        hbool_t canBeShared = false;
        H5is_library_threadsafe(&canBeShared);
        if (canBeShared)
            thread_ = std::jthread([this](const std::stop_token& stop) { work(stop); });
        else
            readAll({});
    }

    [[nodiscard]] const std::vector<ChartChannel>& channels() const override { return channels_; }
    [[nodiscard]] ChartState state() const override;
    [[nodiscard]] std::vector<Extent> extents(std::size_t channel, const SampleSpan& span) const override;
    [[nodiscard]] bool isGrowing() const override;

private:
    struct Kept {
        Kept(std::int64_t width, std::int64_t capacity) : finest(width), envelope(width, capacity) {}

        std::int64_t finest; ///< samples in an extent
        Envelope envelope;
        mutable Detail detail; ///< the one that was asked for last
    };

    /// All files take as much memory.
    [[nodiscard]] std::int64_t extentsOfEach() const
    {
        constexpr std::int64_t ofAll = 1 << 22;
        const auto count = std::max<std::int64_t>(std::ssize(described_.signals), 1);
        return std::clamp<std::int64_t>(ofAll / count, 1 << 12, 1 << 18);
    }
    [[nodiscard]] std::int64_t widthFor(std::int64_t samples) const
    {
        std::int64_t width = 1;
        while (samples / width >= extentsOfEach())
            width *= 4;
        return width;
    }
    void work(const std::stop_token& stop);
    void readAll(const std::stop_token& stop);
    [[nodiscard]] const Kept* wanted() const;
    [[nodiscard]] std::vector<float> read(std::size_t channel, std::int64_t first, std::int64_t count) const;

    Hdf5File file_;
    SignalsInFile described_;
    std::vector<ChartChannel> channels_;
    mutable std::condition_variable_any wanted_;
    mutable std::mutex mutex_; ///< protects the rest
    std::vector<Kept> kept_;
    bool isRead_ = false;
    std::jthread thread_;
};

std::vector<float> RecordedSignals::read(std::size_t channel, std::int64_t first, std::int64_t count) const
{
    std::vector<float> samples(static_cast<std::size_t>(count), unknown);
    try {
        readPart(described_.signals[channel].dataset, H5T_NATIVE_FLOAT, first, count, samples.data());
    } catch (const LibraryFailure&) {
        std::fill(samples.begin(), samples.end(), unknown);
    }
    return samples;
}

/// Reads all channels at the same time, part by part.
void RecordedSignals::readAll(const std::stop_token& stop)
{
    constexpr std::int64_t atOnce = 1 << 18;
    for (bool isMore = true; isMore && !stop.stop_requested();) {
        isMore = false;
        for (std::size_t i = 0; i < kept_.size() && !stop.stop_requested(); ++i) {
            const std::int64_t first = kept_[i].envelope.size();
            const std::int64_t count = std::min(atOnce, described_.signals[i].samples - first);
            if (count <= 0)
                continue;
            const std::vector<float> samples = read(i, first, count);
            const std::lock_guard lock(mutex_);
            kept_[i].envelope.append(samples);
            isMore = true;
        }
    }
    const std::lock_guard lock(mutex_);
    isRead_ = true;
}

const RecordedSignals::Kept* RecordedSignals::wanted() const
{
    const auto found = std::find_if(kept_.begin(), kept_.end(), [](const Kept& it) { return !it.detail.isRead(); });
    return found == kept_.end() ? nullptr : &*found;
}

void RecordedSignals::work(const std::stop_token& stop)
{
    beginHdf5();
    readAll(stop);
    std::unique_lock lock(mutex_);
    while (wanted_.wait(lock, stop, [this] { return wanted() != nullptr; })) {
        const Kept& kept = *wanted();
        Detail detail = kept.detail;
        lock.unlock();
        detail.envelope.emplace(detail.width, detail.count / detail.width + 2);
        detail.envelope->append(read(static_cast<std::size_t>(&kept - kept_.data()), detail.first, detail.count));
        lock.lock();
        if (detail.covers(kept.detail))
            kept.detail = std::move(detail);
    }
}

bool RecordedSignals::isGrowing() const
{
    const std::lock_guard lock(mutex_);
    return !isRead_ || (thread_.joinable() && wanted());
}

ChartState RecordedSignals::state() const
{
    ChartState state;
    state.trigger = described_.trigger;
    state.markers = described_.markers;
    const std::lock_guard lock(mutex_);
    for (std::size_t i = 0; i < kept_.size(); ++i) {
        const SignalInFile& signal = described_.signals[i];
        state.channels.push_back({signal.start, signal.samples, signal.clipped, kept_[i].envelope.latest()});
    }
    return state;
}

std::vector<Extent> RecordedSignals::extents(std::size_t channel, const SampleSpan& span) const
{
    constexpr double most = 4e6; // samples that are read for a picture
    const auto size = static_cast<double>(described_.signals[channel].samples);
    const double end = span.first + span.width * static_cast<double>(span.count);
    const auto from = static_cast<std::int64_t>(span.first > 0.0 ? std::floor(std::min(span.first, size)) : 0.0);
    const auto to = static_cast<std::int64_t>(end > 0.0 ? std::ceil(std::min(end, size)) : 0.0);
    const std::lock_guard lock(mutex_);
    const Kept& kept = kept_[channel];
    const bool isFiner = span.width < static_cast<double>(kept.finest) && static_cast<double>(to - from) <= most;
    if (!isFiner || from >= to)
        return kept.envelope.extents(span);
    if (Detail detail = detailOf(from, to, span.width); !kept.detail.covers(detail)) {
        kept.detail = std::move(detail);
        wanted_.notify_all();
    }
    if (!kept.detail.isRead())
        return kept.envelope.extents(span);
    const double offset = span.first - static_cast<double>(kept.detail.first);
    return kept.detail.envelope->extents({.first = offset, .width = span.width, .count = span.count});
}

} // namespace

std::shared_ptr<const ChartSource> signalsIn(const std::string& file)
{
    try {
        return std::make_shared<RecordedSignals>(file);
    } catch (const LibraryFailure& failure) {
        throw InputError(file + ": is no recording: " + failure.reason);
    }
}

} // namespace ko

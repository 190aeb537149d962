#include "host/recording/RecordedFile.h"

#include "host/recording/Moments.h"
#include "host/recording/RecordedContent.h"
#include "host/recording/UnfinishedFile.h"
#include "host/setup/SetupFile.h"
#include "host/support/InputError.h"

#include <algorithm>
#include <filesystem>
#include <limits>
#include <system_error>

namespace ko {

std::string keptName(const std::string& file)
{
    std::string name = file + "~";
    for (int number = 2; std::filesystem::exists(std::filesystem::symlink_status(name)); ++number)
        name = file + "~" + std::to_string(number);
    return name;
}

RecordedFile::RecordedFile(std::string name, const RecordedHead& head,
                           const std::vector<RecordedInstrument>& instruments)
    : name_(std::move(name))
{
    refuseDevice(name_, Pipes::Refused);
    beginHdf5();
    // Under its own name the file appears when it can be read.
    try {
        content_ = std::make_unique<RecordedContent>(folderOf(name_));
        content_->create(head, instruments);
        replaceEarlier();
    } catch (const LibraryFailure& failure) {
        refuse(failure.reason);
    } catch (const std::system_error& error) {
        refuse(error.code().message());
    }
}

void RecordedFile::replaceEarlier()
{
    namespace fs = std::filesystem;
    if (!fs::exists(name_))
        return content_->place.moveTo(name_);
    // The other program would show this recording as its own.
    if (isLocked(name_))
        throw LibraryFailure{"another program is recording it"};
    const std::string kept = keptName(name_);
    fs::rename(name_, kept);
    try {
        content_->place.moveTo(name_);
    } catch (const std::system_error&) {
        std::error_code ignored;
        fs::rename(kept, name_, ignored);
        throw;
    }
}

void RecordedFile::refuse(const std::string& reason)
{
    if (content_)
        content_->abandon();
    content_.reset();
    throw InputError(name_ + ": cannot be written: " + reason);
}

RecordedFile::~RecordedFile()
{
    if (content_)
        content_->abandon();
}

template <class Act> void RecordedFile::attempt(const Act& act)
{
    if (!content_)
        return;
    try {
        act(*content_);
    } catch (const LibraryFailure& failure) {
        refuse(failure.reason);
    }
}

void RecordedFile::append(std::size_t instrument, const Block& block, std::int64_t from, std::int64_t count)
{
    attempt([&](RecordedContent& content) {
        const float* samples = block.samples.data() + from;
        for (RecordedChannel& channel : content.instruments.at(instrument).channels) {
            channel.append({samples, static_cast<std::size_t>(count)});
            samples += block.count;
        }
    });
}

void RecordedFile::appendLost(std::size_t instrument, std::int64_t count)
{
    attempt([&](RecordedContent& content) {
        RecordedContent::Instrument& it = content.instruments.at(instrument);
        it.lost += count;
        overwrite(it.group.id(), "lost", &it.lost);
        const std::vector<float> gap(65536, std::numeric_limits<float>::quiet_NaN());
        for (std::int64_t left = count; left > 0; left -= std::ssize(gap))
            for (RecordedChannel& channel : it.channels)
                channel.append({gap.data(), static_cast<std::size_t>(std::min(left, std::ssize(gap)))});
    });
}

void RecordedFile::setStart(const std::string& start, const std::vector<double>& offsets)
{
    attempt([&](RecordedContent& content) {
        overwrite(content.file.id(), "start", padded(start, isoTextSize).data());
        for (std::size_t i = 0; i < offsets.size(); ++i)
            overwrite(content.instruments.at(i).group.id(), "start_offset", &offsets[i]);
    });
}

void RecordedFile::setClipped(std::size_t instrument, const std::vector<std::int64_t>& counts)
{
    attempt([&](RecordedContent& content) {
        for (std::size_t i = 0; i < counts.size(); ++i)
            content.instruments.at(instrument).channels.at(i).setClipped(counts[i]);
    });
}

void RecordedFile::setMarkers(const std::vector<Marker>& markers)
{
    std::vector<double> times;
    std::string texts;
    for (const Marker& marker : markers) {
        times.push_back(marker.time);
        texts += padded(marker.text, Marker::textSize);
    }
    attempt([&](RecordedContent& content) {
        content.markerTexts.write(0, markers.size(), texts.data());
        content.markerTimes.write(0, markers.size(), times.data());
    });
}

void RecordedFile::flush()
{
    attempt([](RecordedContent& content) { content.flush(); });
}

void RecordedFile::close(const std::string& state, const std::string& stop)
{
    if (!content_)
        return endUnfinished(name_, state, stop);
    attempt([&](RecordedContent& content) {
        overwrite(content.file.id(), "state", padded(state, recordedState::size).data());
        overwrite(content.file.id(), "stop", padded(stop, isoTextSize).data());
        content.flush();
        content.close();
    });
    content_.reset();
    synchronize(name_);
}

} // namespace ko

#include "host/recording/RecordedFile.h"

#include "host/recording/Hdf5.h"
#include "host/recording/Moments.h"
#include "host/recording/RecordedChannel.h"
#include "host/recording/UnfinishedFile.h"
#include "host/setup/SetupFile.h"
#include "host/support/InputError.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <limits>
#include <sys/mman.h>
#include <system_error>
#include <unistd.h>

namespace ko {

namespace {

constexpr std::size_t markerSize = 256;

Hdf5Group makeGroup(hid_t file, const std::string& name)
{
    return Hdf5Group(made(H5Gcreate2(file, name.c_str(), H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT)));
}

} // namespace

/// What is open of the file; the members are closed in the reverse order.
struct RecordedFile::Content {
    struct Instrument {
        Hdf5Group group;
        std::vector<RecordedChannel> channels;
        std::int64_t lost = 0;
    };

    WriteMark mark;
    Hdf5File file;
    std::vector<Instrument> instruments;

    explicit Content(const std::string& name) : mark(name) {}
    void create(const std::string& name, const RecordedHead& head, const std::vector<RecordedInstrument>& described);
    void describe(const RecordedHead& head) const;
    void add(const RecordedInstrument& instrument);
    void addMarkers() const;
    [[nodiscard]] int descriptor() const;
    void flush();
    void extend() const;
    void close();
    void abandon();
};

void RecordedFile::Content::create(const std::string& name, const RecordedHead& head,
                                   const std::vector<RecordedInstrument>& described)
{
    const Hdf5Properties access(made(H5Pcreate(H5P_FILE_ACCESS)));
    made(H5Pset_libver_bounds(access.id(), H5F_LIBVER_LATEST, H5F_LIBVER_LATEST));
    made(H5Pset_sieve_buf_size(access.id(), 0));
    // Between two flushes the file must not change, except for samples that no reader can see yet.
    H5AC_cache_config_t cache{};
    cache.version = H5AC__CURR_CACHE_CONFIG_VERSION;
    made(H5Pget_mdc_config(access.id(), &cache));
    cache.evictions_enabled = false;
    cache.incr_mode = H5C_incr__off;
    cache.flash_incr_mode = H5C_flash_incr__off;
    cache.decr_mode = H5C_decr__off;
    made(H5Pset_mdc_config(access.id(), &cache));
    file = Hdf5File(made(H5Fcreate(name.c_str(), H5F_ACC_TRUNC, H5P_DEFAULT, access.id())));
    describe(head);
    for (const RecordedInstrument& instrument : described)
        add(instrument);
    addMarkers();
    made(H5Fstart_swmr_write(file.id()));
    for (std::size_t i = 0; i < described.size(); ++i)
        for (const ArmedChannel& channel : described[i].settings.channels)
            instruments[i].channels.emplace_back(instruments[i].group.id(), channel);
}

void RecordedFile::Content::describe(const RecordedHead& head) const
{
    setText(file.id(), "title", head.title);
    setText(file.id(), "program", head.program);
    setText(file.id(), "created", head.created);
    setFixedText(file.id(), "start", head.start, isoTextSize);
    setFixedText(file.id(), "stop", "", isoTextSize);
    setFixedText(file.id(), "state", recordedState::recording, recordedState::size);
    setText(file.id(), "plan", head.plan);
    setText(file.id(), "setup", head.setup);
}

void RecordedFile::Content::add(const RecordedInstrument& instrument)
{
    const ArmedSettings& settings = instrument.settings;
    Instrument made{makeGroup(file.id(), "instrument-" + std::to_string(instrument.index)), {}};
    const hid_t group = made.group.id();
    setText(group, "name", instrument.name);
    setText(group, "kind", settings.isDynamic ? "dynamic" : "static");
    setNumber(group, "period", settings.period);
    setNumber(group, "block_size", settings.isDynamic ? settings.blockSize : std::int64_t{1});
    setNumber(group, "start_offset", 0.0);
    setNumber(group, "lost", std::int64_t{0});
    for (const ArmedChannel& channel : settings.channels)
        RecordedChannel::create(group, settings, channel);
    instruments.push_back(std::move(made));
}

void RecordedFile::Content::addMarkers() const
{
    const Hdf5Group markers = makeGroup(file.id(), "markers");
    makeList(markers.id(), "time", H5T_NATIVE_DOUBLE, 1024);
    makeList(markers.id(), "text", textType(markerSize).id(), 64);
}

void RecordedFile::Content::flush()
{
    for (Instrument& instrument : instruments)
        for (RecordedChannel& channel : instrument.channels)
            channel.flush();
    extend();
    made(H5Fflush(file.id(), H5F_SCOPE_LOCAL));
}

/// Gives the file the size that the next flush says it has. The library does so after it has said it, and a file that
/// is shorter then cannot be opened.
void RecordedFile::Content::extend() const
{
    haddr_t size = 0;
    made(H5Fget_eoa(file.id(), &size));
    if (ftruncate(descriptor(), static_cast<off_t>(size)) != 0)
        throw LibraryFailure{std::generic_category().message(errno)};
}

int RecordedFile::Content::descriptor() const
{
    void* descriptor = nullptr;
    made(H5Fget_vfd_handle(file.id(), H5P_DEFAULT, &descriptor));
    return *static_cast<int*>(descriptor);
}

void RecordedFile::Content::close()
{
    instruments.clear();
    if (!file.reset())
        throw LibraryFailure();
}

/// Closes the file in memory, and leaves it on the disk as it was flushed last.
void RecordedFile::Content::abandon()
{
    // The library can only close a file by writing it, so that it gets another one for that.
    const int elsewhere = memfd_create("abandoned", MFD_CLOEXEC);
    try {
        dup2(elsewhere, descriptor());
    } catch (const LibraryFailure&) {
        // It has been closed.
    }
    ::close(elsewhere);
    instruments.clear();
    file.reset();
}

RecordedFile::RecordedFile(std::string name, const RecordedHead& head,
                           const std::vector<RecordedInstrument>& instruments)
    : name_(std::move(name))
{
    refuseDevice(name_);
    beginHdf5();
    // Under its own name the file appears when it can be read.
    const std::string temporary = name_ + ".part";
    try {
        content_ = std::make_unique<Content>(temporary);
        content_->create(temporary, head, instruments);
        if (std::filesystem::exists(name_))
            std::filesystem::rename(name_, name_ + "~");
        std::filesystem::rename(temporary, name_);
    } catch (const LibraryFailure& failure) {
        discard(temporary);
        throw InputError(name_ + ": cannot be written: " + failure.reason);
    } catch (const std::filesystem::filesystem_error& error) {
        discard(temporary);
        throw InputError(name_ + ": cannot be written: " + error.code().message());
    }
}

RecordedFile::~RecordedFile()
{
    if (content_)
        content_->abandon();
}

void RecordedFile::discard(const std::string& file)
{
    if (content_)
        content_->abandon();
    content_.reset();
    std::error_code ignored;
    std::filesystem::remove(file, ignored);
}

template <class Act> void RecordedFile::attempt(const Act& act)
{
    if (!content_)
        return;
    try {
        act(*content_);
    } catch (const LibraryFailure& failure) {
        content_->abandon();
        content_.reset();
        throw InputError(name_ + ": cannot be written: " + failure.reason);
    }
}

void RecordedFile::append(std::size_t instrument, const Block& block, std::int64_t from, std::int64_t count)
{
    attempt([&](Content& content) {
        const float* samples = block.samples.data() + from;
        for (RecordedChannel& channel : content.instruments.at(instrument).channels) {
            channel.append({samples, static_cast<std::size_t>(count)});
            samples += block.count;
        }
    });
}

void RecordedFile::appendLost(std::size_t instrument, std::int64_t count)
{
    attempt([&](Content& content) {
        Content::Instrument& it = content.instruments.at(instrument);
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
    attempt([&](Content& content) {
        overwrite(content.file.id(), "start", padded(start, isoTextSize).data());
        for (std::size_t i = 0; i < offsets.size(); ++i)
            overwrite(content.instruments.at(i).group.id(), "start_offset", &offsets[i]);
    });
}

void RecordedFile::flush()
{
    attempt([](Content& content) { content.flush(); });
}

void RecordedFile::close(const std::string& state, const std::string& stop)
{
    if (!content_)
        return endUnfinished(name_, state, stop);
    attempt([&](Content& content) {
        overwrite(content.file.id(), "state", padded(state, recordedState::size).data());
        overwrite(content.file.id(), "stop", padded(stop, isoTextSize).data());
        content.flush();
        content.close();
    });
    content_.reset();
    synchronize(name_);
}

} // namespace ko

#include "host/recording/RecordedContent.h"

#include "host/recording/Moments.h"
#include "host/recording/UnfinishedFile.h"

#include <cerrno>
#include <sys/mman.h>
#include <system_error>
#include <unistd.h>

namespace ko {

namespace {

Hdf5Group makeGroup(hid_t file, const std::string& name)
{
    return Hdf5Group(made(H5Gcreate2(file, name.c_str(), H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT)));
}

} // namespace

void RecordedContent::create(const RecordedHead& head, const std::vector<RecordedInstrument>& described)
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
    file = Hdf5File(made(H5Fcreate(place.path().c_str(), H5F_ACC_TRUNC, H5P_DEFAULT, access.id())));
    describe(head);
    for (const RecordedInstrument& instrument : described)
        add(instrument);
    addMarkers();
    made(H5Fstart_swmr_write(file.id()));
    markerTimes = GrowingList(file.id(), "markers/time", Hdf5Type(made(H5Tcopy(H5T_NATIVE_DOUBLE))));
    markerTexts = GrowingList(file.id(), "markers/text", textType(Marker::textSize));
    for (std::size_t i = 0; i < described.size(); ++i)
        for (const ArmedChannel& channel : described[i].settings.channels)
            instruments[i].channels.emplace_back(instruments[i].group.id(), channel);
}

void RecordedContent::describe(const RecordedHead& head) const
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

void RecordedContent::add(const RecordedInstrument& instrument)
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

void RecordedContent::addMarkers() const
{
    const Hdf5Group markers = makeGroup(file.id(), "markers");
    makeList(markers.id(), "time", H5T_NATIVE_DOUBLE, 1024);
    makeList(markers.id(), "text", textType(Marker::textSize).id(), 64);
}

void RecordedContent::flush()
{
    for (Instrument& instrument : instruments)
        for (RecordedChannel& channel : instrument.channels)
            channel.flush();
    extend();
    made(H5Fflush(file.id(), H5F_SCOPE_LOCAL));
}

/// Gives the file the size that the next flush says it has. The library does so after it has said it, and a file that
/// is shorter then cannot be opened.
void RecordedContent::extend() const
{
    haddr_t size = 0;
    made(H5Fget_eoa(file.id(), &size));
    if (ftruncate(descriptor(), static_cast<off_t>(size)) != 0)
        throw LibraryFailure{std::generic_category().message(errno)};
}

int RecordedContent::descriptor() const
{
    void* descriptor = nullptr;
    made(H5Fget_vfd_handle(file.id(), H5P_DEFAULT, &descriptor));
    return *static_cast<int*>(descriptor);
}

void RecordedContent::closeParts()
{
    instruments.clear();
    markerTimes = {};
    markerTexts = {};
}

void RecordedContent::close()
{
    closeParts();
    if (!file.reset())
        throw LibraryFailure();
}

/// Closes the file in memory, and leaves it on the disk as it was flushed last.
void RecordedContent::abandon()
{
    // The library can only close a file by writing it, so that it gets another one for that.
    const int elsewhere = memfd_create("abandoned", MFD_CLOEXEC);
    try {
        dup2(elsewhere, descriptor());
    } catch (const LibraryFailure&) {
        // It has been closed.
    }
    ::close(elsewhere);
    closeParts();
    file.reset();
}

} // namespace ko

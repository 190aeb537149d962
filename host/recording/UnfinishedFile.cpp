#include "host/recording/UnfinishedFile.h"

#include "host/recording/Hdf5.h"
#include "host/recording/Moments.h"
#include "host/support/InputError.h"

#include <cerrno>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace ko {

namespace {

flock wholeFile()
{
    flock lock{};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    return lock;
}

/// Opens the file for writing although a program that was to close it has ended; the library then clears the mark that
/// it is being written.
Hdf5File openUnfinished(const std::string& file)
{
    const Hdf5Properties access(made(H5Pcreate(H5P_FILE_ACCESS)));
    const hbool_t clear = true;
    made(H5Pset(access.id(), "clear_status_flags", &clear));
    Hdf5File opened(made(H5Fopen(file.c_str(), H5F_ACC_RDWR, access.id())));
    // The size of the file is what a flush writes last; all that follows belongs to the recording.
    made(H5Fincrement_filesize(opened.id(), 0));
    return opened;
}

template <class Act> void reporting(const std::string& file, const Act& act)
{
    beginHdf5();
    try {
        act();
    } catch (const LibraryFailure& failure) {
        throw InputError(file + ": cannot be written: " + failure.reason);
    }
}

} // namespace

WriteMark::WriteMark(const std::string& file) : file_(open(file.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666))
{
    if (file_ < 0)
        throw LibraryFailure{std::generic_category().message(errno)};
    flock lock = wholeFile();
    fcntl(file_, F_OFD_SETLK, &lock);
}

WriteMark::~WriteMark()
{
    ::close(file_);
}

bool isBeingWritten(const std::string& file)
{
    const int opened = open(file.c_str(), O_RDONLY | O_CLOEXEC);
    flock lock = wholeFile();
    const bool isKnown = fcntl(opened, F_OFD_GETLK, &lock) == 0;
    ::close(opened);
    return isKnown && lock.l_type != F_UNLCK;
}

bool clearUnfinished(const std::string& file)
{
    beginHdf5();
    const auto opens = [&](unsigned how) { return Hdf5File(H5Fopen(file.c_str(), how, H5P_DEFAULT)).id() >= 0; };
    const bool isUnfinished = !opens(H5F_ACC_RDONLY) && opens(H5F_ACC_RDONLY | H5F_ACC_SWMR_READ);
    if (!isUnfinished || isBeingWritten(file))
        return false;
    reporting(file, [&] {
        if (!openUnfinished(file).reset())
            throw LibraryFailure();
    });
    return true;
}

void endUnfinished(const std::string& file, const std::string& state, const std::string& stop)
{
    reporting(file, [&] {
        Hdf5File opened = openUnfinished(file);
        overwrite(opened.id(), "state", padded(state, recordedState::size).data());
        overwrite(opened.id(), "stop", padded(stop, isoTextSize).data());
        if (!opened.reset())
            throw LibraryFailure();
    });
    synchronize(file);
}

void synchronize(const std::string& file)
{
    const int opened = open(file.c_str(), O_RDWR | O_CLOEXEC);
    const bool isDone = opened >= 0 && fsync(opened) == 0;
    const int error = errno;
    ::close(opened);
    if (!isDone)
        throw InputError(file + ": cannot be written: " + std::generic_category().message(error));
}

} // namespace ko

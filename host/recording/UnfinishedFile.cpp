#include "host/recording/UnfinishedFile.h"

#include "host/recording/Hdf5.h"
#include "host/recording/Moments.h"
#include "host/setup/SetupFile.h"
#include "host/support/InputError.h"
#include "host/support/TemporaryFile.h"

#include <cerrno>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace ko {

namespace {

/// Returns 0 or an error number.
int synchronizeOpened(const std::filesystem::path& path, int how)
{
    const int opened = open(path.c_str(), how | O_CLOEXEC);
    const int error = opened < 0 ? errno : synchronized(opened);
    ::close(opened);
    return error;
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

bool clearUnfinished(const std::string& file)
{
    refuseDevice(file, Pipes::Refused);
    beginHdf5();
    const auto opens = [&](unsigned how) { return Hdf5File(H5Fopen(file.c_str(), how, H5P_DEFAULT)).id() >= 0; };
    const bool isUnfinished = !opens(H5F_ACC_RDONLY) && opens(H5F_ACC_RDONLY | H5F_ACC_SWMR_READ);
    if (!isUnfinished || isLocked(file))
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
    int error = synchronizeOpened(file, O_RDWR);
    if (error == 0)
        error = synchronizeOpened(folderOf(file), O_RDONLY | O_DIRECTORY);
    // A folder may be written but not read.
    if (error != 0 && error != EACCES)
        throw InputError(file + ": cannot be written: " + std::generic_category().message(error));
}

} // namespace ko

#include "host/support/TemporaryFile.h"

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace ko {

namespace {

namespace fs = std::filesystem;

constexpr const char* prefix = ".korvell-";
constexpr const char* suffix = ".new";

/// The name is short, because the file's own name may already have the longest possible length.
std::string temporaryName(int number)
{
    return prefix + std::to_string(::getpid()) + "-" + std::to_string(number) + suffix;
}

bool isTemporaryName(const std::string& name)
{
    return name.starts_with(prefix) && name.ends_with(suffix);
}

/// Locks of this kind belong to the open file, so that they differ within a program too and end with it.
struct flock wholeFile()
{
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    return lock;
}

/// Returns false if another one has the lock; a file system without locks has none to give.
bool lock(int file)
{
    struct flock wanted = wholeFile();
    return ::fcntl(file, F_OFD_SETLK, &wanted) == 0 || (errno != EAGAIN && errno != EACCES);
}

/// The lock is held while the file is removed, so that its program, if it has just been created, finds it gone.
void removeUnlocked(const fs::path& path)
{
    const int file = ::open(path.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    struct flock wanted = wholeFile();
    if (file >= 0 && ::fcntl(file, F_OFD_SETLK, &wanted) == 0)
        ::unlink(path.c_str());
    if (file >= 0)
        ::close(file);
}

void removeAbandoned(const fs::path& folder)
{
    std::error_code ignored;
    for (fs::directory_iterator entry(folder, ignored), end; entry != end; entry.increment(ignored))
        if (isTemporaryName(entry->path().filename().string()))
            removeUnlocked(entry->path());
}

[[noreturn]] void failWith(int error)
{
    throw std::system_error(error, std::generic_category());
}

} // namespace

TemporaryFile::TemporaryFile(const fs::path& folder, mode_t permissions)
{
    removeAbandoned(folder);
    for (int number = 0; !create(folder / temporaryName(number), permissions);)
        ++number;
}

/// Returns false if the name is taken.
bool TemporaryFile::create(const fs::path& path, mode_t permissions)
{
    file_ = ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, permissions);
    if (file_ < 0 && errno != EEXIST)
        failWith(errno);
    if (file_ >= 0 && lock(file_) && hasName()) {
        path_ = path;
        return true;
    }
    if (file_ >= 0)
        ::close(file_);
    return false;
}

TemporaryFile::~TemporaryFile()
{
    if (!path_.empty())
        ::unlink(path_.c_str());
    ::close(file_);
}

bool TemporaryFile::hasName() const
{
    struct stat status {};
    return ::fstat(file_, &status) != 0 || status.st_nlink > 0;
}

void TemporaryFile::moveTo(const fs::path& place)
{
    if (::rename(path_.c_str(), place.c_str()) != 0)
        failWith(errno);
    path_.clear();
}

bool isLocked(const fs::path& file)
{
    const int opened = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    struct flock wanted = wholeFile();
    const bool isKnown = opened >= 0 && ::fcntl(opened, F_OFD_GETLK, &wanted) == 0;
    if (opened >= 0)
        ::close(opened);
    return isKnown && wanted.l_type != F_UNLCK;
}

fs::path folderOf(const fs::path& file)
{
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

int synchronized(int file)
{
    return ::fsync(file) == 0 || errno == EINVAL || errno == ENOTSUP || errno == ENOSYS ? 0 : errno;
}

} // namespace ko

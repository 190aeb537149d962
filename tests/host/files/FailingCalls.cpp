#include "FailingCalls.h"

#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace ko::test::failingCalls {

namespace {

// Calls come before the constructors of this file, and from all threads.
char watched[PATH_MAX];
std::atomic<int> left = -1; ///< calls that still work; -1: all
std::atomic<const char*> failed = nullptr;
bool kills = false;

bool failsNow(const char* call)
{
    for (int now = left; now >= 0;)
        if (left.compare_exchange_weak(now, now - 1)) {
            if (now == 0 && kills)
                kill(getpid(), SIGKILL);
            if (now == 0)
                failed = call;
            return now == 0;
        }
    return false;
}

bool fails(const char* call, const char* path)
{
    return left >= 0 && path && std::string_view(path).starts_with(watched) && failsNow(call);
}

bool failsFor(const char* call, int file)
{
    if (left < 0)
        return false;
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    char path[PATH_MAX] = {};
    return readlink(link.c_str(), path, sizeof path - 1) > 0 && fails(call, path);
}

int failure(int error)
{
    errno = error;
    return -1;
}

long openAt(const char* path, int how, mode_t mode)
{
    return fails("open", path) ? failure(EIO) : syscall(SYS_openat, AT_FDCWD, path, how, mode);
}

/// A disk that gets full takes a part.
template <class Write> ssize_t writeSome(int file, std::size_t size, const Write& write)
{
    if (!failsFor("write", file))
        return write(size);
    write(size / 2 / 4096 * 4096);
    return failure(ENOSPC);
}

int synchronize(int file, long number)
{
    struct stat status {};
    const bool isFolder = fstat(file, &status) == 0 && S_ISDIR(status.st_mode);
    return failsFor(isFolder ? "synchronize the folder" : "synchronize", file)
               ? failure(EIO)
               : static_cast<int>(syscall(number, file));
}

int cut(int file, off_t length)
{
    return failsFor("cut", file) ? failure(EIO) : static_cast<int>(syscall(SYS_ftruncate, file, length));
}

int control(int file, int what, void* argument)
{
    const bool locks = what == F_SETLK || what == F_SETLKW || what == F_OFD_SETLK || what == F_OFD_SETLKW;
    return locks && failsFor("lock", file) ? failure(ENOLCK)
                                           : static_cast<int>(syscall(SYS_fcntl, file, what, argument));
}

FILE* openStream(const char* path, const char* mode)
{
    const std::string_view how = mode;
    const int access = how.find('+') != std::string_view::npos ? O_RDWR : how[0] == 'r' ? O_RDONLY : O_WRONLY;
    const int makes = how[0] == 'r' ? 0 : O_CREAT | (how[0] == 'w' ? O_TRUNC : O_APPEND);
    const long file = openAt(path, access | makes | O_CLOEXEC, 0666);
    return file < 0 ? nullptr : fdopen(static_cast<int>(file), mode);
}

/// The plan of a program whose environment has one.
const struct Environment {
    Environment()
    {
        const char* const number = getenv(numberVariable);
        if (const char* const folder = getenv(folderVariable); number && folder)
            plan(atoi(number), folder);
        const char* const how = getenv(killVariable);
        kills = how && *how != '\0';
    }
    ~Environment()
    {
        const char* const report = getenv(reportVariable);
        const std::string call = report ? end() : std::string();
        if (FILE* const file = call.empty() ? nullptr : fopen(report, "w")) {
            fputs(call.c_str(), file);
            fclose(file);
        }
    }
} environment;

} // namespace

void plan(int number, const std::string& folder)
{
    folder.copy(watched, sizeof watched - 1);
    watched[folder.size()] = '\0';
    failed = nullptr;
    left = number;
}

std::string end()
{
    left = -1;
    const char* const call = failed.exchange(nullptr);
    return call ? call : "";
}

} // namespace ko::test::failingCalls

using namespace ko::test::failingCalls;

// The libraries find these in the program before those of the system.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name,cert-dcl50-cpp): those of the system are reserved
#pragma GCC visibility push(default)
extern "C" {
int open(const char* path, int how, ...)
{
    va_list rest;
    va_start(rest, how);
    const mode_t mode = va_arg(rest, mode_t);
    va_end(rest);
    return static_cast<int>(openAt(path, how, mode));
}
int open64(const char* path, int how, ...) __attribute__((alias("open")));
int fcntl(int file, int what, ...)
{
    va_list rest;
    va_start(rest, what);
    void* const argument = va_arg(rest, void*);
    va_end(rest);
    return control(file, what, argument);
}
int fcntl64(int file, int what, ...) __attribute__((alias("fcntl")));
FILE* fopen(const char* path, const char* mode)
{
    return openStream(path, mode);
}
FILE* fopen64(const char* path, const char* mode) __attribute__((alias("fopen")));
ssize_t write(int file, const void* bytes, size_t size)
{
    return writeSome(file, size, [&](size_t some) { return syscall(SYS_write, file, bytes, some); });
}
ssize_t pwrite(int file, const void* bytes, size_t size, off_t at)
{
    return writeSome(file, size, [&](size_t some) { return syscall(SYS_pwrite64, file, bytes, some, at); });
}
ssize_t pwrite64(int file, const void* bytes, size_t size, off64_t at) __attribute__((alias("pwrite")));
int fsync(int file)
{
    return synchronize(file, SYS_fsync);
}
int fdatasync(int file)
{
    return synchronize(file, SYS_fdatasync);
}
int ftruncate(int file, off_t length) noexcept
{
    return cut(file, length);
}
int ftruncate64(int file, off64_t length) noexcept __attribute__((alias("ftruncate")));
// There is a structure of the name "flock".
int lockFile(int file, int how) noexcept __asm__("flock");
int lockFile(int file, int how) noexcept
{
    return failsFor("lock", file) ? failure(ENOLCK) : static_cast<int>(syscall(SYS_flock, file, how));
}
int rename(const char* from, const char* to) noexcept
{
    return fails("rename", from) ? failure(EIO)
                                 : static_cast<int>(syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}
int mkdir(const char* path, mode_t mode) noexcept
{
    return fails("mkdir", path) ? failure(EIO) : static_cast<int>(syscall(SYS_mkdirat, AT_FDCWD, path, mode));
}
}
#pragma GCC visibility pop
// NOLINTEND(readability-inconsistent-declaration-parameter-name,cert-dcl50-cpp)

#include "host/support/FileWriter.h"

#include "host/support/InputError.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace ko {

namespace {

namespace fs = std::filesystem;

constexpr int mostLinks = 40;

/// Resolves a chain of symbolic links, even if the file itself does not exist.
fs::path placeOf(const std::string& name)
{
    fs::path place = name;
    std::error_code error;
    for (int i = 0; i < mostLinks && fs::is_symlink(place, error); ++i)
        place = place.parent_path() / fs::read_symlink(place, error);
    return place;
}

fs::path folderOf(const fs::path& place)
{
    return place.has_parent_path() ? place.parent_path() : fs::path(".");
}

/// Returns 0 or errno.
int writeAll(int file, std::string_view text, std::size_t at)
{
    while (!text.empty()) {
        const ssize_t written = ::pwrite(file, text.data(), text.size(), static_cast<off_t>(at));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return written < 0 ? errno : ENOSPC;
        text.remove_prefix(static_cast<std::size_t>(written));
        at += static_cast<std::size_t>(written);
    }
    return 0;
}

/// Returns the content from byte `at` to the end.
std::string tailOf(int file, std::size_t at)
{
    struct stat status {};
    const bool isLonger = ::fstat(file, &status) == 0 && status.st_size > static_cast<off_t>(at);
    std::string tail(isLonger ? static_cast<std::size_t>(status.st_size) - at : 0, '\0');
    const ssize_t got = ::pread(file, tail.data(), tail.size(), static_cast<off_t>(at));
    tail.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
    return tail;
}

/// Some file systems do not support fsync.
int synchronize(int file)
{
    return ::fsync(file) == 0 || errno == EINVAL || errno == ENOTSUP ? 0 : errno;
}

} // namespace

FileWriter::FileWriter(const std::string& name) : name_(name), place_(placeOf(name))
{
    std::error_code ignored;
    const fs::file_type kind = fs::status(name_, ignored).type();
    if (kind != fs::file_type::regular && kind != fs::file_type::not_found && kind != fs::file_type::none)
        throw InputError(name_ + ": cannot be saved: it is no file");
    // rename() would replace a write-protected file.
    if (kind == fs::file_type::regular && ::access(place_.c_str(), W_OK) != 0)
        refuse(errno);
    create();
    keepOwnership();
}

FileWriter::~FileWriter()
{
    ::close(file_);
    if (!temporary_.empty())
        ::unlink(temporary_.c_str());
}

/// The temporary name is short, because the file's own name may already have the longest possible length. A process
/// that is killed while it saves leaves the temporary file.
void FileWriter::create()
{
    for (int number = 0; file_ < 0; ++number) {
        temporary_ =
            folderOf(place_) / (".korvell-" + std::to_string(::getpid()) + "-" + std::to_string(number) + ".new");
        file_ = ::open(temporary_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (file_ < 0 && errno != EEXIST)
            refuse(errno);
    }
}

/// Errors are ignored: the user may lack the right to set the owner, and saving the content matters more.
void FileWriter::keepOwnership() const
{
    struct stat status {};
    if (::stat(place_.c_str(), &status) != 0)
        return;
    constexpr auto sameOwner = static_cast<uid_t>(-1);
    const bool isGiven =
        ::fchown(file_, status.st_uid, status.st_gid) == 0 || ::fchown(file_, sameOwner, status.st_gid) == 0;
    // Without the old group, its permissions must not go to another one.
    constexpr mode_t withoutGroup = 0707;
    constexpr mode_t all = 0777;
    static_cast<void>(::fchmod(file_, status.st_mode & (isGiven ? all : withoutGroup)));
}

void FileWriter::write(std::string_view text, std::size_t at)
{
    const std::string before = tailOf(file_, at);
    const int error = writeAll(file_, text, at);
    if (error == 0)
        return;
    static_cast<void>(writeAll(file_, before, at));
    [[maybe_unused]] const int cut = ::ftruncate(file_, static_cast<off_t>(at + before.size()));
    refuse(error);
}

void FileWriter::commit()
{
    if (const int error = synchronize(file_))
        refuse(error);
    if (::rename(temporary_.c_str(), place_.c_str()) != 0)
        refuse(errno);
    temporary_.clear();
}

void FileWriter::refuse(int error) const
{
    throw InputError(name_ + ": cannot be saved: " + std::generic_category().message(error));
}

void writeWhole(const std::string& name, std::string_view content)
{
    FileWriter file(name);
    file.write(content, 0);
    file.commit();
}

bool isSameFile(const std::string& name, const std::string& other)
{
    std::error_code error;
    const auto whole = [&](const std::string& file) {
        return fs::weakly_canonical(fs::absolute(placeOf(file), error), error);
    };
    return fs::equivalent(name, other, error) || whole(name) == whole(other);
}

} // namespace ko

#include "host/support/FileWriter.h"

#include "host/support/InputError.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <fstream>
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

std::string reasonOf(int error)
{
    return std::generic_category().message(error);
}

/// The permissions with which the temporary file is created. Those of an existing file follow with its group.
mode_t permissionsFor(const fs::path& place, Readers readers)
{
    std::error_code unknown;
    constexpr mode_t usual = 0666;
    constexpr mode_t own = 0600;
    return readers == Readers::OwnerOnly || fs::exists(place, unknown) ? own : usual;
}

/// An open folder, to synchronize its names.
class OpenFolder {
public:
    explicit OpenFolder(const fs::path& folder)
        : folder_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)), error_(folder_ < 0 ? errno : 0)
    {
    }
    ~OpenFolder()
    {
        if (folder_ >= 0)
            ::close(folder_);
    }
    OpenFolder(const OpenFolder&) = delete;
    OpenFolder& operator=(const OpenFolder&) = delete;

    /// Returns 0 also for a folder that may be written but not read.
    [[nodiscard]] int error() const { return error_ == EACCES ? 0 : error_; }
    [[nodiscard]] int synchronize() const { return folder_ < 0 ? 0 : synchronized(folder_); }

private:
    int folder_;
    int error_;
};

} // namespace

FileWriter::FileWriter(const std::string& name, Readers readers) : name_(name), place_(placeOf(name))
{
    std::error_code ignored;
    const fs::file_type kind = fs::status(name_, ignored).type();
    if (kind != fs::file_type::regular && kind != fs::file_type::not_found && kind != fs::file_type::none)
        throw InputError(name_ + ": cannot be saved: it is no file");
    if (isRecordingFile(name_))
        throw InputError(name_ + ": cannot be saved: it is a recording, which is never overwritten");
    // rename() would replace a write-protected file.
    if (kind == fs::file_type::regular && ::access(place_.c_str(), W_OK) != 0)
        refuse(errno);
    attempt([&] { file_.emplace(folderOf(place_), permissionsFor(place_, readers)); });
    if (readers == Readers::AsBefore)
        keepOwnership();
}

FileWriter::~FileWriter() = default;

template <class Act> void FileWriter::attempt(const Act& act) const
{
    try {
        act();
    } catch (const std::system_error& error) {
        refuse(error.code().value());
    }
}

/// Errors are ignored: the user may lack the right to set the owner, and saving the content matters more.
void FileWriter::keepOwnership() const
{
    const int file = file_->descriptor();
    struct stat status {};
    if (::stat(place_.c_str(), &status) != 0)
        return;
    constexpr auto sameOwner = static_cast<uid_t>(-1);
    const bool isGiven =
        ::fchown(file, status.st_uid, status.st_gid) == 0 || ::fchown(file, sameOwner, status.st_gid) == 0;
    // Without the old group, its permissions must not go to another one.
    constexpr mode_t withoutGroup = 0707;
    constexpr mode_t all = 0777;
    static_cast<void>(::fchmod(file, status.st_mode & (isGiven ? all : withoutGroup)));
}

void FileWriter::write(std::string_view text, std::size_t at)
{
    const int file = file_->descriptor();
    if (!file_->hasName())
        refuse(ENOENT);
    const std::string before = tailOf(file, at);
    const int error = writeAll(file, text, at);
    if (error == 0)
        return;
    static_cast<void>(writeAll(file, before, at));
    [[maybe_unused]] const int cut = ::ftruncate(file, static_cast<off_t>(at + before.size()));
    refuse(error);
}

void FileWriter::commit()
{
    const OpenFolder folder(folderOf(place_));
    for (const int error : {folder.error(), synchronized(file_->descriptor())})
        if (error != 0)
            refuse(error);
    attempt([this] { file_->moveTo(place_); });
    if (const int error = folder.synchronize())
        throw InputError(name_ + ": is written, but the disk has not confirmed it: " + reasonOf(error));
}

void FileWriter::refuse(int error) const
{
    throw InputError(name_ + ": cannot be saved: " + reasonOf(error));
}

void writeWhole(const std::string& name, std::string_view content, Readers readers)
{
    FileWriter file(name, readers);
    file.write(content, 0);
    file.commit();
}

void createFolder(const fs::path& folder)
{
    std::error_code error;
    fs::create_directories(folder, error);
    if (error)
        throw InputError(folder.string() + ": cannot be created: " + error.message());
}

bool isRecordingFile(const std::string& name)
{
    constexpr std::array signature{'\x89', 'H', 'D', 'F', '\r', '\n', '\x1a', '\n'};
    std::error_code unknown;
    if (!fs::is_regular_file(name, unknown))
        return false;
    std::array<char, signature.size()> beginning{};
    std::ifstream content(name, std::ios::binary);
    return content.read(beginning.data(), beginning.size()) && beginning == signature;
}

std::string wholePath(const std::string& name)
{
    std::error_code unknown;
    const fs::path whole = fs::absolute(name, unknown);
    return unknown ? name : whole.string();
}

bool isSameFile(const std::string& name, const std::string& other)
{
    std::error_code error;
    const auto whole = [&](const std::string& file) {
        return fs::weakly_canonical(fs::absolute(placeOf(file), error), error);
    };
    return fs::equivalent(name, other, error) || whole(name) == whole(other);
}

void refuseSame(const std::string& file, const std::string& own, const char* use)
{
    if (!own.empty() && isSameFile(file, own))
        throw InputError(file + ": is " + use);
}

} // namespace ko

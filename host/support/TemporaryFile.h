#pragma once

#include <filesystem>
#include <sys/types.h>

namespace ko {

/// A file that is written under a temporary name, and gets its own when it is complete. A lock says that a program
/// still writes it. Every failure is a `std::system_error`.
class TemporaryFile {
public:
    /// Creates a file in the folder, with these permissions less those that the process masks. Removes the temporary
    /// files that programs which were killed have left there.
    TemporaryFile(const std::filesystem::path& folder, mode_t permissions);
    /// Closes the file, and removes it unless `moveTo` has been called.
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    [[nodiscard]] int descriptor() const { return file_; }
    /// False after the file has been removed or replaced.
    [[nodiscard]] bool hasName() const;
    /// The temporary path; empty after `moveTo`.
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

    /// Gives the file this path in the same file system, in place of another file there.
    void moveTo(const std::filesystem::path& place);

private:
    bool create(const std::filesystem::path& path, mode_t permissions);

    int file_ = -1;
    std::filesystem::path path_;
};

/// Returns whether some program has the file open as a `TemporaryFile`, whatever its name is now.
bool isLocked(const std::filesystem::path& file);

/// Returns the folder of a file, "." for a name without one.
std::filesystem::path folderOf(const std::filesystem::path& file);

/// Returns when the open file, or the names in the open folder, are on the disk: 0, or an error number. File systems
/// that cannot say so count as done.
int synchronized(int file);

} // namespace ko

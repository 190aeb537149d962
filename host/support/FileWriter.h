#pragma once

#include "host/support/TemporaryFile.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace ko {

/// Who may read a file that is written: those who could read the file that it replaces, or the user alone.
enum class Readers { AsBefore, OwnerOnly };

/// Writes a file whole or not at all. The content is written to a temporary file in the same folder, which replaces the
/// file once it is complete and synchronized to disk. A failure before that leaves an existing file unchanged and
/// removes the temporary one. A symbolic link is kept; its target is written. Every failure is an `InputError` that
/// names the file and the reason.
class FileWriter {
public:
    /// `name` is a byte string as the system uses it. Fails if it names a recording, or something other than a regular
    /// file, such as a device (which would be replaced by a file), and if the file or its folder is not writable.
    explicit FileWriter(const std::string& name, Readers readers = Readers::AsBefore);
    /// Removes the temporary file unless `commit` has been called.
    ~FileWriter();
    FileWriter(const FileWriter&) = delete;
    FileWriter& operator=(const FileWriter&) = delete;

    /// Writes `text` at byte offset `at`, overwriting and extending the content. A failure leaves the content
    /// unchanged. Fails after `commit` if the file has been removed or replaced.
    void write(std::string_view text, std::size_t at);

    /// Replaces the file with the temporary one. Later writes go directly to the file. If only the disk does not
    /// confirm the new name, the file has been replaced, and the `InputError` says so.
    void commit();

private:
    [[noreturn]] void refuse(int error) const;
    template <class Act> void attempt(const Act& act) const;
    void keepOwnership() const;

    std::string name_;
    std::filesystem::path place_; ///< of the file itself, with links resolved
    std::optional<TemporaryFile> file_;
};

/// Writes a file with this content by `FileWriter`.
void writeWhole(const std::string& name, std::string_view content, Readers readers = Readers::AsBefore);

/// Creates the folder, and those that it is in, if they do not exist. Throws an `InputError` with the reason.
void createFolder(const std::filesystem::path& folder);

/// Returns whether the file begins as a recording does, as any HDF5 file. False for a file that cannot be read.
bool isRecordingFile(const std::string& name);

/// Returns the absolute path of a file; the name itself if it is empty or the program's working folder has gone.
std::string wholePath(const std::string& name);

/// Returns true if both names lead to the same file, even if it does not exist yet.
bool isSameFile(const std::string& name, const std::string& other);

/// Throws an `InputError` if the file is `own`, which the program uses as what `use` says. An empty `own` is no file.
void refuseSame(const std::string& file, const std::string& own, const char* use);

} // namespace ko

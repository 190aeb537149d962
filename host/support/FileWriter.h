#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace ko {

/// Writes a file whole or not at all. The content is written to a temporary file in the same folder, which replaces the
/// file once it is complete and synchronized to disk. A failure before that leaves an existing file unchanged and
/// removes the temporary one. A symbolic link is kept; its target is written. Every failure is an `InputError` that
/// names the file and the reason.
class FileWriter {
public:
    /// `name` is a byte string as the system uses it. Fails if it names something other than a regular file, such as a
    /// device (which would be replaced by a file), and if the file or its folder is not writable.
    explicit FileWriter(const std::string& name);
    /// Removes the temporary file unless `commit` has been called.
    ~FileWriter();
    FileWriter(const FileWriter&) = delete;
    FileWriter& operator=(const FileWriter&) = delete;

    /// Writes `text` at byte offset `at`, overwriting and extending the content. A failure leaves the content
    /// unchanged.
    void write(std::string_view text, std::size_t at);

    /// Replaces the file with the temporary one. Later writes go directly to the file.
    void commit();

private:
    [[noreturn]] void refuse(int error) const;
    void create();
    void keepOwnership() const;

    std::string name_;
    std::filesystem::path place_;     ///< of the file itself, with links resolved
    std::filesystem::path temporary_; ///< empty after the commit
    int file_ = -1;
};

/// Writes a file with this content by `FileWriter`.
void writeWhole(const std::string& name, std::string_view content);

/// Returns true if both names lead to the same file, even if it does not exist yet.
bool isSameFile(const std::string& name, const std::string& other);

} // namespace ko

#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace ko {

/// Writes a file of the program's. The content is written beside it under another name and put in its place when it is
/// whole and on the disk: whatever goes wrong before, a file that was there stays as it was, and nothing is left over.
/// A symbolic link stays one; the file that it names is written. Every failure is an `InputError` that names the file
/// and the reason.
class FileWriter {
public:
    /// `name` is taken as the system's bytes. Fails for what is no file, such as a device, which would be replaced by a
    /// file, and for a file or a folder that must not be written.
    explicit FileWriter(const std::string& name);
    /// What was not committed is dropped.
    ~FileWriter();
    FileWriter(const FileWriter&) = delete;
    FileWriter& operator=(const FileWriter&) = delete;

    /// Writes `text` from this byte on, over what is there and past its end. A failure leaves the content as it was.
    void write(std::string_view text, std::size_t at);

    /// Puts the file in its place. What is written after it goes there at once.
    void commit();

private:
    [[noreturn]] void refuse(int error) const;
    void create();
    void keepOwnership() const;

    std::string name_;
    std::filesystem::path place_;     ///< of the file itself, not of a link to it
    std::filesystem::path temporary_; ///< empty after the commit
    int file_ = -1;
};

/// Writes a whole file in this way.
void writeWhole(const std::string& name, std::string_view content);

/// Whether writing to one of the two would change the other; also where neither exists yet.
bool isSameFile(const std::string& name, const std::string& other);

} // namespace ko

#pragma once

#include <QDateTime>
#include <QLockFile>
#include <memory>
#include <string>
#include <vector>

namespace ko {

/// A file that keeps unsaved work, locked against other running programs while this object exists.
class UnsavedCopy {
public:
    /// A new name in the folder, which is created if it does not exist. Throws an `InputError` if it cannot be locked.
    static UnsavedCopy create(const std::string& folder);
    /// Returns the existing copies that no running program has, the latest first. A copy whose program runs on another
    /// machine that shares the folder is left alone.
    static std::vector<UnsavedCopy> abandoned(const std::string& folder);

    /// Locks the file anew, in its folder, if lock or folder have been removed. Returns false if another program has it
    /// now, or the folder cannot be written; throws an `InputError` if it cannot be created.
    [[nodiscard]] bool keepLocked();
    [[nodiscard]] const std::string& file() const { return file_; }
    [[nodiscard]] QDateTime time() const;
    /// Removes the file. Throws an `InputError` if that fails.
    void remove() const;
    /// Renames the file, so that it is not found again; returns its new path, or the old one if that fails.
    [[nodiscard]] std::string setAside() const;

private:
    explicit UnsavedCopy(std::string file);
    void lock();

    std::string file_;
    std::unique_ptr<QLockFile> lock_; ///< null if another program has the lock
};

} // namespace ko

#pragma once

#include <QByteArray>
#include <QStringList>
#include <functional>
#include <string>

namespace ko {

/// The state that a frame window keeps between runs, in a file shared with other windows.
class FrameMemory {
public:
    struct Content {
        QStringList recentFiles;
        QByteArray geometry, docks; ///< in the toolkit's encoding
    };

    /// If `file` is empty, nothing is kept. A missing or malformed file counts as empty, and
    /// so does, after a complaint on standard error, one that cannot be read.
    explicit FrameMemory(std::string file = {});

    [[nodiscard]] const Content& content() const { return content_; }
    /// Reads the file again, changes its content and writes it. If that fails, the file is unchanged and the reason is
    /// printed on standard error.
    void change(const std::function<void(Content&)>& change);

    /// Returns the folder of the file; empty if nothing is kept.
    [[nodiscard]] std::string folder() const;
    /// Throws an `InputError` if this is the file, which would be overwritten later.
    void refuseOwn(const std::string& file) const;
    /// Returns the path of the user's file.
    static std::string usersFile();
    /// Throws an `InputError` if this is the user's file.
    static void refuseUsers(const std::string& file);

private:
    std::string file_;
    Content content_;
};

} // namespace ko

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

    /// If `file` is empty, nothing is kept. A file that is missing, malformed or, after a complaint on standard error,
    /// cannot be read leaves the content as it is, at first empty.
    explicit FrameMemory(std::string file = {});

    [[nodiscard]] const Content& content() const { return content_; }
    /// Reads the file again, changes its content and writes it. If that fails, only the content here is changed, and
    /// the reason is printed on standard error.
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
    bool refresh();

    std::string file_;
    Content content_;
};

} // namespace ko

#pragma once

#include <QByteArray>
#include <QStringList>
#include <functional>
#include <string>

namespace ko {

/// What a frame window keeps from one run to the next, in a file that other windows use, too.
class FrameMemory {
public:
    struct Content {
        QStringList recentFiles;
        QByteArray geometry, docks; ///< as the toolkit gives them
    };

    /// Without a file everything is forgotten at the end. A file that is missing or cannot be understood is an empty
    /// one.
    explicit FrameMemory(std::string file = {});

    [[nodiscard]] const Content& content() const { return content_; }
    /// Changes what is in the file now and writes it. A file that cannot be written stays as it was; the reason is
    /// printed on standard error.
    void change(const std::function<void(Content&)>& change);

    /// The file of the program's user.
    static std::string usersFile();

private:
    std::string file_;
    Content content_;
};

} // namespace ko

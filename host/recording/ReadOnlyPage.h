#pragma once

#include <functional>

namespace ko {

/// Keeps a page read-only during a recording. Both switches write settings to the instruments, so that it begins before
/// they are armed and ends after they have stopped.
class ReadOnlyPage {
public:
    /// `set` switches the page; it is not called if the page `isReadOnly` already.
    ReadOnlyPage(std::function<void(bool)> set, bool isReadOnly) : set_(std::move(set)), isMine_(!isReadOnly)
    {
        if (isMine_)
            set_(true);
    }
    ~ReadOnlyPage()
    {
        if (isMine_)
            set_(false);
    }
    ReadOnlyPage(const ReadOnlyPage&) = delete;
    ReadOnlyPage& operator=(const ReadOnlyPage&) = delete;

private:
    std::function<void(bool)> set_;
    bool isMine_;
};

} // namespace ko

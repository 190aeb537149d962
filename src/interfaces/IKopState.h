#pragma once

namespace ko {

/// Queries whether the user may leave the page. All calls are made on the user-interface thread; none throws.
class IKopState {
public:
    /// Sets `allowed` to true when the focused entry field holds an acceptable value or no entry field has the focus.
    /// Otherwise sets it to false, after a message to the user that says why.
    virtual void OKToLeave(bool& allowed) = 0;

    /// Does nothing: the page does not depend on recorded files.
    virtual void RecordedFilesHaveChanged() = 0;

protected:
    ~IKopState() = default;
};

} // namespace ko

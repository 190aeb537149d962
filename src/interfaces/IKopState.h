#pragma once

namespace ko {

/// May the user leave the page? All calls on the user-interface thread; none ever throws.
class IKopState {
public:
    /// Sets `allowed` to true when the focused entry field holds an acceptable value or none has the focus; when it
    /// sets false, the user has been told why.
    virtual void OKToLeave(bool& allowed) = 0;

    /// Does nothing: the page does not depend on recorded files.
    virtual void RecordedFilesHaveChanged() = 0;

protected:
    ~IKopState() = default;
};

} // namespace ko

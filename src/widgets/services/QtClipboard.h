#pragma once

#include "platform/Services.h"

namespace ko {

/// The desktop's clipboard; its text is empty while it contains something else.
class QtClipboard : public Clipboard {
public:
    void clear() override;
    void setText(const std::string& text) override;
    std::string text() override;
    /// If set, used in place of the desktop's clipboard.
    Clipboard* standIn = nullptr;
};

} // namespace ko

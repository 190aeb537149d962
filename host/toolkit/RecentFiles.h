#pragma once

#include "host/toolkit/FrameMemory.h"

namespace ko {

/// The recently opened or saved set-up files as absolute paths without duplicates, the latest first.
class RecentFiles {
public:
    static constexpr int most = 8;

    /// `memory` outlives the list.
    explicit RecentFiles(FrameMemory& memory) : memory_(memory) {}

    [[nodiscard]] QStringList files() const;
    void add(const QString& file);
    void remove(const QString& file);
    void clear();

    /// Called after the list may have changed.
    std::function<void()> changed;

private:
    void change(const std::function<void(FrameMemory::Content&)>& change);

    FrameMemory& memory_;
};

} // namespace ko

#pragma once

#include "host/window/FrameMemory.h"

namespace ko {

/// The set-up files that were opened or saved last, the latest first, each once and by its absolute path.
class RecentFiles {
public:
    static constexpr int most = 8;

    /// `memory` outlives the list.
    explicit RecentFiles(FrameMemory& memory) : memory_(memory) {}

    [[nodiscard]] QStringList files() const;
    void add(const QString& file);
    void remove(const QString& file);
    void clear();

private:
    FrameMemory& memory_;
};

} // namespace ko

#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace ko {

/// What the check of a driver module has found, a line each.
struct ModuleReport {
    std::vector<std::string> findings; ///< device, call, what is wrong
    std::vector<std::string> notes;    ///< what was not checked
    std::int64_t calls = 0;            ///< that were made
};

} // namespace ko

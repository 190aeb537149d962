#pragma once

#include "faults/Bench.h"

#include <ostream>

namespace ko::test {

/// What a host and its user do, always the same.
struct Script {
    const char* name;
    void (*play)(Bench&);

    friend std::ostream& operator<<(std::ostream& out, const Script& script) { return out << script.name; }
};

/// Scripts that together use every handler and host member.
extern const Script scripts[8];

} // namespace ko::test

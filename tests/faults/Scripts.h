#pragma once

#include "faults/Bench.h"

#include <ostream>

namespace ko::test {

/// A fixed sequence of actions of a host and its user.
struct Script {
    const char* name;
    void (*play)(Bench&);

    friend std::ostream& operator<<(std::ostream& out, const Script& script) { return out << script.name; }
};

/// Scripts that together use every handler and host member.
extern const Script scripts[8];

} // namespace ko::test

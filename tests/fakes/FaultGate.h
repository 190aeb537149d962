#pragma once

#include "platform/Failure.h"

#include <functional>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>

namespace ko::test {

/// Passes every call from the component to its host: counts the calls and fails those numbered `first` to `last`.
struct FaultGate {
    long calls = 0; ///< numbered from 1
    long first = 0, last = -1;
    long failed = 0;
    std::string firstFailed;        ///< "number: name"
    long nested = 0;                ///< number of the call that runs `act`
    std::function<void()> act = {}; ///< what the host does inside that call

    void pass(const char* call)
    {
        ++calls;
        if (calls == nested && act)
            std::exchange(act, {})();
        if (calls < first || calls > last)
            return;
        const std::string name = std::to_string(calls) + ": " + call;
        if (++failed == 1)
            firstFailed = name;
        // Every kind of exception that a host may throw.
        switch (calls % 4) {
        case 0: throw std::bad_alloc();
        case 1: throw Failure(1000, "call " + name);
        case 2: throw std::runtime_error("call " + name);
        default: throw calls;
        }
    }
};

} // namespace ko::test

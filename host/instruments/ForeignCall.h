#pragma once

#include "platform/Failure.h"

namespace ko {

/// Runs code that may be a driver module's; whatever it throws reaches the caller as a `Failure`.
template <class Act> auto foreignCall(const Act& act)
{
    try {
        return act();
    } catch (const Failure&) {
        throw;
    } catch (const std::exception& error) {
        throw Failure(failure::unspecified, error.what());
    } catch (...) {
        throw Failure(failure::unspecified, "unknown exception");
    }
}

} // namespace ko

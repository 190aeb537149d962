#pragma once

#include "platform/Failure.h"

namespace ko::test {

/// Returns the number of the failure that the call throws, or 0 if it succeeds.
template <class Call> std::int32_t failureOf(const Call& call)
{
    try {
        static_cast<void>(call());
    } catch (const Failure& failure) {
        return failure.number();
    }
    return 0;
}

/// Returns what the exception of this type says that the call throws, or "" if it succeeds.
template <class Error = Failure, class Call> std::string thrownBy(const Call& call)
{
    try {
        static_cast<void>(call());
    } catch (const Error& error) {
        return error.what();
    }
    return {};
}

} // namespace ko::test

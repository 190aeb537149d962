#pragma once

#include "platform/Failure.h"

#include <libsigrok/libsigrok.h>
#include <string>

namespace ko::sigrok {

/// Makes libsigrok pass its errors to `lastError` instead of printing them.
void collectErrors();

/// The last error that libsigrok has logged on this thread since `forgetErrors`; empty: none.
const std::string& lastError();
void forgetErrors();

/// Fails with the text of an error code, what was being done, and what libsigrok has logged about it.
[[noreturn]] void failWith(int code, const std::string& doing);

/// Calls libsigrok. Fails with a `Failure` if it returns an error.
template <class Call> void attempt(const std::string& doing, const Call& call)
{
    forgetErrors();
    const int code = call();
    if (code != SR_OK)
        failWith(code, doing);
}

} // namespace ko::sigrok

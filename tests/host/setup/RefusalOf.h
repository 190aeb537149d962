#pragma once

#include "fakes/Thrown.h"
#include "host/setup/SetupFile.h"
#include "host/support/InputError.h"

namespace ko::test {

/// Returns the message that refuses a set-up's text; "" if it is accepted.
inline std::string refusalOf(const std::string& text)
{
    return thrownBy<InputError>([&] { parseSetup(text, "bench.json"); });
}

} // namespace ko::test

#pragma once

#include "host/setup/SetupFile.h"
#include "host/support/InputError.h"

#include <string>

namespace ko::test {

/// Returns the message that refuses a set-up's text; "" if it is accepted.
inline std::string refusalOf(const std::string& text)
{
    try {
        parseSetup(text, "bench.json");
        return {};
    } catch (const InputError& error) {
        return error.what();
    }
}

} // namespace ko::test

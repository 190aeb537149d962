#pragma once

#include "host/modules/ModuleCheck.h"
#include "host/modules/ScriptedModule.h"

#include <gtest/gtest.h>

namespace ko::test {

inline ModuleReport checked(const SharedScript& script,
                            std::chrono::milliseconds patience = ModuleCheckOptions{}.patience)
{
    ScriptedModule module(script);
    return checkModule(module,
                       {.patience = patience, .run = std::chrono::milliseconds(20), .beforeCall = {}, .found = {}});
}

inline std::string findingsOf(const ModuleReport& report)
{
    std::string all;
    for (const std::string& finding : report.findings)
        all += finding + "\n";
    for (const std::string& note : report.notes)
        all += "note: " + note + "\n";
    return all;
}

/// A checksum of texts that are too many to be kept.
inline std::uint32_t sumOf(const std::string& text)
{
    std::uint32_t sum = 0;
    for (const char letter : text)
        sum = sum * 31 + static_cast<unsigned char>(letter);
    return sum;
}

} // namespace ko::test

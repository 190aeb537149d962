#pragma once

#include "fakes/SectionTest.h"
#include "triggering/Triggering.h"

namespace ko::test {

/// "013": the lines of a mask.
inline std::string shown(const LineMask& lines)
{
    std::string text;
    for (std::size_t i = 0; i < lines.size(); ++i)
        if (lines[i])
            text += std::to_string(i);
    return text;
}

} // namespace ko::test

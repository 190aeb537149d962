#pragma once

#include "fakes/SectionTest.h"
#include "triggering/Triggering.h"

namespace ko::test {

/// Returns the lines of a mask, such as "013".
inline std::string shown(const LineMask& lines)
{
    std::string text;
    for (std::size_t i = 0; i < lines.size(); ++i)
        if (lines[i])
            text += std::to_string(i);
    return text;
}

} // namespace ko::test

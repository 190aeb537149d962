#pragma once

#include "fakes/SectionTest.h"
#include "triggering/AdvancedTrig.h"
#include "triggering/TriggerLineChoice.h"
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

/// The page's choice of trigger lines and its dialog.
class LineChoice : public SectionTest {
protected:
    Triggering triggering{support};
    AdvancedTrig dialog{support};
    TriggerLineChoice choice{page, support, *this, triggering, [this]() -> AdvancedTrig& { return dialog; }};

    void survey()
    {
        const TriggerMasters masters = triggering.findTriggerMasters(page.currentDrivers());
        page.dynamicDriverIndex = masters.start;
        page.staticDriverIndex = masters.scan;
        choice.build(masters);
        marks = 0;
    }
    /// What the user does in the dialog.
    void inDialog(const std::function<void()>& actions)
    {
        host.inModalForm = [&](Form&) { actions(); };
        EXPECT_EQ(page.mnuTimebaseTriggerLines.userClicked(), Outcome::Done);
    }
};

} // namespace ko::test

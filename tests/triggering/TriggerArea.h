#pragma once

#include "fakes/SectionTest.h"
#include "triggering/SelectChannel.h"
#include "triggering/TriggerChannel.h"

namespace ko::test {

/// The page's trigger area with a driver that has two channels.
class TriggerArea : public SectionTest {
protected:
    SelectChannel dialog{support};
    TriggerChannel area{page, support, *this, [this]() -> SelectChannel& { return dialog; }};
    Grid& grid = page.grdParam;
    FakeDriver& driver = addDriver();

    TriggerArea()
    {
        driver.name = "Digitizer";
        driver.groups = {{"Inputs", {{.address = "0:3:1"}, {.name = "Crank"}}}};
        page.dynamicDriverIndex = 0;
        page.hasDynamicDrivers = true;
        page.frmStart.setVisible(true);
    }
    /// Switches triggering on with the second channel stored.
    void switchOn()
    {
        page.TriggerSlot = 0;
        page.TriggerChannel = 1;
        area.enableTriggering(true);
        driver.writes.clear();
    }
    Texts values()
    {
        Texts texts;
        for (std::int32_t row = 1; row <= grid.rowCount(); ++row)
            texts.push_back(grid.cell(row, 1).value);
        return texts;
    }
};

} // namespace ko::test

#include "document/TimebaseEditor.h"
#include "interfaces/Timebase.h"
#include "page/Quantities.h"
#include "schedule/DiskSpace.h"
#include "support/Steps.h"
#include "timebase/Readings.h"

#include <cmath>

namespace ko {

void TimebaseEditor::initializeDocument()
{
    const Steps step(support_.errors, "initializeDocument");
    page_.dynamicDriverIndex = -1;
    page_.staticDriverIndex = -1;
    page_.scannedDriverIndex = -1;
    page_.isDurationKnown = false;
    schedule_.estimate().clear();
    schedule_.whatFits().withdraw();
    initializeTriggering();
    page_.frmDynamic.setVisible(page_.hasDynamicDrivers);
    page_.frmStatic.setVisible(page_.hasStaticDrivers);
    offerButtons_.follow();
    if (page_.frmDynamic.visible())
        loadDynamicEditors(step);
    if (page_.frmStatic.visible())
        loadStaticEditors(step);
    triggerChannel_.followStartMaster();
    schedule_.loadStartStop(step);
    followReadOnly(step);
    const std::int32_t code = updateDiskSpace();
    readOtherDrivers(page_, step);
    offerButtons_.follow();
    schedule_.plan().show();
    if (code != diskSpace::fits && !step.isSuperseded())
        tellWhatFits({.code = code});
    if (!step.isSuperseded())
        page_.driverChangesPending = false;
}

/// Determines the start and the scan master and the lines on which they drive the other drivers.
void TimebaseEditor::initializeTriggering()
{
    triggerChannel_.beginBuild();
    const TriggerMasters masters = triggering_.findTriggerMasters(page_.currentDrivers());
    page_.dynamicDriverIndex = masters.start;
    page_.staticDriverIndex = page_.scannedDriverIndex = masters.scan;
    if (page_.dynamicDriverIndex >= 0) {
        // The options still show the previous list; loading them switches triggering on.
        enableTriggering(false);
    } else {
        disableTriggering(true);
    }
    triggerLines_.build(masters);
}

std::int32_t TimebaseEditor::firstDriver(const Steps& step, bool dynamic) const
{
    const Drivers drivers = page_.currentDrivers();
    for (std::size_t i = 0; i < drivers.size(); ++i)
        if (drivers[i] && step.value([&] { return isDynamicDriver(*drivers[i]) == dynamic; }))
            return static_cast<std::int32_t>(i);
    return -1;
}

void TimebaseEditor::loadDynamicEditors(const Steps& step)
{
    if (page_.dynamicDriverIndex < 0)
        page_.dynamicDriverIndex = firstDriver(step, true);
    std::optional<double> samplePeriod;
    std::optional<double> blockSize;
    if (Timebase* timebase = step.value([&] { return page_.timebaseAt(page_.dynamicDriverIndex); })) {
        step([&] { samplePeriod = timebase->SamplePeriod(); });
        step([&] { blockSize = timebase->BlockSize(); });
    }
    dynamicEditors_.initBlockSizeEditors(blockSize);
    dynamicEditors_.initSampleRateEditors(samplePeriod);
}

void TimebaseEditor::loadStaticEditors(const Steps& step)
{
    if (page_.staticDriverIndex < 0)
        page_.staticDriverIndex = firstDriver(step, false);
    std::optional<double> scanPeriod;
    page_.scannedDriverIndex = page_.staticDriverIndex;
    const IndexedTimebase at = step.value([&] { return shownTimebase(page_, timebaseNumber::scanPeriod); });
    if (at) {
        // A dynamic driver has the scan period of all drivers, but no scans.
        if (at.driver != page_.staticDriverIndex && !countsAsDynamic(*page_.driverAt(at.driver)))
            page_.scannedDriverIndex = at.driver;
        step([&] { scanPeriod = at.timebase->ScanPeriod(); });
    }
    staticEditors_.initScanRateEditors(at.driver, scanPeriod);
    if (scanPeriod && page_.isRestored)
        staticEditors_.readLoaded(*scanPeriod);
    else if (scanPeriod && *scanPeriod > 0.0 && std::isfinite(*scanPeriod))
        staticEditors_.pushLoaded(*scanPeriod);
}

void TimebaseEditor::showMode()
{
    page_.setForReading(page_.readOnly);
    page_.lblReadOnly.setVisible(page_.readOnly);
}

void TimebaseEditor::followReadOnly(const Steps& step)
{
    const bool editable = !page_.readOnly;
    showMode();
    for (Frame* frame : {&page_.frmStart, &page_.frmStop, &page_.frmStatic, &page_.frmDynamic})
        frame->setEnabled(editable);
    schedule_.loaded(step);
    for (OptionButton* option : {&page_.optStartTime, &page_.optImmediate, &page_.optAfter})
        option->setEnabled(editable);
}

} // namespace ko

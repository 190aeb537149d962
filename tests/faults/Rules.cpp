#include "faults/Bench.h"

#include "platform/NumberText.h"
#include "triggering/TriggerParameter.h"

#include <cmath>
#include <limits>
#include <numeric>

namespace ko::test {

namespace {

/// Bytes of the recording as the page has to count them.
struct Totals {
    double dynamicBytes = 0.0;
    double staticBytes = 0.0;
};

Totals totalsOf(const Bench& bench)
{
    Totals totals;
    for (const auto& driver : bench.fakes) {
        if (driver->measurementMode == 1 && driver->samplingMode == 1) {
            totals.dynamicBytes += driver->bytes ? driver->bytes(*driver) : driver->dynamicBytes;
            continue;
        }
        double channels = 0.0;
        for (const FakeDriver::Group& group : driver->groups)
            for (const FakeDriver::Channel& channel : group.channels)
                channels += channel.enabled != Value(0) && channel.enabled != Value(false) ? 1.0 : 0.0;
        const double scans = driver->scans ? driver->scans(*driver) : driver->numberOfScans;
        const double bytes = (4.0 * scans + 230.0) * channels + 416.0;
        // A figure beyond 32 bits is left out.
        if (4.0 * scans + 230.0 <= std::numeric_limits<std::int32_t>::max() &&
            bytes <= std::numeric_limits<std::int32_t>::max())
            totals.staticBytes += bytes;
    }
    return totals;
}

class Rules {
public:
    explicit Rules(const Page& page) : page_(page) {}

    Texts always()
    {
        require(!page_.isLoading, "isLoading is down");
        require(!page_.isUpdating, "isUpdating is down");
        require(!page_.isDialogOpen, "no dialog counts as open");
        require(page_.lblReadOnly.visible() == page_.readOnly, "the mode is shown");
        require(page_.lines.line(LineTrigger::start) < 0 ||
                    page_.lines.line(LineTrigger::start) != page_.lines.line(LineTrigger::scan),
                "start and sync line differ");
        pair(page_.cmbSampleRate, page_.cmbSamplePeriod, page_.txtSampleRate, page_.txtSamplePeriod);
        pair(page_.cmbScanRate, page_.cmbScanPeriod, page_.txtScanRate, page_.txtScanPeriod);
        require(!page_.frmDynamic.visible() || page_.cmbBlockSize.visible() != page_.txtBlockSize.visible(),
                "one block size editor is shown");
        if (!isUpToDate())
            return broken_;
        require(page_.optImmediate.value() + page_.optStartTime.value() + page_.optOnTrigger.value() <= 1,
                "one start option is selected, or none while the mode is not known");
        require(page_.optAfter.value() + page_.optStopTime.value() == 1, "one stop option is selected");
        require(page_.optAfter.value() || page_.optStartTime.value(), "only a start at a time has a stop at a time");
        for (const Frame* frame : {&page_.frmStart, &page_.frmStop, &page_.frmStatic, &page_.frmDynamic})
            require(frame->enabled() != page_.readOnly, frame->name() + " follows read-only");
        return broken_;
    }

    Texts shown(const Totals& held)
    {
        if (!isUpToDate())
            return {};
        if (const FakeDriver* driver = timebase(page_.dynamicDriverIndex); driver && page_.frmDynamic.visible())
            dynamic(*driver);
        if (page_.frmStatic.visible() && timebase(page_.staticDriverIndex))
            scanning();
        schedule();
        bytes(held);
        for (std::int32_t row = 1; page_.grdParam.isShown() && row <= page_.grdParam.rowCount(); ++row)
            parameter(row);
        return broken_;
    }

private:
    void require(bool holds, const std::string& rule)
    {
        if (!holds)
            broken_.push_back("not so: " + rule);
    }
    void same(const std::string& what, const std::string& shown, const std::string& held)
    {
        if (shown != held)
            broken_.push_back(what + " shows '" + shown + "', held is '" + held + "'");
    }
    [[nodiscard]] bool isUpToDate() const
    {
        return page_.isShown && page_.numDrivers > 0 && !page_.driverChangesPending;
    }
    [[nodiscard]] const FakeDriver* timebase(std::int32_t index) const
    {
        const auto* driver = dynamic_cast<const FakeDriver*>(page_.driverAt(index));
        return driver && driver->hasTimebase ? driver : nullptr;
    }

    void pair(const ComboBox& rates, const ComboBox& periods, const TextBox& rate, const TextBox& period)
    {
        require(rates.items().size() == periods.items().size(), rates.name() + " and its partner are as long");
        // A frame without drivers is hidden and keeps its contents.
        require(rates.index() == periods.index() || !rates.container()->isShown(),
                rates.name() + " and its partner stand at the same entry");
        require(!rates.container()->visible() ||
                    (rates.visible() == periods.visible() && rate.visible() == period.visible() &&
                     rate.visible() != rates.visible()),
                rates.name() + " or " + rate.name() + " is shown with its partner");
    }

    /// Durations and whole numbers keep the typed text until their box is left, even if the driver keeps another value.
    static bool isBeingTyped(const TextBox& box) { return box.hasFocus() && isNumeric(box.text(), {}); }
    /// A text that is being typed may be an incomplete number.
    void number(const TextBox& box, double held)
    {
        if (box.isShown() && !box.marked() && !(box.hasFocus() && numberOf(box.text()) == text(held)))
            same(box.name(), box.text(), text(held));
    }
    void entry(const ComboBox& box, double held)
    {
        if (!box.isShown())
            return;
        bool hasIt = false;
        for (const ComboBox::Item& item : box.items())
            hasIt = hasIt || item.text == text(held);
        if (hasIt)
            same(box.name(), box.text(), text(held));
    }
    void dynamic(const FakeDriver& driver)
    {
        number(page_.txtSamplePeriod, driver.samplePeriod);
        number(page_.txtSampleRate, 1.0 / driver.samplePeriod);
        entry(page_.cmbSamplePeriod, driver.samplePeriod);
        entry(page_.cmbBlockSize, driver.blockSize);
        const Range range = page_.blockSizeOffers.range;
        if (driver.blockSize >= range.minimum && driver.blockSize <= range.maximum && !isBeingTyped(page_.txtBlockSize))
            number(page_.txtBlockSize, driver.blockSize);
        bool anyDiffers = false;
        for (std::int32_t i = 0; i < page_.numDrivers; ++i)
            if (const FakeDriver* other = timebase(i); other && other->measurementMode == 1 && other->samplingMode == 1)
                anyDiffers = anyDiffers || text(other->samplePeriod) != text(driver.samplePeriod);
        require(page_.cmdSampleRateDiffers.visible() == anyDiffers, "the mark shows whether drivers differ");
        same("span", page_.lblSpanValue.caption(), text(1.0 / driver.samplePeriod / 2.56) + " Hz");
    }

    /// All drivers that keep written values have the same scan period; the page shows the last driver's.
    void scanning()
    {
        const FakeDriver* last = nullptr;
        const FakeDriver* exact = nullptr;
        for (std::int32_t i = 0; i < page_.numDrivers; ++i) {
            const FakeDriver* driver = timebase(i);
            if (!driver)
                continue;
            last = driver;
            constexpr double uneven = 0.123456789;
            if (driver->refuses || driver->keeps(uneven) != uneven)
                continue;
            require(!exact || exact->scanPeriod == driver->scanPeriod, "the drivers share one scan period");
            exact = driver;
        }
        if (!last)
            return;
        scanBox(page_.txtScanPeriod, last->scanPeriod, timebase(page_.staticDriverIndex)->scanPeriod);
        scanBox(page_.txtScanRate, 1.0 / last->scanPeriod, 1.0 / timebase(page_.staticDriverIndex)->scanPeriod);
    }
    /// A refused text is replaced by the value of the static driver.
    void scanBox(const TextBox& box, double held, double afterRefusal)
    {
        if (box.text() != text(afterRefusal))
            number(box, held);
    }

    void schedule()
    {
        const FakeDriver* first = nullptr;
        for (std::int32_t i = 0; i < page_.numDrivers && !first; ++i)
            first = timebase(i);
        if (!first)
            return;
        const std::int32_t shownMode = page_.optImmediate.value()   ? startMode::immediately
                                       : page_.optStartTime.value() ? startMode::atTime
                                       : page_.optOnTrigger.value() ? startMode::onTrigger
                                                                    : -1;
        require(shownMode == first->startMode, "the start option is the driver's start mode");
        require(page_.optStopTime.value() == (first->startMode == 1 && first->stopMode == 1),
                "the stop option is the driver's stop mode");
        if (page_.optAfter.value())
            duration(widen(first->duration));
        if (page_.optStartTime.value())
            same("txtStartTime", page_.txtStartTime.text(), generalDate(first->startTime, {}));
        if (page_.optStopTime.value())
            stopTime(*first);
    }
    /// The figures must match the duration at any time.
    void duration(double seconds)
    {
        const TextBox& box = page_.txtDuration;
        if (!isBeingTyped(box))
            number(box, seconds / page_.cmbInterval.itemData());
        same("the plan", text(page_.figures.plannedSeconds.value_or(seconds)), text(seconds));
    }
    void stopTime(const FakeDriver& driver)
    {
        const DateTime start = toDateTime(page_.txtStartTime.text(), {});
        const DateTime stop = toDateTime(page_.txtStopTime.text(), {});
        if (start.hasDate() != stop.hasDate())
            return;
        const double seconds = dateDiffSeconds(start, stop);
        require(std::abs(seconds - driver.duration) <= 1.0 + seconds * 1e-7, "the stop time is the duration's end");
    }

    /// Bytes that exceed the limit or are not known are not shown, but none that the drivers no longer need.
    void bytes(const Totals& held)
    {
        const Figures& figures = page_.figures;
        require(figures.dynamicBytes.value_or(held.dynamicBytes) == held.dynamicBytes, "the dynamic bytes are shown");
        require(figures.staticBytes.value_or(held.staticBytes) == held.staticBytes, "the static bytes are shown");
    }

    void parameter(std::int32_t row)
    {
        const auto* driver = dynamic_cast<const FakeDriver*>(page_.driverAt(page_.dynamicDriverIndex));
        const std::string id = page_.grdParam.cell(row, Grid::idColumn).value;
        if (!driver || row == page_.grdParam.editedRow())
            return;
        for (const FakeDriver::Parameter& held : driver->parameters)
            if (std::to_string(held.id) == id)
                same("row of " + held.name, page_.grdParam.cell(row, Grid::valueColumn).value,
                     parameterText(held.type, held.value, {}));
    }

    static std::string text(double value) { return numberText(value, {}); }
    static std::string numberOf(const std::string& typed)
    {
        return isNumeric(typed, {}) ? text(toDouble(typed, {})) : typed;
    }

    const Page& page_;
    Texts broken_;
};

} // namespace

Texts brokenAlways(const Page& page)
{
    return Rules(page).always();
}

Texts shownWrongly(const Bench& bench)
{
    return Rules(bench.page()).shown(totalsOf(bench));
}

double totalBytes(const Bench& bench)
{
    const Totals totals = totalsOf(bench);
    return std::max(totals.dynamicBytes, totals.staticBytes);
}

} // namespace ko::test

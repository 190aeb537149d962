#include "timebase/StaticEditors.h"

#include "page/LastAnswer.h"
#include "timebase/QuantityEntry.h"

namespace ko {

namespace {

/// The period of the last driver with a timebase, which the page shows after a write. None when no driver has one.
std::optional<double> lastScanPeriod(const Page& page)
{
    const Drivers drivers = page.currentDrivers();
    for (std::size_t i = drivers.size(); i > 0; --i)
        if (Timebase* timebase = drivers[i - 1] ? drivers[i - 1]->queryTimebase() : nullptr)
            return timebase->ScanPeriod();
    return std::nullopt;
}

/// A box for a number that is written to every driver.
class StaticEntry : public QuantityEntry {
public:
    StaticEntry(Page& page, Support& support, const Quantity& quantity, ValueEditors& editors, StaticEditors& owner)
        : QuantityEntry(page, support, quantity, editors), owner_(owner)
    {
    }

protected:
    bool isActive() override { return page().hasStaticDrivers; }

    std::optional<double> held() override { return lastScanPeriod(page()); }
    /// A refused text is replaced by the current static driver's period.
    std::optional<double> heldAfterRefusal() override { return QuantityEntry::held(); }

    void accept(const Steps& step, double value) override
    {
        const double requested = quantity().held(value);
        auto reads = lastAnswer<double>([&](double held) { return holds(held, value); });
        const auto result = owner_.setDriversScanRate(
            requested, [&](const std::optional<double>& held) { return held && reads(*held); }, &earlier());
        show(step, {result.last, requested, result.written, result.refused});
    }

    void restored(const Steps& step) override { owner_.restored(step); }

private:
    StaticEditors& owner_;
};

} // namespace

StaticEditors::StaticEditors(Page& page, Support& support, Actions& actions)
    : page_(page), support_(support), actions_(actions), periods_(page, support, actions, timebaseNumber::scanPeriod)
{
    forEachQuantityOf(timebaseNumber::scanPeriod, [&](const Quantity& quantity) {
        entries_.push_back(std::make_unique<StaticEntry>(page, support, quantity, periods_, *this));
        ComboBox& list = page.*quantity.list;
        list.click = [this, &list] { choose(list); };
        list.gotFocus = list.lostFocus = [this] { page_.editFlags = editFlag::none; };
    });
}

StaticEditors::~StaticEditors() = default;

void StaticEditors::initScanRateEditors(std::int32_t driver, std::optional<double> scanPeriod)
{
    periods_.build("initScanRateEditors", driver, scanPeriod);
}

WrittenToAll StaticEditors::setDriversScanRate(double newScanPeriod,
                                               const std::function<bool(const std::optional<double>&)>& holds,
                                               EarlierValues<NumberSetting>* earlier)
{
    const Steps step(support_.errors, "setDriversScanRate");
    const auto notify = [&] { step([&] { actions_.markChanged(); }); };
    if (!holds)
        notify();
    return writeToAll(
        step, page_, support_, actions_, {&timebaseNumber::scanPeriod, newScanPeriod}, holds,
        [&] {
            if (holds)
                notify();
        },
        earlier);
}

void StaticEditors::restored(const Steps& step)
{
    step([&] { actions_.markChanged(); });
    actions_.refreshRestored();
}

/// Both lists select the period that the drivers then hold, or else stay on the chosen entry, even after a refusal.
void StaticEditors::choose(const ComboBox& chosen)
{
    if (page_.isLoading || !page_.hasStaticDrivers)
        return;
    const std::string procedure = chosen.name() + "_Click";
    const Steps step(support_.errors, procedure);
    const auto period = step.value([&] { return std::optional(periods_.valueAt(chosen.index())); });
    const WrittenToAll result = period ? setDriversScanRate(*period) : WrittenToAll{};
    if (step.isSuperseded())
        return;
    if (result.written && !result.refused)
        periods_.selectValue(result.last, chosen.index());
    else
        periods_.keep(chosen.index());
    if (!result.last)
        periods_.markUnknown();
}

void StaticEditors::setAll(const Steps& step, double seconds)
{
    const WrittenToAll result =
        setDriversScanRate(seconds, [seconds](const std::optional<double>& held) { return held == seconds; });
    if (!step.isSuperseded())
        periods_.showInForce(step, result.last);
}

void StaticEditors::follow(const Steps& step)
{
    if (periods_.isUnknown())
        periods_.follow(step, step.value([&] { return lastScanPeriod(page_); }));
}

void StaticEditors::pushLoaded(double seconds)
{
    showLoaded(Steps(support_.errors, "initScanRateEditors"), seconds, setDriversScanRate(seconds).last);
}

void StaticEditors::readLoaded(double seconds)
{
    const Steps step(support_.errors, "initScanRateEditors");
    std::optional<double> last;
    forEachTimebase(step, page_.currentDrivers(), [&](const IndexedTimebase& at) {
        last = NumberSetting{&timebaseNumber::scanPeriod, seconds}.read(step, *at.timebase).value;
        page_.scanPeriodOffers.noteRead(at.driver, last);
    });
    showLoaded(step, seconds, last);
}

void StaticEditors::showLoaded(const Steps& step, double seconds, const std::optional<double>& last)
{
    if (!last || *last == seconds)
        return;
    if (periods_.values().empty())
        periods_.showInBoxes(step, *last, nullptr);
    else
        periods_.selectValue(*last, -1);
}

} // namespace ko

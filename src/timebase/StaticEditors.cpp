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
        show(step, {result.inForce, requested, result.written, result.rejected});
    }

    void restored(const Steps& step) override { owner_.restored(step); }

private:
    StaticEditors& owner_;
};

} // namespace

StaticEditors::StaticEditors(Page& page, Support& support, Actions& actions)
    : page_(page), support_(support), actions_(actions), periods_(page, support, timebaseNumber::scanPeriod)
{
    forEachQuantityOf(timebaseNumber::scanPeriod, [&](const Quantity& quantity) {
        entries_.push_back(std::make_unique<StaticEntry>(page, support, quantity, periods_, *this));
        ComboBox& list = page.*quantity.list;
        list.click = [this, &list] { choose(list); };
        list.gotFocus = list.lostFocus = [this] { page_.editFlags = editFlag::none; };
    });
}

StaticEditors::~StaticEditors() = default;

void StaticEditors::initScanRateEditors(std::optional<double> scanPeriod)
{
    periods_.build("initScanRateEditors", scanPeriod);
}

StaticEditors::ScanPeriod
StaticEditors::setDriversScanRate(double newScanPeriod, const std::function<bool(const std::optional<double>&)>& holds,
                                  EarlierValues<NumberSetting>* earlier)
{
    const Steps step(support_.errors, "setDriversScanRate");
    const auto notify = [&] { step([&] { actions_.markChanged(); }); };
    OfferAccount& offers = page_.scanPeriodOffers;
    offers.keptOtherwise.clear();
    const Drivers drivers = page_.currentDrivers();
    const NumberSetting wanted{&timebaseNumber::scanPeriod, newScanPeriod};
    GuardedWrite<NumberSetting> guarded(page_, support_, actions_, wanted, drivers.size(), earlier);
    if (!holds)
        notify();
    ScanPeriod result;
    forEachTimebase(step, drivers, [&](IndexedTimebase at) {
        const auto& it = guarded.write(
            step, at,
            [&](const NumberSetting& before) { return holds && holds(before.value) ? NumberSetting{} : wanted; },
            [&] {
                if (holds)
                    notify();
            });
        result.inForce = it.kept.value;
        if (it.tried)
            offers.noteWritten(at.driver, newScanPeriod, it.kept.value);
    });
    result.written = guarded.anyWritten();
    if (holds && !guarded.anyTried())
        return result;
    if (!guarded.fits(step, [&] { noteRestored(guarded); })) {
        result.rejected = true;
        result.inForce = guarded.drivers().empty() ? std::nullopt : guarded.drivers().back().kept.value;
    }
    return result;
}

void StaticEditors::restored(const Steps& step)
{
    page_.scanPeriodOffers.keptOtherwise.clear();
    step([&] { actions_.markChanged(); });
    actions_.refreshEstimate();
}

void StaticEditors::noteRestored(const GuardedWrite<NumberSetting>& guarded)
{
    OfferAccount& offers = page_.scanPeriodOffers;
    offers.keptOtherwise.clear();
    for (const auto& it : guarded.drivers())
        if (it.tried && it.before.value)
            offers.noteWritten(it.at.driver, *it.before.value, it.kept.value);
}

/// Both lists select the period that the drivers then hold, or else stay on the chosen entry, even after a refusal.
void StaticEditors::choose(const ComboBox& chosen)
{
    if (page_.isLoading || !page_.hasStaticDrivers)
        return;
    const std::string procedure = chosen.name() + "_Click";
    const Steps step(support_.errors, procedure);
    const auto period = step.value([&] { return std::optional(periods_.valueAt(chosen.index())); });
    const ScanPeriod result = period ? setDriversScanRate(*period) : ScanPeriod{};
    if (step.isSuperseded())
        return;
    if (result.written && !result.rejected)
        periods_.selectValue(result.inForce, chosen.index());
    else
        periods_.select(chosen.index());
    if (!result.inForce)
        periods_.markUnknown();
}

void StaticEditors::follow(const Steps& step)
{
    if (periods_.isUnknown())
        periods_.follow(step, step.value([&] { return lastScanPeriod(page_); }));
}

void StaticEditors::pushLoaded(double seconds)
{
    const Steps step(support_.errors, "initScanRateEditors");
    const ScanPeriod result = setDriversScanRate(seconds);
    if (!result.inForce || *result.inForce == seconds)
        return;
    if (periods_.values().empty())
        periods_.showInBoxes(step, *result.inForce, nullptr);
    else
        periods_.selectValue(*result.inForce, -1);
}

} // namespace ko

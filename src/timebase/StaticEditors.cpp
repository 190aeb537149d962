#include "timebase/StaticEditors.h"

#include "page/Messages.h"
#include "platform/NumberText.h"
#include "support/Numbers.h"
#include "timebase/StaticEntries.h"

namespace ko {

namespace {

constexpr OfferMembers scanPeriods{&Timebase::ScanChoiceList, &Timebase::ChoiceRange};

std::optional<double> readScanPeriod(const Steps& step, Timebase& timebase)
{
    return step.value([&] { return std::optional(timebase.ScanPeriod()); });
}

} // namespace

StaticEditors::StaticEditors(Page& page, Support& support, Actions& actions)
    : page_(page), support_(support), actions_(actions),
      pair_(support, page.cmbScanRate, page.cmbScanPeriod, page.txtScanRate, page.txtScanPeriod)
{
    entries_.push_back(std::make_unique<StaticEntry>(page, support, page.txtScanRate, StaticEntry::scanRate, *this));
    entries_.push_back(
        std::make_unique<StaticEntry>(page, support, page.txtScanPeriod, StaticEntry::scanPeriod, *this));
    page.cmbScanRate.click = [this] { cmbScanRate_Click(); };
    page.cmbScanPeriod.click = [this] { cmbScanPeriod_Click(); };
    for (ComboBox* list : {&page.cmbScanRate, &page.cmbScanPeriod}) {
        list->gotFocus = [this] { page_.editFlags = editFlag::none; };
        list->lostFocus = list->gotFocus;
    }
}

StaticEditors::~StaticEditors() = default;

void StaticEditors::initScanRateEditors(std::optional<double> scanPeriod)
{
    const Steps step(support_.errors, "initScanRateEditors");
    before_.reserve(page_.currentDrivers().size());
    page_.scanPeriodRange = {};
    MergedChoices offers = mergeOffers(support_, "initScanRateEditors", page_.currentDrivers(), scanPeriods);
    page_.scanPeriodRange = offers.range();
    step([&] { pair_.build(step, offers, scanPeriod); });
    page_.scanPeriodOffers = std::move(offers).account();
    page_.scanPeriodOffers.keptOtherwise.reserve(page_.currentDrivers().size());
}

template <class Visit> void StaticEditors::forEachTimebase(const Steps& step, Visit visit)
{
    const Drivers drivers = page_.currentDrivers();
    for (std::size_t i = 0; i < drivers.size(); ++i) {
        if (!drivers[i])
            continue;
        if (Timebase* timebase = step.value([&] { return drivers[i]->queryTimebase(); }))
            visit(*timebase, i);
    }
}

StaticEditors::ScanPeriod StaticEditors::setDriversScanRate(double newScanPeriod, const std::optional<Held>& known)
{
    const Steps step(support_.errors, "setDriversScanRate");
    step([&] { actions_.markChanged(); });
    before_.assign(page_.currentDrivers().size(), std::nullopt);
    OfferAccount& offers = page_.scanPeriodOffers;
    offers.keptOtherwise.clear();
    ScanPeriod result;
    forEachTimebase(step, [&](Timebase& timebase, std::size_t i) {
        before_[i] = known && known->of == &timebase ? known->value : readScanPeriod(step, timebase);
        step([&] { timebase.setScanPeriod(newScanPeriod); });
        result.inForce = readScanPeriod(step, timebase);
        offers.noteWritten(static_cast<std::int32_t>(i), newScanPeriod, result.inForce);
    });
    const std::int32_t code = actions_.updateDiskSpace();
    if (code == 0)
        return result;
    step([&] { showLimitMessage(support_, code); });
    result.rejected = true;
    result.inForce = putBackScanPeriods(step);
    actions_.refreshEstimate();
    actions_.tellWhatFits(code);
    return result;
}

std::optional<double> StaticEditors::putBackScanPeriods(const Steps& step)
{
    page_.scanPeriodOffers.keptOtherwise.clear();
    std::optional<double> inForce;
    forEachTimebase(step, [&](Timebase& timebase, std::size_t i) {
        if (before_[i])
            step([&] { timebase.setScanPeriod(*before_[i]); });
        inForce = readScanPeriod(step, timebase);
        if (before_[i])
            page_.scanPeriodOffers.noteWritten(static_cast<std::int32_t>(i), *before_[i], inForce);
    });
    return inForce;
}

StaticEditors::ScanPeriod StaticEditors::pushTyped(const Steps& step, double seconds, const std::optional<Held>& before,
                                                   const TextBox& typedIn)
{
    const ScanPeriod result = setDriversScanRate(seconds, before);
    pair_.showInBoxes(step, result.inForce.value_or(seconds), &typedIn);
    return result;
}

void StaticEditors::cmbScanRate_Click()
{
    if (page_.isLoading || !page_.hasStaticDrivers)
        return;
    choose(Steps(support_.errors, "cmbScanRate_Click"), page_.cmbScanRate, page_.cmbScanPeriod);
}

void StaticEditors::cmbScanPeriod_Click()
{
    if (page_.isLoading || !page_.hasStaticDrivers)
        return;
    choose(Steps(support_.errors, "cmbScanPeriod_Click"), page_.cmbScanPeriod, page_.cmbScanRate);
}

void StaticEditors::choose(const Steps& step, const ComboBox& chosen, ComboBox& partner)
{
    const auto period = step.value([&] { return std::optional(pair_.periodAt(chosen.index())); });
    const ScanPeriod result = period ? setDriversScanRate(*period) : ScanPeriod{};
    // After a rejection both lists stay on the refused entry while the drivers keep their period.
    partner.select(chosen.index());
    if (!result.rejected && result.inForce)
        pair_.selectPeriod(*result.inForce, chosen.index());
}

void StaticEditors::pushLoaded(double seconds)
{
    const Steps step(support_.errors, "initScanRateEditors");
    const ScanPeriod result = setDriversScanRate(seconds);
    if (!result.inForce || *result.inForce == seconds)
        return;
    if (page_.cmbScanPeriod.visible())
        pair_.selectPeriod(*result.inForce, -1);
    else
        pair_.showInBoxes(step, *result.inForce, nullptr);
}

} // namespace ko

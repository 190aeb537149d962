#include "timebase/DynamicEditors.h"

#include "page/Differences.h"
#include "platform/NumberText.h"
#include "platform/Scoped.h"
#include "support/Numbers.h"
#include "timebase/QuantityEntry.h"
#include "timebase/WriteToAll.h"

namespace ko {

namespace {

/// Sample rate per hertz of usable bandwidth.
constexpr double samplesPerSpan = 2.56;

/// A box for a number of the current dynamic driver.
class DynamicEntry : public QuantityEntry {
public:
    DynamicEntry(Page& page, Support& support, const Quantity& quantity, ValueEditors& editors, DynamicEditors& owner)
        : QuantityEntry(page, support, quantity, editors), owner_(owner)
    {
    }

protected:
    void showElsewhere(const Steps& step, double held) override
    {
        QuantityEntry::showElsewhere(step, held);
        showSpan(step, held);
    }

    void accept(const Steps& step, double value) override
    {
        using Fate = DynamicEditors::Written::Fate;
        const double requested = quantity().held(value);
        const auto written = owner_.write(
            step, *quantity().number, requested,
            [this, &value](const std::optional<double>& held) { return holds(held, value); }, &earlier());
        if (written.fate == Fate::NoDriver)
            return;
        show(step, {written.inForce, requested, written.fate == Fate::Accepted, written.fate == Fate::Refused});
        showSpan(step, written.inForce);
    }

    void restored(const Steps& step) override { owner_.restored(step); }

private:
    void showSpan(const Steps& step, std::optional<double> period)
    {
        if (quantity().number == &timebaseNumber::samplePeriod)
            owner_.showSpan(step, period);
    }

    DynamicEditors& owner_;
};

} // namespace

DynamicEditors::DynamicEditors(Page& page, Support& support, Actions& actions)
    : page_(page), support_(support), actions_(actions), periods_(page, support, actions, timebaseNumber::samplePeriod),
      blockSizes_(page, support, actions, timebaseNumber::blockSize)
{
    for (ValueEditors* editors : {&periods_, &blockSizes_})
        forEachQuantityOf(editors->number(), [&](const Quantity& quantity) {
            entries_.push_back(std::make_unique<DynamicEntry>(page, support, quantity, *editors, *this));
            ComboBox& list = page.*quantity.list;
            list.click = [this, &list, editors] { listClicked(list, *editors); };
            list.gotFocus = list.lostFocus = [this] { page_.editFlags = editFlag::none; };
        });
}

DynamicEditors::~DynamicEditors() = default;

void DynamicEditors::initSampleRateEditors(std::optional<double> period)
{
    constexpr std::string_view procedure = "initSampleRateEditors";
    periods_.build(procedure, page_.dynamicDriverIndex, period);
    showSpan(Steps(support_.errors, procedure), period);
}

std::optional<double> DynamicEditors::initBlockSizeEditors(std::optional<double> size)
{
    constexpr std::string_view procedure = "initBlockSizeEditors";
    blockSizes_.build(procedure, page_.dynamicDriverIndex, size);
    if (!size || !blockSizes_.values().empty())
        return size;
    const Range range = page_.blockSizeOffers.range;
    size = smallerOf(largerOf(*size, range.minimum), range.maximum);
    blockSizes_.showInBoxes(Steps(support_.errors, procedure), *size, nullptr);
    // Without an offer the box shows 0, which is no number to compare with.
    if (range == Range{})
        page_.blockSizeOffers.shown.reset();
    return size;
}

void DynamicEditors::follow(const Steps& step, const std::optional<double>& period, const std::optional<double>& size)
{
    if (periods_.isUnknown() && period)
        showSpan(step, period);
    periods_.follow(step, period);
    blockSizes_.follow(step, size);
}

void DynamicEditors::note(const TimebaseNumber& number, double asked, const std::optional<double>& kept)
{
    (page_.*number.offers).noteWritten(page_.dynamicDriverIndex, asked, kept);
}

DynamicEditors::Written DynamicEditors::write(const Steps& step, const TimebaseNumber& number, double value,
                                              const std::function<bool(const std::optional<double>&)>& holds,
                                              EarlierValues<NumberSetting>* earlier)
{
    using Fate = Written::Fate;
    const std::int32_t driver = page_.dynamicDriverIndex;
    Timebase* timebase = step.value([&] { return page_.timebaseAt(driver); });
    if (!timebase)
        return {};
    const NumberSetting wanted{&number, value};
    GuardedWrite<NumberSetting> guarded(page_, support_, actions_, wanted, 1, earlier);
    const auto lacking = [&](const NumberSetting& before) {
        return holds && holds(before.value) ? NumberSetting{} : wanted;
    };
    const auto& it = guarded.write(step, {driver, timebase}, lacking, [] {});
    if (!it.tried) {
        (page_.*number.offers).noteRead(driver, it.kept.value);
        return {Fate::Untouched, it.kept.value};
    }
    note(number, value, it.kept.value);
    if (it.kept.value && it.kept.value == it.before.value)
        return {it.written ? Fate::Kept : Fate::Failed, it.kept.value};
    if (!it.written && !it.kept.value)
        return {Fate::Failed, std::nullopt};
    if (!guarded.fits(step, [&] {
            if (it.before.value)
                note(number, *it.before.value, it.kept.value);
        }))
        return {Fate::Refused, it.kept.value};
    if (it.written || guarded.leavesOther())
        step([&] { actions_.markChanged(); });
    return {it.written ? Fate::Accepted : Fate::Failed, it.kept.value};
}

void DynamicEditors::restored(const Steps& step)
{
    step([&] { actions_.markChanged(); });
    actions_.refreshRestored();
}

void DynamicEditors::setAll(const Steps& step, const TimebaseNumber& number, double value)
{
    const Scoped guard(page_.isUpdating, true);
    const WrittenToAll result = writeToAll(
        step, page_, support_, actions_, {&number, value},
        [value](const std::optional<double>& held) { return held == value; }, [] {});
    if (result.written && !result.refused)
        step([&] { actions_.markChanged(); });
    if (step.isSuperseded())
        return;
    const auto held = shownNumber(page_, number);
    editors(number).showInForce(step, held);
    if (number.isPeriod)
        showSpan(step, held);
}

void DynamicEditors::listClicked(ComboBox& chosen, ValueEditors& editors)
{
    const bool isBusy = editors.number().isPeriod ? page_.isUpdating : page_.isDialogOpen;
    if (page_.isLoading || isBusy)
        return;
    const std::string procedure = chosen.name() + "_Click";
    choose(Steps(support_.errors, procedure), chosen, editors);
}

/// The lists then select the number in force. When it is not among their entries, they keep the user's choice if the
/// number changed, and otherwise return to the previous entry.
void DynamicEditors::choose(const Steps& step, const ComboBox& chosen, ValueEditors& editors)
{
    using Fate = Written::Fate;
    const Scoped guard(page_.isUpdating, true);
    const TimebaseNumber& number = editors.number();
    const auto value = step.value([&] { return std::optional(editors.valueAt(chosen.index())); });
    const Written written = value ? write(step, number, *value) : Written{};
    const bool accepted = written.fate == Fate::Accepted;
    const bool stays = accepted || (written.fate == Fate::Kept && !number.isPeriod);
    if (step.isSuperseded())
        return;
    editors.selectValue(accepted && !written.inForce ? value : written.inForce,
                        stays ? chosen.index() : editors.selected());
    if (written.fate == Fate::NoDriver)
        return;
    if (!written.inForce)
        editors.markUnknown();
    if (number.isPeriod)
        showSpan(step, written.inForce);
}

void DynamicEditors::showSpan(const Steps& step, std::optional<double> period)
{
    std::optional<double>& span = page_.figures.span;
    span.reset();
    if (period)
        step([&] { span = reciprocal(*period) / samplesPerSpan; });
    page_.lblSpanValue.setCaption(span ? numberText(*span, support_.locale()) + " " + page_.hertzText : "");
}

} // namespace ko

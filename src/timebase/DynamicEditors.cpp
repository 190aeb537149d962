#include "timebase/DynamicEditors.h"

#include "page/Messages.h"
#include "platform/NumberText.h"
#include "platform/Scoped.h"
#include "support/Numbers.h"
#include "timebase/DynamicEntries.h"

#include <algorithm>

namespace ko {

namespace {

/// Sample rate per hertz of usable bandwidth.
constexpr double samplesPerSpan = 2.56;

constexpr OfferMembers offeredPeriods{&Timebase::SampleChoiceList, &Timebase::ChoiceRange};
constexpr OfferMembers offeredSizes{&Timebase::BlockSizeChoiceList, &Timebase::BlockSizeRange};

} // namespace

DynamicEditors::DynamicEditors(Page& page, Support& support, Actions& actions)
    : page_(page), support_(support), actions_(actions),
      pair_(support, page.cmbSampleRate, page.cmbSamplePeriod, page.txtSampleRate, page.txtSamplePeriod)
{
    const auto add = [&](TextBox& box, const DynamicEntry::Kind& kind) {
        entries_.push_back(std::make_unique<DynamicEntry>(page, support, box, kind, *this));
    };
    add(page.txtSampleRate, DynamicEntry::sampleRate);
    add(page.txtSamplePeriod, DynamicEntry::samplePeriod);
    add(page.txtBlockSize, DynamicEntry::blockSize);
    page.cmbSampleRate.click = [this] { cmbSampleRate_Click(); };
    page.cmbSamplePeriod.click = [this] { cmbSamplePeriod_Click(); };
    page.cmbBlockSize.click = [this] { cmbBlockSize_Click(); };
    for (ComboBox* list : {&page.cmbSampleRate, &page.cmbSamplePeriod, &page.cmbBlockSize}) {
        list->gotFocus = [this] { page_.editFlags = editFlag::none; };
        list->lostFocus = list->gotFocus;
    }
}

DynamicEditors::~DynamicEditors() = default;

void DynamicEditors::initSampleRateEditors(std::optional<double> period)
{
    const Steps step(support_.errors, "initSampleRateEditors");
    page_.samplePeriodRange = {};
    MergedChoices offers = mergeOffers(support_, "initSampleRateEditors", page_.currentDrivers(), offeredPeriods);
    page_.samplePeriodRange = offers.range();
    step([&] { pair_.build(step, offers, period); });
    page_.samplePeriodOffers = std::move(offers).account();
    showSpan(step, period);
}

std::optional<double> DynamicEditors::initBlockSizeEditors(std::optional<double> size)
{
    page_.blockSizeRange = {};
    MergedChoices offers = mergeOffers(support_, "initBlockSizeEditors", page_.currentDrivers(), offeredSizes);
    const Range range = page_.blockSizeRange = offers.range();
    blockSizes_ = offers.values();
    page_.blockSizeOffers = std::move(offers).account();
    page_.cmbBlockSize.setVisible(!blockSizes_.empty());
    page_.txtBlockSize.setVisible(blockSizes_.empty());
    // A box that accepts nothing but 0, or nothing at all, is for looking only.
    page_.txtBlockSize.setEnabled(range.maximum > 0.0 && range.minimum <= range.maximum);
    page_.txtBlockSize.setText("");
    page_.txtBlockSize.setMarked(false);
    std::vector<ComboBox::Item> items;
    for (const double value : blockSizes_)
        items.push_back({numberText(value, support_.locale())});
    page_.cmbBlockSize.setItems(std::move(items));
    if (!size)
        return size;
    if (blockSizes_.empty()) {
        size = smallerOf(largerOf(*size, range.minimum), range.maximum);
        page_.txtBlockSize.setText(numberText(*size, support_.locale()));
    } else {
        selectBlockSize(*size);
    }
    return size;
}

void DynamicEditors::note(const Quantity& quantity, double asked, const std::optional<double>& kept)
{
    OfferAccount& offers = page_.*quantity.offers;
    offers.keptOtherwise.clear();
    offers.noteWritten(page_.dynamicDriverIndex, asked, kept);
}

DynamicEditors::Written DynamicEditors::write(const Steps& step, const Quantity& quantity, double value,
                                              const std::optional<Held>& known)
{
    Timebase* timebase = step.value([&] { return page_.timebaseAt(page_.dynamicDriverIndex); });
    if (!timebase)
        return {};
    const auto read = [&] { return step.value([&] { return std::optional((timebase->*quantity.get)()); }); };
    const std::optional<double> before = known && known->of == timebase ? known->value : read();
    step([&] { (timebase->*quantity.set)(value); });
    const std::optional<double> now = read();
    note(quantity, value, now);
    if (now && now == before)
        return {Written::Fate::Kept, now};
    if (const std::int32_t code = actions_.updateDiskSpace(); code != 0) {
        step([&] { showLimitMessage(support_, code); });
        if (before)
            step([&] { (timebase->*quantity.set)(*before); });
        actions_.refreshEstimate();
        const std::optional<double> back = read();
        if (before)
            note(quantity, *before, back);
        actions_.tellWhatFits(code);
        return {Written::Fate::Refused, back};
    }
    step([&] { actions_.markChanged(); });
    return {Written::Fate::Accepted, now};
}

DynamicEditors::Written DynamicEditors::writeTyped(const Steps& step, const Quantity& quantity, double value,
                                                   const std::optional<Held>& before, const TextBox& typedIn)
{
    const Written written = write(step, quantity, value, before);
    if (quantity.hasPartner && written.fate != Written::Fate::NoDriver) {
        pair_.showInBoxes(step, written.inForce.value_or(value), &typedIn);
        showSpan(step, written.inForce);
    }
    return written;
}

void DynamicEditors::cmbSampleRate_Click()
{
    if (page_.isLoading || page_.isUpdating)
        return;
    choose(Steps(support_.errors, "cmbSampleRate_Click"), page_.cmbSampleRate, page_.cmbSamplePeriod);
}

void DynamicEditors::cmbSamplePeriod_Click()
{
    if (page_.isLoading || page_.isUpdating)
        return;
    choose(Steps(support_.errors, "cmbSamplePeriod_Click"), page_.cmbSamplePeriod, page_.cmbSampleRate);
}

void DynamicEditors::choose(const Steps& step, ComboBox& chosen, const ComboBox& partner)
{
    const Scoped guard(page_.isUpdating, true);
    const auto period = step.value([&] { return std::optional(pair_.periodAt(chosen.index())); });
    const Written written = period ? write(step, samplePeriod, *period) : Written{};
    const bool accepted = written.fate == Written::Fate::Accepted;
    if (!accepted)
        chosen.select(partner.index());
    // A driver that rounds may have taken its old period back as another.
    if (accepted || (written.fate == Written::Fate::Refused && written.inForce)) {
        pair_.selectPeriod(written.inForce.value_or(*period), chosen.index());
        showSpan(step, written.inForce);
    }
}

void DynamicEditors::cmbBlockSize_Click()
{
    if (page_.isLoading || page_.isDialogOpen)
        return;
    const Steps step(support_.errors, "cmbBlockSize_Click");
    const auto samples =
        step.value([&] { return std::optional(toDouble(page_.cmbBlockSize.text(), support_.locale())); });
    const Written written = samples ? write(step, blockSize, *samples) : Written{};
    if (written.inForce)
        step([&] { selectBlockSize(*written.inForce); });
}

void DynamicEditors::selectBlockSize(double samples)
{
    const auto found = std::find(blockSizes_.begin(), blockSizes_.end(), samples);
    if (found != blockSizes_.end())
        page_.cmbBlockSize.select(static_cast<std::int32_t>(found - blockSizes_.begin()));
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

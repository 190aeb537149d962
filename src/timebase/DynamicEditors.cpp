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

constexpr OfferMembers samplePeriods{&Timebase::SampleChoiceList, &Timebase::ChoiceRange};
constexpr OfferMembers blockSizes{&Timebase::BlockSizeChoiceList, &Timebase::BlockSizeRange};

} // namespace

DynamicEditors::DynamicEditors(Page& page, Support& support, Actions& actions)
    : page_(page), support_(support), actions_(actions),
      pair_(support, page.cmbSampleRate, page.cmbSamplePeriod, page.txtSampleRate, page.txtSamplePeriod)
{
    entries_.push_back(std::make_unique<SampleRateEntry>(page, support, *this));
    entries_.push_back(std::make_unique<SamplePeriodEntry>(page, support, *this));
    entries_.push_back(std::make_unique<BlockSizeEntry>(page, support, *this));
    page.cmbSampleRate.click = [this] { cmbSampleRate_Click(); };
    page.cmbSamplePeriod.click = [this] { cmbSamplePeriod_Click(); };
    page.cmbBlockSize.click = [this] { cmbBlockSize_Click(); };
    for (ComboBox* list : {&page.cmbSampleRate, &page.cmbSamplePeriod, &page.cmbBlockSize}) {
        list->gotFocus = [this] { page_.editFlags = editFlag::none; };
        list->lostFocus = list->gotFocus;
    }
}

DynamicEditors::~DynamicEditors() = default;

void DynamicEditors::initSampleRateEditors(std::optional<double> samplePeriod)
{
    const Steps step(support_.errors, "initSampleRateEditors");
    page_.samplePeriodRange = {};
    const MergedChoices offers = mergeOffers(step, page_.currentDrivers(), samplePeriods);
    page_.samplePeriodRange = offers.range();
    step([&] { pair_.build(step, offers, samplePeriod); });
    showSpan(step, samplePeriod);
}

std::optional<double> DynamicEditors::initBlockSizeEditors(std::optional<double> blockSize)
{
    const Steps step(support_.errors, "initBlockSizeEditors");
    page_.blockSizeRange = {};
    const MergedChoices offers = mergeOffers(step, page_.currentDrivers(), blockSizes);
    const Range range = page_.blockSizeRange = offers.range();
    blockSizes_ = offers.values();
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
    if (!blockSize)
        return blockSize;
    if (blockSizes_.empty()) {
        blockSize = smallerOf(largerOf(*blockSize, range.minimum), range.maximum);
        page_.txtBlockSize.setText(numberText(*blockSize, support_.locale()));
    } else {
        selectBlockSize(*blockSize);
    }
    return blockSize;
}

DynamicEditors::Written DynamicEditors::write(const Steps& step, Get get, Set set, double value)
{
    Timebase* timebase = step.value([&] { return page_.timebaseAt(page_.dynamicDriverIndex); });
    if (!timebase)
        return {};
    const auto read = [&] { return step.value([&] { return std::optional((timebase->*get)()); }); };
    const std::optional<double> before = read();
    step([&] { (timebase->*set)(value); });
    const std::optional<double> now = read();
    if (now && now == before)
        return {Written::Fate::Kept, now};
    if (const std::int32_t code = actions_.updateDiskSpace(); code != 0) {
        step([&] { showLimitMessage(support_, code); });
        if (before)
            step([&] { (timebase->*set)(*before); });
        actions_.refreshEstimate();
        return {Written::Fate::Refused, read()};
    }
    step([&] { actions_.markChanged(); });
    return {Written::Fate::Accepted, now};
}

DynamicEditors::Written DynamicEditors::writeSamplePeriod(const Steps& step, double seconds)
{
    return write(step, &Timebase::SamplePeriod, &Timebase::setSamplePeriod, seconds);
}

DynamicEditors::Written DynamicEditors::writeBlockSize(const Steps& step, double samples)
{
    return write(step, &Timebase::BlockSize, &Timebase::setBlockSize, samples);
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
    const Written written = period ? writeSamplePeriod(step, *period) : Written{};
    if (written.fate != Written::Fate::Accepted) {
        step([&] { chosen.select(partner.index()); });
        return;
    }
    step([&] { pair_.selectPeriod(written.inForce.value_or(*period), chosen.index()); });
    showSpan(step, written.inForce);
}

void DynamicEditors::cmbBlockSize_Click()
{
    if (page_.isLoading || page_.isDialogOpen)
        return;
    const Steps step(support_.errors, "cmbBlockSize_Click");
    const auto samples =
        step.value([&] { return std::optional(toDouble(page_.cmbBlockSize.text(), support_.locale())); });
    const Written written = samples ? writeBlockSize(step, *samples) : Written{};
    if (written.inForce)
        step([&] { selectBlockSize(*written.inForce); });
}

void DynamicEditors::selectBlockSize(double samples)
{
    const auto found = std::find(blockSizes_.begin(), blockSizes_.end(), samples);
    if (found != blockSizes_.end())
        page_.cmbBlockSize.select(static_cast<std::int32_t>(found - blockSizes_.begin()));
}

void DynamicEditors::showWritten(const Steps& step, const Written& written, double requested, const TextBox& typedIn)
{
    if (written.fate == Written::Fate::NoDriver)
        return;
    pair_.showInBoxes(step, written.inForce.value_or(requested), &typedIn);
    showSpan(step, written.inForce);
}

void DynamicEditors::showSpan(const Steps& step, std::optional<double> samplePeriod)
{
    page_.lblSpanValue.setCaption("");
    if (!samplePeriod)
        return;
    step([&] {
        const double span = reciprocal(*samplePeriod) / samplesPerSpan;
        page_.lblSpanValue.setCaption(numberText(span, support_.locale()) + " " + page_.hertzText);
    });
}

} // namespace ko

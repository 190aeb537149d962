#include "timebase/ValueEditors.h"

#include "page/Differences.h"
#include "platform/NumberText.h"
#include "platform/Scoped.h"

#include <algorithm>
#include <cmath>

namespace ko {

namespace {

/// Periods that differ by less than this, in seconds, are the same choice.
constexpr double periodTolerance = 1e-12;

} // namespace

std::string ValueEditors::text(double value) const
{
    return numberText(value, support_.locale());
}

/// A driver's range is read only when it offers no list.
MergedChoices ValueEditors::mergeOffers(std::string_view procedure) const
{
    const Steps step(support_.errors, procedure);
    const Drivers drivers = page_.currentDrivers();
    MergedChoices merged(drivers.size(), number_.isPeriod);
    for (const auto& driver : drivers) {
        Timebase* timebase = nullptr;
        bool answers = !driver || step([&] { timebase = driver->queryTimebase(); });
        if (timebase) {
            std::vector<double> choices;
            answers &= step([&] { choices = (timebase->*number_.choices)(); });
            if (!merged.addList(std::move(choices))) {
                Range range;
                answers &= step([&] { range = (timebase->*number_.range)(); });
                merged.addRange(range);
            }
        } else {
            merged.addNone();
        }
        if (!answers)
            merged.markFailed();
    }
    return merged;
}

void ValueEditors::build(std::string_view procedure, std::int32_t driver, std::optional<double> inForce)
{
    MergedChoices merged = mergeOffers(procedure);
    values_ = merged.values();
    OfferAccount& offers = page_.*number_.offers = std::move(merged).account();
    offers.readings.resize(page_.currentDrivers().size());
    offers.noteRead(driver, inForce);
    const Steps step(support_.errors, procedure);
    const bool isWritable = canBeWritten();
    forEachQuantityOf(number_, [&](const Quantity& quantity) {
        ComboBox& list = page_.*quantity.list;
        TextBox& box = page_.*quantity.box;
        list.setVisible(!values_.empty());
        list.setEnabled(isWritable);
        box.setVisible(values_.empty());
        box.setEnabled(isWritable && accepts(quantity));
        box.setText("");
        box.setMarked(false);
    });
    step([&] {
        fillLists();
        select(loadedEntry(inForce));
    });
    isUnknown_ = !inForce;
    if (values_.empty() && inForce)
        showInBoxes(step, *inForce, nullptr);
}

/// A driver whose query failed may have a timebase.
bool ValueEditors::canBeWritten() const
{
    const std::vector<DriverOffer>& drivers = (page_.*number_.offers).drivers;
    const auto hasNone = [](const DriverOffer& offer) {
        return offer.kind == DriverOffer::Kind::NoTimebase && !offer.hasFailed;
    };
    if (number_.toAllDrivers)
        return !std::all_of(drivers.begin(), drivers.end(), hasNone);
    const auto current = static_cast<std::size_t>(page_.dynamicDriverIndex);
    return current < drivers.size() && !hasNone(drivers[current]);
}

/// A box that accepts only 0, or nothing, is disabled.
bool ValueEditors::accepts(const Quantity& quantity) const
{
    return quantity.bounds(page_).acceptsAnything() &&
           (number_.isPeriod || (page_.*number_.offers).range.maximum > 0.0);
}

void ValueEditors::fillLists()
{
    forEachQuantityOf(number_, [&](const Quantity& quantity) {
        std::vector<ComboBox::Item> items;
        items.reserve(values_.size());
        for (const double value : values_)
            items.push_back({text(quantity.shown(value))});
        (page_.*quantity.list).setItems(std::move(items));
    });
}

/// For periods the last entry that is close enough; for block sizes the first equal one.
std::int32_t ValueEditors::loadedEntry(const std::optional<double>& inForce) const
{
    if (!inForce || !number_.isPeriod)
        return inForce ? entryOf(*inForce) : -1;
    for (std::size_t i = values_.size(); i > 0; --i)
        if (std::abs(values_[i - 1] - *inForce) < periodTolerance)
            return static_cast<std::int32_t>(i - 1);
    return -1;
}

std::int32_t ValueEditors::entryOf(double value) const
{
    constexpr double textTolerance = 1e-13; // texts have 15 digits
    const auto readsTheSame = [&](double other) {
        return std::abs(other - value) < textTolerance * value && text(other) == text(value);
    };
    std::int32_t close = -1;
    for (std::size_t i = 0; i < values_.size(); ++i) {
        if (values_[i] == value)
            return static_cast<std::int32_t>(i);
        if (number_.isPeriod && (std::abs(values_[i] - value) < periodTolerance || readsTheSame(values_[i])))
            close = static_cast<std::int32_t>(i);
    }
    return close;
}

double ValueEditors::valueAt(std::int32_t entry) const
{
    if (entry < 0 || static_cast<std::size_t>(entry) >= values_.size())
        fail(failure::subscriptOutOfRange);
    return values_[static_cast<std::size_t>(entry)];
}

void ValueEditors::select(std::int32_t entry)
{
    selected_ = entry;
    forEachQuantityOf(number_, [&](const Quantity& quantity) { (page_.*quantity.list).select(entry); });
}

void ValueEditors::selectValue(std::optional<double> value, std::int32_t otherwise)
{
    const std::int32_t found = value ? entryOf(*value) : -1;
    select(found >= 0 ? found : otherwise);
    isUnknown_ = !value;
    noteShown(value);
}

void ValueEditors::keep(std::int32_t entry)
{
    select(entry);
    const auto index = static_cast<std::size_t>(entry);
    noteShown(entry >= 0 && index < values_.size() ? std::optional(values_[index]) : std::nullopt);
}

/// The plan, which names what differs from the number shown, has followed the driver of the editors.
void ValueEditors::noteShown(std::optional<double> value)
{
    const bool isOther = shownNumber(page_, number_) != value;
    (page_.*number_.offers).shown = value;
    showDifferences(page_, support_, number_);
    if (isOther)
        actions_.refreshPlan();
}

void ValueEditors::showInForce(const Steps& step, std::optional<double> value)
{
    if (!values_.empty())
        selectValue(value, selected_);
    else if (value)
        showInBoxes(step, *value, nullptr);
    if (!value)
        markUnknown();
}

double ValueEditors::exactNumber(const Quantity& quantity, double entered) const
{
    const std::string wanted = text(entered);
    const auto meant = [&](double number) { return text(quantity.shown(number)) == wanted; };
    if (const auto shown = shownNumber(page_, number_); shown && meant(*shown))
        return *shown;
    const auto found = std::find_if(values_.begin(), values_.end(), meant);
    return found != values_.end() ? *found : quantity.held(entered);
}

void ValueEditors::showInBoxes(const Steps& step, double value, const TextBox* typedIn)
{
    const Scoped guard(page_.isUpdating, true);
    isUnknown_ = false;
    forEachQuantityOf(number_, [&](const Quantity& quantity) {
        TextBox& box = page_.*quantity.box;
        if (&box != typedIn)
            step([&] { box.setText(text(quantity.shown(value))); });
    });
    step([&] { noteShown(value); });
}

void ValueEditors::follow(const Steps& step, const std::optional<double>& value)
{
    if (!isUnknown_ || !value)
        return;
    if (!number_.toAllDrivers)
        (page_.*number_.offers).noteRead(page_.dynamicDriverIndex, value);
    if (!values_.empty()) {
        selectValue(value, selected_);
        return;
    }
    const TextBox* typedIn = nullptr;
    forEachQuantityOf(number_, [&](const Quantity& quantity) {
        if ((page_.*quantity.box).hasFocus())
            typedIn = &(page_.*quantity.box);
    });
    showInBoxes(step, *value, typedIn);
    isUnknown_ = typedIn != nullptr;
}

} // namespace ko

#include "timebase/ComparisonTable.h"

#include "page/Differences.h"
#include "platform/DateTimes.h"
#include "platform/NumberText.h"
#include "support/Phrases.h"
#include "support/TextNumbers.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace ko {

namespace {

namespace compareText = textNumber::compare;

const std::string& spoken(const Table::Cell& cell)
{
    return cell.meaning.empty() ? cell.text : cell.meaning;
}

} // namespace

std::vector<const Quantity*> shownQuantities(const Page& page)
{
    std::vector<const Quantity*> shown;
    for (const Quantity& quantity : quantities)
        if ((page.*quantity.number->frame).visible())
            shown.push_back(&quantity);
    return shown;
}

ComparisonTable::ComparisonTable(const Page& page, const Support& support, const Quantity& quantity,
                                 const std::vector<StartStopSettings>& schedules)
    : page_(page), support_(support), explained_(quantity), schedules_(schedules),
      offers_([&support](int number) { return support.text(number); }, support.locale(), quantity.isRate)
{
    const auto read = std::find_if(schedules.begin(), schedules.end(), [](const auto& it) { return !it.isEmpty(); });
    if (read != schedules.end())
        first_ = *read;
}

std::vector<std::string> ComparisonTable::columns() const
{
    std::vector<std::string> columns;
    for (const Quantity* shown : shownQuantities(page_))
        columns.push_back((page_.*shown->label).caption());
    for (const int text : {compareText::start, compareText::duration, compareText::share})
        columns.push_back(support_.text(text));
    for (std::string& column : offers_.columns())
        columns.push_back(std::move(column));
    return columns;
}

std::size_t ComparisonTable::columnOf(const Quantity& quantity) const
{
    const auto shown = shownQuantities(page_);
    return static_cast<std::size_t>(std::find(shown.begin(), shown.end(), &quantity) - shown.begin());
}

std::size_t ComparisonTable::firstDiffering(const Quantity& quantity) const
{
    std::size_t row = 0;
    while (row < schedules_.size() && !differs(page_, *quantity.number, row))
        ++row;
    return row < schedules_.size() ? row : 0;
}

std::vector<Table::Row> ComparisonTable::rows() const
{
    const OfferAccount& account = page_.*explained_.number->offers;
    const std::vector<std::string> headers = columns();
    std::vector<Table::Row> rows;
    for (std::size_t i = 0; i < std::min(account.drivers.size(), schedules_.size()); ++i) {
        Table::Row& row = rows.emplace_back();
        row.header = driverName(page_, i);
        for (const Quantity* shown : shownQuantities(page_))
            row.cells.push_back(quantity(*shown, i));
        row.cells.push_back(start(schedules_[i]));
        row.cells.push_back(duration(schedules_[i]));
        row.cells.push_back(share(i));
        for (std::string& text : offers_.row(account, i))
            row.cells.push_back({std::move(text), {}, Table::Emphasis::none});
        for (std::size_t column = 0; column < row.cells.size(); ++column)
            row.cells[column].meaning =
                filled(support_.text(compareText::meaning), {row.header, headers[column], spoken(row.cells[column])});
    }
    return rows;
}

ComparisonTable::Cell ComparisonTable::notRead() const
{
    return {support_.text(compareText::notRead), {}, Table::Emphasis::weak};
}

ComparisonTable::Cell ComparisonTable::compared(std::string text, bool differs) const
{
    if (!differs)
        return {std::move(text), {}, Table::Emphasis::none};
    return {filled(support_.text(compareText::differing), {text}), {}, Table::Emphasis::strong};
}

ComparisonTable::Cell ComparisonTable::quantity(const Quantity& quantity, std::size_t driver) const
{
    const TimebaseNumber& number = *quantity.number;
    const OfferAccount& account = page_.*number.offers;
    if (driver >= account.readings.size() || !account.hasTimebase(driver))
        return {page_.notApplicableText, {}, Table::Emphasis::weak};
    const auto& held = account.readings[driver].held;
    if (!held)
        return notRead();
    const std::string text = numberText(quantity.isRate ? 1.0 / *held : *held, support_.locale());
    if (!isUsedBy(page_, number, driver))
        return {text, filled(support_.text(compareText::unused), {text}), Table::Emphasis::weak};
    return compared(text, differs(page_, number, driver));
}

std::string ComparisonTable::startText(const StartStopSettings& held) const
{
    switch (*held.startMode) {
    case startMode::atTime:
        return held.startTime ? generalDate(*held.startTime, support_.locale()) : support_.text(compareText::notRead);
    case startMode::onTrigger: return support_.text(compareText::onTrigger);
    default: return support_.text(compareText::immediately);
    }
}

ComparisonTable::Cell ComparisonTable::start(const StartStopSettings& held) const
{
    if (!held.startMode)
        return notRead();
    const bool isOther = held.startMode != first_.startMode ||
                         (*held.startMode == startMode::atTime && held.startTime != first_.startTime);
    return compared(startText(held), isOther);
}

ComparisonTable::Cell ComparisonTable::duration(const StartStopSettings& held) const
{
    const auto seconds = held.seconds();
    if (!seconds)
        return notRead();
    return compared(filled(support_.text(textNumber::plan::seconds), {numberText(*seconds, support_.locale())}),
                    held.duration != first_.duration);
}

/// In percent of the whole recording.
ComparisonTable::Cell ComparisonTable::share(std::size_t driver) const
{
    const std::vector<DriverFigures>& drivers = page_.figures.drivers;
    if (driver >= drivers.size() || !drivers[driver].bytes)
        return {page_.notApplicableText, {}, Table::Emphasis::weak};
    const double all = std::accumulate(drivers.begin(), drivers.end(), 0.0, [](double sum, const DriverFigures& it) {
        return sum + it.bytes.value_or(0.0);
    });
    constexpr double tenths = 1000.0;
    const double share = all > 0.0 ? std::round(*drivers[driver].bytes / all * tenths) / 10.0 : 0.0;
    return {
        filled(support_.text(compareText::percent), {numberText(share, support_.locale())}), {}, Table::Emphasis::none};
}

} // namespace ko

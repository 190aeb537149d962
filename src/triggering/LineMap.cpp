#include "triggering/LineMap.h"

#include "support/Phrases.h"
#include "support/TextNumbers.h"

#include <utility>

namespace ko {

namespace {

namespace number = textNumber::lines;

Table::Emphasis emphasisOf(LineUse use)
{
    switch (use) {
    case LineUse::listens:
    case LineUse::drives:
    case LineUse::mustListen:
    case LineUse::mustDrive: return Table::Emphasis::strong;
    case LineUse::unknown:
    case LineUse::unusable:
    case LineUse::taken: return Table::Emphasis::weak;
    case LineUse::canListen:
    case LineUse::canDrive: break;
    }
    return Table::Emphasis::none;
}

/// The cells of one trigger's map.
class CellWriter {
public:
    CellWriter(const Support& support, LineTrigger trigger) : support_(support), trigger_(trigger) {}

    [[nodiscard]] Table::Cell cell(LineUse use, std::int32_t line, const std::string& driver) const
    {
        const int at = static_cast<int>(use);
        const bool byStart = use == LineUse::taken && trigger_ == LineTrigger::scan;
        const std::string meaning = support_.text(byStart ? number::takenByStart : number::useMeaning + at);
        return {support_.text(number::use + at), filled(meaning, {driver, support_.text(number::line + line)}),
                emphasisOf(use)};
    }

    [[nodiscard]] Table::Row row(const LineDriver& driver, std::string name, const LinePlan& plan) const
    {
        Table::Row row{std::move(name), {}};
        for (std::int32_t line = 0; line < triggerLineCount; ++line)
            row.cells.push_back(cell(lineUse(driver.roles[trigger_], line, trigger_, plan), line, row.header));
        return row;
    }

private:
    const Support& support_;
    LineTrigger trigger_;
};

} // namespace

void showLineMap(Table& table, const Support& support, std::span<const LineDriver> drivers, LineTrigger trigger,
                 const LinePlan& plan)
{
    const CellWriter writer(support, trigger);
    std::vector<std::string> columns;
    columns.reserve(triggerLineCount);
    for (std::int32_t line = 0; line < triggerLineCount; ++line)
        columns.push_back(support.text(number::line + line));
    std::vector<Table::Row> rows;
    for (const LineDriver& driver : drivers) {
        const std::string place = std::to_string(rows.size() + 1);
        rows.push_back(writer.row(
            driver, driver.name.empty() ? filled(support.text(number::unnamed), {place}) : driver.name, plan));
    }
    table.setContent(std::move(columns), std::move(rows));
}

} // namespace ko

#include "host/recording/Comparison.h"

#include "host/recording/RecordingTexts.h"
#include "host/recording/UnfinishedFile.h"
#include "host/support/InputError.h"
#include "platform/NumberText.h"
#include "platform/Utf8.h"

#include <algorithm>

namespace ko {

namespace {

struct Row {
    std::string instrument, figure, promised, held, remark;
};

class FigureTable {
public:
    void show(const std::string& instrument, const std::string& figure, const std::string& promised,
              const std::string& held)
    {
        rows_.push_back({instrument, figure, promised, held, ""});
    }
    void judge(const std::string& instrument, const std::string& figure, const std::string& promised,
               const std::string& held)
    {
        const bool isSame = promised == held;
        isKept_ = isKept_ && isSame;
        rows_.push_back({instrument, figure, promised, held, isSame ? "" : "differs"});
    }

    [[nodiscard]] Comparison result() const
    {
        return {text({&Row::instrument, &Row::figure, &Row::promised, &Row::held, &Row::remark}), isKept_};
    }

private:
    [[nodiscard]] std::string text(const std::vector<std::string Row::*>& columns) const
    {
        std::string lines(rows_.size(), ' ');
        std::vector<std::string> texts(rows_.size());
        for (const auto column : columns) {
            std::size_t width = 0;
            for (const Row& row : rows_)
                width = std::max(width, utf8Length(row.*column));
            for (std::size_t i = 0; i < rows_.size(); ++i)
                texts[i] += rows_[i].*column + std::string(width - utf8Length(rows_[i].*column) + 2, ' ');
        }
        std::string all;
        for (const std::string& line : texts)
            all += line.substr(0, line.find_last_not_of(' ') + 1) + '\n';
        return all;
    }

    std::vector<Row> rows_{{"instrument", "figure", "promised", "held", ""}};
    bool isKept_ = true;
};

const std::string none = "none";

std::string seconds(double period)
{
    return numberText(period, Locale{}) + " s";
}

void compareInstrument(FigureTable& table, const PlannedInstrument& promised, const HeldInstrument& held)
{
    const ArmedSettings& settings = promised.settings;
    const std::string name = shortLine(promised.name);
    const auto judgeCount = [&](const char* figure, auto wanted, auto found) {
        table.judge(name, figure, std::to_string(wanted), std::to_string(found));
    };
    if (held.name != promised.name)
        table.show(name, "name", name, shortLine(held.name));
    const char* const count = settings.isDynamic ? "samples" : "scans";
    if (promised.isFixed)
        table.show(name, count, std::to_string(promised.samples) + " (fixed)", std::to_string(held.samples));
    else
        judgeCount(count, promised.samples, held.samples);
    table.judge(name, "period", seconds(settings.period), seconds(held.period));
    if (settings.isDynamic)
        judgeCount("block size", settings.blockSize, held.blockSize);
    judgeCount("channels", settings.channels.size(), held.channels);
    if (held.lost > 0)
        judgeCount("lost samples", 0, held.lost);
    table.show(name, "bytes", byteText(promised.pageBytes), byteText(held.bytes));
}

} // namespace

Comparison compare(const RecordingPlan& promised, const HeldRecording& held)
{
    FigureTable table;
    for (const PlannedInstrument& instrument : promised.instruments) {
        const auto found = std::find_if(held.instruments.begin(), held.instruments.end(),
                                        [&](const auto& it) { return it.index == instrument.index; });
        if (found != held.instruments.end())
            compareInstrument(table, instrument, *found);
        else if (instrument.isRecorded())
            table.judge(shortLine(instrument.name), "channels", std::to_string(instrument.settings.channels.size()),
                        none);
    }
    for (const HeldInstrument& instrument : held.instruments)
        if (std::none_of(promised.instruments.begin(), promised.instruments.end(),
                         [&](const auto& it) { return it.index == instrument.index; }))
            table.judge(shortLine(instrument.name), "channels", none, std::to_string(instrument.channels));
    table.judge("", "state", recordedState::complete, held.state);
    return table.result();
}

} // namespace ko

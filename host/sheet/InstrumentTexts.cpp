#include "host/instruments/HeldNumbers.h"
#include "host/sheet/InstrumentRow.h"
#include "host/support/HostTexts.h"
#include "platform/DateTimes.h"
#include "platform/NumberText.h"
#include "widgets/support/Convert.h"
#include "widgets/support/ShownText.h"

#include <array>

namespace ko {

namespace {

struct Shown {
    const Texts& texts;
    const Locale& locale;

    [[nodiscard]] QString number(double value) const { return toShown(numberText(value, locale)); }
    [[nodiscard]] QString seconds(double value) const { return texts(hostText::seconds).arg(number(value)); }
    [[nodiscard]] QString yesOrNo(bool value) const { return texts(value ? hostText::yes : hostText::no); }
    [[nodiscard]] QString time(DateTime time) const
    {
        try {
            return toShown(generalDate(time, locale));
        } catch (const Failure&) {
            return number(time.days);
        }
    }
    /// Returns the number itself for a code without a name.
    template <std::size_t n> [[nodiscard]] QString mode(std::int32_t code, const std::array<int, n>& names) const
    {
        const bool isKnown = code >= 0 && static_cast<std::size_t>(code) < n;
        return isKnown ? texts(names[static_cast<std::size_t>(code)]) : QString::number(code);
    }
    [[nodiscard]] QString value(const Value& value) const
    {
        return std::visit([this](const auto& held) { return this->any(held); }, value);
    }

private:
    [[nodiscard]] QString any(std::monostate) const { return {}; }
    [[nodiscard]] QString any(const std::string& text) const { return toShown(text); }
    [[nodiscard]] QString any(bool value) const { return yesOrNo(value); }
    [[nodiscard]] QString any(std::int32_t value) const { return QString::number(value); }
    [[nodiscard]] QString any(double value) const { return number(value); }
};

// In the order of the codes.
constexpr std::array startModes{hostText::startImmediately, hostText::startAtTime, hostText::startOnTrigger};
constexpr std::array stopModes{hostText::stopAfterDuration, hostText::stopAtTime};

/// A setting of the schedule in an instrument's timebase: its name in the string table and its value as text.
struct ScheduleMember {
    int name;
    QString (*value)(const TimebaseSettings&, const Shown&);
};

constexpr std::array scheduleMembers{
    ScheduleMember{hostText::startMode,
                   [](const TimebaseSettings& t, const Shown& as) { return as.mode(t.startMode, startModes); }},
    ScheduleMember{hostText::startTime,
                   [](const TimebaseSettings& t, const Shown& as) { return as.time(t.startTime); }},
    ScheduleMember{hostText::stopMode,
                   [](const TimebaseSettings& t, const Shown& as) { return as.mode(t.stopMode, stopModes); }},
    ScheduleMember{hostText::duration,
                   [](const TimebaseSettings& t, const Shown& as) { return as.seconds(widen(t.duration)); }},
};

// In the order of `heldNumbers`.
constexpr std::array numberNames{hostText::samplePeriod, hostText::blockSize, hostText::scanPeriod};
static_assert(numberNames.size() == heldNumbers.size());

// Items of a timebase: first `heldNumbers`, then `scheduleMembers`.

QString timebaseName(std::size_t item, const Texts& texts)
{
    const std::size_t numbers = heldNumbers.size();
    return texts(item < numbers ? numberNames[item] : scheduleMembers[item - numbers].name);
}

QString timebaseValue(std::size_t item, const TimebaseSettings& held, const Shown& as)
{
    if (item >= heldNumbers.size())
        return scheduleMembers[item - heldNumbers.size()].value(held, as);
    const double value = (held.*heldNumbers[item].held).value;
    return heldNumbers[item].number->isPeriod ? as.seconds(value) : as.number(value);
}

struct Line {
    int name;
    std::int32_t TriggerLineSettings::*value;
};

constexpr std::array lines{
    Line{hostText::startMasterRank, &TriggerLineSettings::startMasterRank},
    Line{hostText::startLine, &TriggerLineSettings::startTriggerLine},
    Line{hostText::startInput, &TriggerLineSettings::startTriggerInput},
    Line{hostText::syncMasterRank, &TriggerLineSettings::scanMasterRank},
    Line{hostText::syncLine, &TriggerLineSettings::scanTriggerLine},
    Line{hostText::syncInput, &TriggerLineSettings::scanTriggerInput},
};

/// Lists the operations that are set to fail.
QString faultsOf(const InstrumentRow& row, const Texts& texts)
{
    QStringList operations;
    for (const SimulatedFailure& failure : row.driver().calls().failing())
        operations << toShown(failure.operation);
    return operations.isEmpty() ? QString() : texts(hostText::failsAt).arg(operations.join(QStringLiteral(", ")));
}

QString channelName(const ChannelSettings& channel)
{
    if (channel.name.empty())
        return toShown(channel.address);
    return QStringLiteral("%1 (%2)").arg(toShown(channel.name), toShown(channel.address));
}

const ParameterSettings& parameterOf(const InstrumentRow& row)
{
    return row.channelSettings().triggerParameters[row.item()];
}

} // namespace

bool isIdleStartTime(const InstrumentRow& row)
{
    const std::size_t member = row.item() - heldNumbers.size(); // wraps around for a number
    return row.kind() == InstrumentRow::Kind::Quantity && member < scheduleMembers.size() &&
           scheduleMembers[member].name == hostText::startTime &&
           row.driver().held().timebase->startMode != startMode::atTime;
}

std::size_t quantityCount()
{
    return heldNumbers.size() + scheduleMembers.size();
}

std::size_t lineCount()
{
    return lines.size();
}

QString nameOf(const InstrumentRow& row, const Texts& texts)
{
    switch (row.kind()) {
    case InstrumentRow::Kind::Root: break;
    case InstrumentRow::Kind::Instrument: return toShown(row.driver().name());
    case InstrumentRow::Kind::Timebase: return texts(hostText::timebase);
    case InstrumentRow::Kind::Quantity: return timebaseName(row.item(), texts);
    case InstrumentRow::Kind::Group: return toShown(row.groupSettings().name);
    case InstrumentRow::Kind::Channel: return channelName(row.channelSettings());
    case InstrumentRow::Kind::Parameter: return toShown(parameterOf(row).name);
    case InstrumentRow::Kind::Lines: return texts(hostText::triggerLines);
    case InstrumentRow::Kind::Line: return texts(lines[row.item()].name);
    }
    return {};
}

QString valueOf(const InstrumentRow& row, const Texts& texts, const Locale& locale)
{
    const Shown as{texts, locale};
    const InstrumentSettings& held = row.driver().held();
    switch (row.kind()) {
    case InstrumentRow::Kind::Instrument: return faultsOf(row, texts);
    case InstrumentRow::Kind::Quantity: return timebaseValue(row.item(), *held.timebase, as);
    case InstrumentRow::Kind::Channel: return row.channelSettings().triggerSource ? texts(hostText::triggerSource) : "";
    case InstrumentRow::Kind::Parameter: return as.value(parameterOf(row).value);
    case InstrumentRow::Kind::Line: return QString::number((*held.triggerLines).*lines[row.item()].value);
    default: return {};
    }
}

} // namespace ko

#include "host/chart/ChartTexts.h"

#include "platform/NumberText.h"
#include "widgets/support/Convert.h"
#include "widgets/support/ShownText.h"

#include <cmath>

namespace ko {

QString ChartTexts::number(double value, int digits) const
{
    return toQt(numberText(QString::number(value, 'g', digits).toDouble(), locale));
}

QString ChartTexts::time(double seconds, double step) const
{
    const int decimals = std::clamp(static_cast<int>(std::ceil(-std::log10(step) - 1e-9)), 0, 9);
    const QString separator = toQt(locale.decimalSeparator);
    constexpr double minute = 60.0;
    if (seconds < minute)
        return texts(chartText::seconds).arg(QString::number(seconds, 'f', decimals).replace(u'.', separator));
    // Rounded before it is divided, so that no second has 60.000 seconds.
    const QString rounded = QString::number(seconds, 'f', decimals);
    const qlonglong whole = rounded.section(u'.', 0, 0).toLongLong();
    const auto twoDigits = [](qlonglong part) { return QString::number(part).rightJustified(2, u'0'); };
    const QString text = QStringLiteral("%1:%2:%3")
                             .arg(QString::number(whole / 3600), twoDigits(whole / 60 % 60), twoDigits(whole % 60));
    return decimals > 0 ? text + separator + rounded.section(u'.', 1) : text;
}

QString ChartTexts::name(const ChartChannel& channel)
{
    return toLine(channel.channel.name.empty() ? channel.channel.address : channel.channel.name);
}

QString ChartTexts::latest(const ChartChannel& channel, const ChannelState& state) const
{
    return std::isnan(state.latest) ? QStringLiteral("\u2013")
                                    : QStringLiteral("%1 %2").arg(number(state.latest), toLine(channel.channel.unit));
}

QString ChartTexts::clipped(const ChannelState& state) const
{
    return state.clipped > 0 ? texts(chartText::clipped).arg(toQt(countText(state.clipped, locale))) : QString();
}

QString ChartTexts::details(const ChartChannel& channel, const ChannelState& state) const
{
    const ArmedChannel& it = channel.channel;
    QStringList lines{name(channel), toLine(channel.instrumentName), toLine(it.address), latest(channel, state)};
    if (it.hasRange())
        lines << texts(chartText::range).arg(number(it.range.minimum), number(it.range.maximum), toLine(it.unit));
    lines << clipped(state);
    lines.removeAll(QString());
    return lines.join(u'\n');
}

} // namespace ko

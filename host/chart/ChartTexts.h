#pragma once

#include "host/recording/ChartSource.h"
#include "platform/Locale.h"
#include "support/TextNumbers.h"
#include "widgets/support/Convert.h"

namespace ko {

namespace chartText = textNumber::chart;

/// What charts say.
struct ChartTexts {
    Texts texts;
    const Locale& locale; ///< must outlive this object

    [[nodiscard]] QString operator()(int number) const { return texts(number); }

    /// A number with this many significant digits.
    [[nodiscard]] QString number(double value, int digits = 5) const;
    /// Seconds, and minutes and hours from a minute on, with the decimals that differ within `step` seconds.
    [[nodiscard]] QString time(double seconds, double step) const;

    [[nodiscard]] static QString name(const ChartChannel& channel);
    /// The latest value with its unit; a dash before the first one.
    [[nodiscard]] QString latest(const ChartChannel& channel, const ChannelState& state) const;
    /// How many samples are clipped; empty if none are.
    [[nodiscard]] QString clipped(const ChannelState& state) const;
    /// Everything about the channel, one line each.
    [[nodiscard]] QString details(const ChartChannel& channel, const ChannelState& state) const;
};

} // namespace ko

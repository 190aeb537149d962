#pragma once

#include "host/recording/ChartSource.h"

#include <cmath>
#include <functional>

namespace ko::test {

/// Sines of any rate, without a memory of their own.
class Sines final : public ChartSource {
public:
    Sines(std::size_t count, double period, std::int64_t samples)
    {
        for (std::size_t i = 0; i < count; ++i) {
            const std::string number = std::to_string(i);
            const ArmedChannel channel{0, static_cast<int>(i), "1:" + number, "Signal " + number, "V", {-0.5, 2}};
            described.push_back({0, "Digitizer", channel, period});
            now.channels.push_back({0.0, samples, static_cast<std::int64_t>(i) * 7, 0.25F});
        }
    }

    [[nodiscard]] const std::vector<ChartChannel>& channels() const override { return described; }
    [[nodiscard]] ChartState state() const override
    {
        ++frames;
        return now;
    }
    [[nodiscard]] std::vector<Extent> extents(std::size_t channel, const SampleSpan& span) const override
    {
        asked += span.count;
        std::vector<Extent> parts(span.count);
        for (std::size_t i = 0; i < span.count; ++i) {
            const double sample = span.first + static_cast<double>(i) * span.width;
            if (sample < 0.0 || sample >= static_cast<double>(now.channels[channel].samples) || isLost(sample))
                continue;
            const double time = sample * described[channel].period;
            const auto value = static_cast<float>(std::max(-0.5, std::sin(time * static_cast<double>(channel + 1))));
            parts[i] = {value, value + (span.width > 1.0 ? 0.1F : 0.0F)};
        }
        return parts;
    }

    std::vector<ChartChannel> described;
    ChartState now;
    std::function<bool(double sample)> isLost = [](double) { return false; };
    mutable std::size_t asked = 0;
    mutable int frames = 0;
};

} // namespace ko::test

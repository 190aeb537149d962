#include "modules/sigrok/SampleRates.h"

#include "platform/Failure.h"
#include "platform/NumberText.h"

#include <algorithm>
#include <cmath>

namespace ko::sigrok {

namespace {

constexpr double most = 9.0e18; // of what a rate can be

std::uint64_t rounded(double number)
{
    return static_cast<std::uint64_t>(std::llround(std::clamp(number, 0.0, most)));
}

} // namespace

double periodOf(std::uint64_t rate)
{
    return 1.0 / static_cast<double>(rate);
}

void checkRate(std::uint64_t kept, double period)
{
    if (!(std::abs(periodOf(kept) - period) <= 1e-9 * period))
        throw Failure(failure::unspecified, "sample rate: " + numberText(1.0 / period, Locale{}) + " Hz set, " +
                                                std::to_string(kept) + " Hz kept");
}

std::uint64_t SampleRates::nearest(double period) const
{
    if (!list.empty())
        return *std::min_element(list.begin(), list.end(), [&](std::uint64_t a, std::uint64_t b) {
            return std::abs(periodOf(a) - period) < std::abs(periodOf(b) - period);
        });
    const double rate = period > 0.0 ? 1.0 / period : most;
    if (maximum == 0)
        return std::max<std::uint64_t>(rounded(rate), 1);
    const double steps = (rate - static_cast<double>(minimum)) / static_cast<double>(step);
    return minimum + std::min(rounded(steps), (maximum - minimum) / step) * step;
}

QuantitySettings SampleRates::samplePeriod(std::uint64_t present) const
{
    QuantitySettings period;
    for (const std::uint64_t rate : list)
        period.choices.push_back(periodOf(rate));
    if (maximum != 0)
        period.range = {periodOf(maximum), periodOf(minimum)};
    period.value = present == 0 ? periodOf(nearest(0.001)) : periodOf(present);
    return period;
}

} // namespace ko::sigrok

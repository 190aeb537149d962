#include "host/instruments/InstrumentSettings.h"

#include <algorithm>
#include <cmath>

namespace ko {

namespace {

double nearest(double requested, const std::vector<double>& choices)
{
    return *std::min_element(choices.begin(), choices.end(),
                             [&](double a, double b) { return std::abs(a - requested) < std::abs(b - requested); });
}

} // namespace

Keeps QuantitySettings::rule() const
{
    const bool ranged = range != Range{};
    Keeps wanted = !choices.empty() ? Keeps::Nearest : ranged ? Keeps::Clamp : Keeps::Any;
    wanted = keeps.value_or(wanted);
    if ((wanted == Keeps::Nearest && choices.empty()) || (wanted == Keeps::Clamp && !ranged))
        return Keeps::Any;
    return wanted;
}

double QuantitySettings::request(double requested)
{
    if (!std::isfinite(requested))
        return value;
    switch (rule()) {
    case Keeps::Nearest: value = nearest(requested, choices); break;
    case Keeps::Clamp: value = std::max(range.minimum, std::min(requested, range.maximum)); break;
    case Keeps::Any: value = requested; break;
    case Keeps::Nothing: break;
    }
    return value;
}

} // namespace ko

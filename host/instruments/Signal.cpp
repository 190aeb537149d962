#include "host/instruments/Signal.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <limits>
#include <numbers>

namespace ko {

namespace {

constexpr double turn = 2.0 * std::numbers::pi;

/// Mixes the bits of a number: every bit of the result depends on every bit of `number` (SplitMix64).
std::uint64_t mixed(std::uint64_t number)
{
    number = (number ^ (number >> 30)) * 0xbf58476d1ce4e5b9ULL;
    number = (number ^ (number >> 27)) * 0x94d049bb133111ebULL;
    return number ^ (number >> 31);
}

/// A number above 0 and up to 1.
double fraction(std::uint64_t bits)
{
    return static_cast<double>((bits >> 11) + 1) * 0x1p-53;
}

std::uint64_t seedOf(std::int32_t seed, const std::string& address)
{
    std::uint64_t mix = mixed(static_cast<std::uint32_t>(seed) + 1ULL);
    for (const char letter : address)
        mix = mixed(mix ^ static_cast<unsigned char>(letter));
    return mix;
}

double square(double u)
{
    return u < 0.5 ? 1.0 : -1.0;
}

double triangle(double u)
{
    return u < 0.5 ? 4.0 * u - 1.0 : 3.0 - 4.0 * u;
}

double shapeAt(Shape shape, double cycles)
{
    switch (shape) {
    case Shape::Sine: return std::sin(turn * cycles);
    case Shape::Square: return square(cycles - std::floor(cycles));
    case Shape::Triangle: return triangle(cycles - std::floor(cycles));
    case Shape::Constant: break;
    }
    return 0.0;
}

} // namespace

Signal::Signal(const SignalSettings& settings, const std::string& address, double period, const Range& range)
    : settings_(settings), period_(period), phase_(settings.phase / turn), seed_(seedOf(settings.seed, address)),
      lowest_(range != Range{} ? range.minimum : -std::numeric_limits<double>::infinity()),
      highest_(range != Range{} ? range.maximum : std::numeric_limits<double>::infinity())
{
}

double Signal::cycles(std::int64_t sample) const
{
    const double time = static_cast<double>(sample) * period_;
    return settings_.frequency * time + phase_;
}

double Signal::noise(std::int64_t sample) const
{
    // Gaussian by the method of Box and Muller.
    const std::uint64_t bits = mixed(seed_ + static_cast<std::uint64_t>(sample) * 0x9e3779b97f4a7c15ULL);
    const double radius = std::sqrt(-2.0 * std::log(fraction(bits)));
    return settings_.noise * radius * std::cos(turn * fraction(mixed(bits)));
}

double Signal::at(std::int64_t sample) const
{
    const double clean = settings_.offset + settings_.amplitude * shapeAt(settings_.shape, cycles(sample));
    return std::clamp(settings_.noise > 0.0 ? clean + noise(sample) : clean, lowest_, highest_);
}

void Signal::fill(std::span<float> samples, std::int64_t first) const
{
    if (settings_.shape == Shape::Sine && settings_.noise == 0.0)
        return fillSine(samples, first);
    for (float& sample : samples)
        sample = static_cast<float>(at(first++));
}

void Signal::fillSine(std::span<float> samples, std::int64_t first) const
{
    // A rotation by one step costs a tenth of a sine. It starts anew after each run, before its errors could be seen.
    constexpr std::size_t run = 128;
    const std::complex<double> step = std::polar(1.0, turn * std::remainder(settings_.frequency * period_, 1.0));
    for (std::size_t begin = 0; begin < samples.size(); begin += run) {
        const std::size_t end = std::min(begin + run, samples.size());
        const double angle = turn * cycles(first + static_cast<std::int64_t>(begin));
        double re = std::cos(angle);
        double im = std::sin(angle);
        for (std::size_t i = begin; i < end; ++i) {
            samples[i] = static_cast<float>(std::clamp(settings_.offset + settings_.amplitude * im, lowest_, highest_));
            const double turned = re * step.real() - im * step.imag();
            im = re * step.imag() + im * step.real();
            re = turned;
        }
    }
}

} // namespace ko

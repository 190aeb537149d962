// ko_chart_bench: prints what a frame of a chart of 16 channels costs, and a sample that comes into it, by the sample
// rate. Ends with 1 if a frame at the highest rate costs more than twice as much as at the lowest.
#include "host/chart/StripChart.h"
#include "host/recording/LiveSignals.h"

#include <QApplication>
#include <QImage>
#include <chrono>
#include <cmath>
#include <cstdio>

namespace {

constexpr int channels = 16;
constexpr double shownSeconds = 30.0;

double secondsSince(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

ko::PlannedInstrument instrument(double rate)
{
    ko::PlannedInstrument it;
    it.name = "Digitizer";
    it.settings.period = 1.0 / rate;
    for (int i = 0; i < channels; ++i)
        it.settings.channels.push_back({0, i, "1:" + std::to_string(i), "Channel", "V", {-2.0, 2.0}});
    return it;
}

/// A tenth of a second of all channels.
ko::Block block(double rate)
{
    ko::Block made;
    made.count = static_cast<std::int64_t>(rate / 10.0);
    for (std::int64_t i = 0; i < made.count * channels; ++i)
        made.samples.push_back(static_cast<float>(std::sin(0.3 * static_cast<double>(i))));
    return made;
}

/// The milliseconds of a frame, the fastest of many.
double frame(ko::StripChart& chart)
{
    QImage picture(chart.viewport()->size(), QImage::Format_RGB32);
    double best = 1e9;
    for (int i = 0; i < 50; ++i) {
        const auto start = std::chrono::steady_clock::now();
        chart.viewport()->render(&picture);
        best = std::min(best, secondsSince(start));
    }
    return best * 1e3;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const ko::Locale locale;
    double first = 0.0, last = 0.0;
    for (const double rate : {1e3, 1e4, 1e5, 1e6}) {
        const auto source = std::make_shared<ko::LiveSignals>(std::vector{instrument(rate)});
        const ko::Block part = block(rate);
        const auto start = std::chrono::steady_clock::now();
        for (int i = 0; i < static_cast<int>(shownSeconds * 10.0); ++i)
            source->append(0, part, 0, part.count);
        const double each = secondsSince(start) / (shownSeconds * rate * channels);
        ko::StripChart chart([](int) { return QStringLiteral("%1"); }, locale, nullptr);
        chart.resize(1000, 1200);
        chart.show(source, true);
        const double following = frame(chart);
        chart.showAll();
        last = frame(chart);
        first = first > 0.0 ? first : last;
        std::printf("%7.0f Sa/s: %.2f ms for the last 10 s, %.2f ms for all, %.1f ns for a sample\n", rate, following,
                    last, each * 1e9);
    }
    return last < 2.0 * first ? 0 : 1;
}

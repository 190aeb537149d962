#include "host/recording_view/RunTexts.h"

#include "host/recording/UnfinishedFile.h"
#include "host/support/HostTexts.h"
#include "host/toolkit/SizeText.h"
#include "platform/DateTimes.h"
#include "platform/NumberText.h"

#include <algorithm>
#include <cmath>

namespace ko {

namespace {

namespace recordText = textNumber::record;

/// The sums over all instruments.
struct Sums {
    std::int64_t samples = 0;
    std::int64_t lost = 0;
    double bytes = 0.0;
};

Sums sumsOf(const RecordingProgress& progress)
{
    Sums sums;
    for (const InstrumentProgress& instrument : progress.instruments) {
        sums.samples += instrument.samples;
        sums.lost += instrument.lost;
        sums.bytes += instrument.bytes;
    }
    return sums;
}

/// Seconds from the first sample to the end of the last one.
double wholeTime(const RecordingProgress& progress)
{
    double time = 0.0;
    for (const InstrumentProgress& it : progress.instruments)
        time = std::max(time, it.startOffset + static_cast<double>(it.planned) * it.period);
    return time;
}

double recordedTime(const RecordingProgress& progress)
{
    double time = 0.0;
    for (const InstrumentProgress& it : progress.instruments)
        time = std::max(time, it.startOffset + static_cast<double>(it.samples) * it.period);
    return time;
}

QString number(double value, const Locale& locale)
{
    return toQt(numberText(value, locale));
}

QString count(std::int64_t value, const Locale& locale)
{
    return toQt(countText(value, locale));
}

RunText recordingText(const RecordingProgress& progress, const Texts& texts, const Locale& locale)
{
    const Sums sums = sumsOf(progress);
    const double whole = wholeTime(progress);
    const double done = recordedTime(progress);
    const double speed = done > 0.0 ? sums.bytes / done : 0.0;
    RunText text;
    text.state = texts(recordText::recording).arg(spanText(done, texts, locale), spanText(whole, texts, locale));
    text.details =
        texts(recordText::details)
            .arg(count(sums.samples, locale), sizeText(sums.bytes, texts, locale), sizeText(speed, texts, locale),
                 spanText(std::max(whole - done, 0.0), texts, locale), count(sums.lost, locale));
    text.share = whole > 0.0 ? std::min(done / whole, 1.0) : 1.0;
    return text;
}

} // namespace

RunText runText(const RecordingProgress& progress, const RecordingPlan& plan, Moment now, const Texts& texts,
                const Locale& locale)
{
    switch (progress.state) {
    case RunState::WaitingForTime: {
        const auto start = nextMoment(plan.startTime, now);
        const double toGo = start ? std::ceil(std::chrono::duration<double>(*start - now).count()) : 0.0;
        return {texts(recordText::waitingForTime)
                    .arg(toQt(generalDate(plan.startTime, locale)), spanText(toGo, texts, locale)),
                {}};
    }
    case RunState::WaitingForTrigger: return {texts(recordText::waitingForTrigger), {}};
    case RunState::Recording: return recordingText(progress, texts, locale);
    default: {
        RunText text = recordingText(progress, texts, locale);
        text.state = texts(recordText::finishing);
        return text;
    }
    }
}

QString endText(const std::string& state, const Texts& texts)
{
    if (state == recordedState::complete)
        return texts(recordText::complete);
    if (state == recordedState::stopped)
        return texts(recordText::stopped);
    return texts(state == recordedState::failed ? recordText::failed : recordText::unfinished);
}

QString spanText(double seconds, const Texts& texts, const Locale& locale)
{
    constexpr double minute = 60.0;
    if (seconds < minute)
        return texts(textNumber::plan::seconds).arg(number(std::floor(seconds * 10.0) / 10.0, locale));
    const auto whole = static_cast<std::int64_t>(seconds);
    return QString::asprintf("%lld:%02lld:%02lld", static_cast<long long>(whole / 3600),
                             static_cast<long long>(whole / 60 % 60), static_cast<long long>(whole % 60));
}

} // namespace ko

#pragma once

#include "host/recording/Moments.h"
#include "host/recording/RecordingTask.h"
#include "platform/Locale.h"
#include "widgets/support/Convert.h"

namespace ko {

/// What is shown of a recording in progress.
struct RunText {
    QString state;       ///< "Recording, 12.3 s of 0:05:00"
    QString details;     ///< samples, size, speed, time to go, lost samples; empty while nothing is recorded
    double share = -1.0; ///< of the whole recording; negative: unknown
};

/// `now` is the time of the user's clock, for a start that is waited for.
RunText runText(const RecordingProgress& progress, const RecordingPlan& plan, Moment now, const Texts& texts,
                const Locale& locale);

/// One sentence about how a recording ended, by the state in its file.
QString endText(const std::string& state, const Texts& texts);

/// "12.3 s", or "1:02:03" from a minute on.
QString spanText(double seconds, const Texts& texts, const Locale& locale);

} // namespace ko

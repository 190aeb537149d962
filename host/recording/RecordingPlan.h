#pragma once

#include "host/instruments/Instrument.h"

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <stdexcept>

namespace ko {

class Page;
struct Locale;

using Instruments = std::vector<std::shared_ptr<Instrument>>;

/// A recording is not begun. The message contains the reason.
class RecordingRefusal : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// What an instrument waits for.
enum class StartsOn { Arming, OwnTrigger, StartLine };

/// What an instrument will deliver.
struct PlannedInstrument {
    std::size_t index = 0; ///< in the set-up
    std::string name;
    ArmedSettings settings;
    std::int64_t samples = 0; ///< of each channel
    bool isFixed = false;     ///< the instrument fixes the number of samples, whatever its settings are
    double pageBytes = 0.0;   ///< the disk space that the page promises
    StartsOn starts = StartsOn::Arming;

    /// One without enabled channels only triggers the others.
    [[nodiscard]] bool isRecorded() const { return !settings.channels.empty(); }
    [[nodiscard]] double bytes() const;
};

/// What a recording will hold, by the rules of the page.
struct RecordingPlan {
    std::vector<PlannedInstrument> instruments; ///< that have a timebase and enabled channels, or trigger
    std::int32_t startMode = startMode::immediately;
    DateTime startTime;

    /// An instrument acquires in real time, however it is ordered.
    bool isRealTime = false;

    /// Bytes of all samples.
    [[nodiscard]] double bytes() const;

    /// Sets the date of a start at a time of day.
    void startOn(std::optional<DateTime> date);
};

/// What `planRecording` makes of an instrument.
enum class PlanFor {
    Comparison, ///< leaves it alone
    Recording   ///< arms it
};

/// Returns the text with this number, in the page's language.
using TextSource = std::function<std::string(int number)>;

/// Plans a recording of the instruments. Fails with a `RecordingRefusal` if it would be larger than the page allows,
/// with the page's message; if the recording cannot start; and if there is nothing to record. No instrument stays armed
/// then. None of them may be recording. Called on the user-interface thread.
RecordingPlan planRecording(const Instruments& instruments, PlanFor purpose, const TextSource& text);

/// Returns the date of a start at a time of day: that of `now` if the page stops at a date, else none, for the next
/// such time. A page that is made read-only forgets the date of its stop time.
std::optional<DateTime> dateOfStart(const Page& page, const Locale& locale, DateTime now);

/// Disarms the instruments.
void disarm(const Instruments& instruments);

} // namespace ko

#pragma once

#include "widgets/support/Convert.h"

#include <optional>
#include <string>

class QWidget;

namespace ko {

struct Locale;

/// The user's decision about a start time that is past.
enum class PastStart { Now, Tomorrow, Cancel };

/// What the user is to record.
struct RecordOffer {
    std::string file;   ///< a free name
    double bytes = 0.0; ///< that the file will take
};

/// Asks what to do about a start at `time`, which is past; `tomorrow` is the same time of the next day.
PastStart askPastStart(QWidget& window, const Texts& texts, const QString& time, const QString& tomorrow);

/// Asks for the file of a recording, showing needed and free space. Never returns an existing file that the user has
/// not agreed to replace. Returns an empty path if the user cancels.
std::string askFileToRecord(QWidget& window, const Texts& texts, const Locale& locale, const RecordOffer& offer);

/// Returns whether the recording in progress is to be stopped.
bool askToStop(QWidget& window, const Texts& texts);

} // namespace ko

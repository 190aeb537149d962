#pragma once

#include "host/recording/RecordingPlan.h"
#include "host/settings/HeadlessPage.h"

namespace ko {

/// The command line's options for recordings; empty: not given.
struct RecordCommand {
    std::string record;  ///< file to record into
    std::string compare; ///< file to compare with the set-up

    [[nodiscard]] bool isGiven() const { return !record.empty() || !compare.empty(); }
};

/// Records the instruments of the page and compares files with the plan, as the command says, and prints the results.
/// `setup` gives the title and the clock. An interrupt stops the recording. Returns false if a file does not hold what
/// was promised. Fails with a `RecordingRefusal`, or with an `InputError` if a file cannot be written or read.
bool runRecording(const RecordCommand& command, const Setup& setup, HeadlessPage& page);

} // namespace ko

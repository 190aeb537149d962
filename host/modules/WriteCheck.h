#pragma once

#include "host/modules/DriverAnswers.h"

namespace ko {

/// Writes good and bad values by the driver's operations, and compares after each what the driver answers with what the
/// instrument holds. Leaves the instrument as it was.
void checkWrites(const OpenedInstrument& opened);

/// Restores what the instrument holds, other settings that it has held, and settings with other views; and keeps what
/// it holds in a set-up file. Leaves the instrument as it was.
void checkRestore(const OpenedInstrument& opened);

/// Restores these settings and checks that the instrument then holds them, and still has the same driver and views.
void restoreExactly(const OpenedInstrument& opened, const InstrumentSettings& settings, const std::string& call);

/// Returns where two settings differ first: "/timebase/duration"; empty if they are the same.
std::string differenceOf(const InstrumentSettings& one, const InstrumentSettings& other);

} // namespace ko

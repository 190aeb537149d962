#pragma once

#include "host/instruments/Instrument.h"
#include "host/modules/CheckLog.h"
#include "interfaces/Timebase.h"
#include "interfaces/TriggerLines.h"
#include "interfaces/TriggerParameters.h"

namespace ko {

/// An opened instrument with its driver's views, as the driver has returned them first.
struct OpenedInstrument {
    CheckLog& log;
    Instrument& instrument;
    Driver& driver;
    Timebase* timebase = nullptr;
    TriggerParameters* parameters = nullptr;
    TriggerLines* lines = nullptr;

    /// Returns what the instrument holds; default settings if that fails.
    [[nodiscard]] InstrumentSettings held() const;
};

/// Queries the views and checks that they are those that the instrument holds. Returns none if the instrument has no
/// driver.
std::optional<OpenedInstrument> openedInstrument(CheckLog& log, Instrument& instrument);

/// Each compares what the driver answers with what the instrument holds.
void compareAnswers(const OpenedInstrument& opened);
void compareGroups(const OpenedInstrument& opened, const InstrumentSettings& held);
void compareTimebase(const OpenedInstrument& opened, const InstrumentSettings& held);
void compareParameters(const OpenedInstrument& opened, const InstrumentSettings& held);
void compareLines(const OpenedInstrument& opened, const InstrumentSettings& held);

/// Calls every operation that takes an index with indices that do not exist.
void checkIndices(const OpenedInstrument& opened);

/// The call as findings write it: "GetTriggerParamName(0, 1, 7)".
std::string calledWith(std::string_view operation, std::initializer_list<std::int32_t> arguments);

/// The call of a timebase number: "setSamplePeriod" or "SamplePeriod".
std::string numberCall(std::string_view prefix, std::string_view name);

} // namespace ko

#pragma once

#include "platform/Locale.h"
#include "schedule/SetDateTime.h"
#include "widgets/Convert.h"
#include "widgets/QtModalForms.h"

namespace ko {

/// Registers the view of the date-and-time dialog. Times are in the format of `locale`. The form outlives `modalForms`.
void addDateDialog(QtModalForms& modalForms, SetDateTime& setDateTime, const Texts& texts, const Locale& locale);

} // namespace ko

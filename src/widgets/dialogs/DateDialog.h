#pragma once

#include "schedule/SetDateTime.h"
#include "widgets/dialogs/QtModalForms.h"
#include "widgets/support/Convert.h"

namespace ko {

/// Registers the view of the date-and-time dialog. The form must outlive `modalForms`.
void addDateDialog(QtModalForms& modalForms, SetDateTime& setDateTime, const Texts& texts);

} // namespace ko

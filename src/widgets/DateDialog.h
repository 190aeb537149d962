#pragma once

#include "platform/Locale.h"
#include "widgets/Convert.h"
#include "widgets/QtModalForms.h"

#include <vector>

namespace ko {

/// Registers the view of the date-and-time dialog among the component's dialogs. How large it is it finds out when the
/// dialog is first placed. Times are in the format of `locale`. The forms outlive `modalForms`.
void addDateDialog(QtModalForms& modalForms, const std::vector<Form*>& dialogs, const Texts& texts,
                   const Locale& locale);

} // namespace ko

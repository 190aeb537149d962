#pragma once

#include "widgets/Convert.h"
#include "widgets/QtModalForms.h"

#include <vector>

namespace ko {

/// Registers the views of the trigger dialogs among the component's dialogs. How large a dialog's view is it finds out
/// when the dialog is first placed. `texts` and the forms outlive `modalForms`.
void addTriggerDialogs(QtModalForms& modalForms, const std::vector<Form*>& dialogs, const Texts& texts);

} // namespace ko

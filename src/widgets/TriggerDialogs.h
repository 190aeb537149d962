#pragma once

#include "widgets/Convert.h"
#include "widgets/QtModalForms.h"

#include <vector>

namespace ko {

/// Registers the views of the trigger dialogs among the component's dialogs, and tells each dialog how large its view
/// is, for it to be placed by. `texts` and the forms outlive `modalForms`.
void addTriggerDialogs(QtModalForms& modalForms, const std::vector<Form*>& dialogs, const Texts& texts);

} // namespace ko

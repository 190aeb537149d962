#pragma once

#include "triggering/AdvancedTrig.h"
#include "triggering/SelectChannel.h"
#include "widgets/dialogs/QtModalForms.h"
#include "widgets/support/Convert.h"

namespace ko {

/// Registers the views of the trigger dialogs. `texts` and the forms must outlive `modalForms`.
void addTriggerDialogs(QtModalForms& modalForms, SelectChannel& selectChannel, AdvancedTrig& advancedTrig,
                       const Texts& texts);

} // namespace ko

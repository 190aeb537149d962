#pragma once

#include "timebase/ShowOffers.h"
#include "widgets/dialogs/QtModalForms.h"
#include "widgets/support/Convert.h"

namespace ko {

/// Registers the view of the dialog of offers. The form outlives `modalForms`.
void addOffersDialog(QtModalForms& modalForms, ShowOffers& showOffers, const Texts& texts);

} // namespace ko

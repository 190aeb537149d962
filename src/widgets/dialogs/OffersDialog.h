#pragma once

#include "timebase/ShowOffers.h"
#include "widgets/dialogs/QtModalForms.h"
#include "widgets/support/Convert.h"

namespace ko {

/// Registers the view of the offers dialog. The form must outlive `modalForms`.
void addOffersDialog(QtModalForms& modalForms, ShowOffers& showOffers, const Texts& texts);

} // namespace ko

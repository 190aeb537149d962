#pragma once

#include "widgets/Convert.h"
#include "widgets/QtModalForms.h"

#include <vector>

namespace ko {

/// Shows the component's dialog `ShowOffers`, which is among `dialogs`.
void addOffersDialog(QtModalForms& modalForms, const std::vector<Form*>& dialogs, const Texts& texts);

} // namespace ko

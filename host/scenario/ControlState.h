#pragma once

#include "host/scenario/EventLog.h"
#include "page/Page.h"

#include <optional>
#include <string>

namespace ko {

/// Returns the control's properties as scripts see them.
Json controlState(const Control& control);
/// Returns the form's own properties, without its controls.
Json formState(const Form& form);

/// Returns the document's fields that scripts can query.
Json pageState(const Page& page);

/// Returns a property as text: strings unquoted, everything else as JSON.
std::string propertyText(const Json& property);

} // namespace ko

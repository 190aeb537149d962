#pragma once

#include "host/scenario/EventLog.h"
#include "page/Page.h"

#include <optional>
#include <string>

namespace ko {

/// A control's properties as scripts see them.
Json controlState(const Control& control);
/// A form's own properties.
Json formState(const Form& form);

/// The document's fields that scripts see beside the controls.
Json pageState(const Page& page);

/// A property as text: texts as they are, everything else as JSON writes it.
std::string propertyText(const Json& property);

} // namespace ko

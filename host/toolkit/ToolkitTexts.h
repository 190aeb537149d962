#pragma once

#include <QString>

namespace ko {

/// Sets the language of the toolkit's own texts, such as the buttons of message boxes, by a code ("de", "pt_BR").
/// Returns false if the toolkit has no catalogue for it; its texts are then English.
bool loadToolkitTexts(const QString& language);

} // namespace ko

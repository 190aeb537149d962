#pragma once

#include <QString>

namespace ko {

/// The toolkit's own texts, such as the buttons of message boxes, from now on in the language of this code ("de",
/// "pt_BR"). False where the toolkit has no catalogue for it; its texts are then English.
bool loadToolkitTexts(const QString& language);

} // namespace ko

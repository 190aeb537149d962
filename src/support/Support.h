#pragma once

#include "platform/Services.h"
#include "support/Errors.h"
#include "support/LocaleSettings.h"
#include "support/StringTable.h"

#include <optional>

namespace ko {

/// What every section of the component works with; one for all documents of a component.
class Support {
public:
    Support(const Platform& onPlatform, std::string_view language)
        : platform(onPlatform), strings(language), errors(strings, onPlatform.createErrorReporter)
    {
    }

    const Platform platform;
    const StringTable strings;
    Errors errors;
    LocaleSettings localeSettings;

    [[nodiscard]] const std::string& text(int number) const { return strings.text(number); }
    [[nodiscard]] const Locale& locale() const { return platform.locale; }

    /// The width of a vertical scroll bar in twips, asked for once.
    std::int32_t scrollBarWidth();

private:
    std::optional<std::int32_t> scrollBarWidth_;
};

} // namespace ko

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
        : platform(onPlatform), strings(language), errors(strings, onPlatform.createErrorReporter),
          locale_(completed(onPlatform.locale))
    {
        localeSettings = readLocaleSettings(locale_);
    }

    const Platform platform;
    const StringTable strings;
    Errors errors;
    LocaleSettings localeSettings;

    [[nodiscard]] const std::string& text(int number) const { return strings.text(number); }
    /// The user's regional settings, completed so that every date and time reads back.
    [[nodiscard]] const Locale& locale() const { return locale_; }
    /// Reads the six settings of the time of day anew; the others stay, as documents show numbers and dates in them.
    /// Failures of the platform reach the caller.
    void readTimeSettings();

    /// The width of a vertical scroll bar in twips, asked for once.
    std::int32_t scrollBarWidth();

private:
    Locale locale_;
    std::optional<std::int32_t> scrollBarWidth_;
};

} // namespace ko

#pragma once

#include "platform/Services.h"
#include "support/Errors.h"
#include "support/LocaleSettings.h"
#include "support/StringTable.h"

#include <memory>
#include <optional>
#include <utility>

namespace ko {

/// Services for the dialogs of a component and the sections of a document. All documents share the platform, texts,
/// time formats and error reporter; each document has its own events.
class Support {
    struct Common {
        Platform platform;
        StringTable strings;
        Locale locale;
        LocaleSettings localeSettings;
    };

public:
    /// Creates the support of a component.
    Support(const Platform& onPlatform, std::string_view language)
        : Support(std::make_shared<Common>(Common{onPlatform, StringTable(language), completed(onPlatform.locale), {}}))
    {
        common_->localeSettings = readLocaleSettings(common_->locale);
    }
    /// Creates the support of a document of the component.
    Support(const Support& ofComponent)
        : common_(ofComponent.common_), platform(ofComponent.platform), strings(ofComponent.strings),
          errors(ofComponent.errors), localeSettings(ofComponent.localeSettings)
    {
    }
    Support& operator=(const Support&) = delete;
    ~Support() = default;

private:
    std::shared_ptr<Common> common_;

public:
    const Platform& platform;
    const StringTable& strings;
    Errors errors;
    const LocaleSettings& localeSettings;

    [[nodiscard]] const std::string& text(int number) const { return strings.text(number); }
    /// The user's regional settings, completed so that every date and time reads back.
    [[nodiscard]] const Locale& locale() const { return common_->locale; }
    /// Reads the six time-of-day settings again; the other settings stay, because documents show numbers and dates with
    /// them. Failures of the platform reach the caller.
    void readTimeSettings();

    /// The width of a vertical scroll bar in twips; queried once.
    std::int32_t scrollBarWidth();

private:
    explicit Support(std::shared_ptr<Common> common)
        : common_(std::move(common)), platform(common_->platform), strings(common_->strings),
          errors(strings, platform.createErrorReporter), localeSettings(common_->localeSettings)
    {
    }

    std::optional<std::int32_t> scrollBarWidth_;
};

} // namespace ko

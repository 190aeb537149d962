#include "support/Support.h"

#include "platform/NumberText.h"

namespace ko {

void Support::readTimeSettings()
{
    const Locale now = platform.readLocale ? platform.readLocale() : platform.locale;
    Locale locale = common_->locale;
    locale.timeFormat = now.timeFormat;
    locale.timeIs24Hour = now.timeIs24Hour;
    locale.timeLeadingZero = now.timeLeadingZero;
    locale.timeSeparator = now.timeSeparator;
    locale.amDesignator = now.amDesignator;
    locale.pmDesignator = now.pmDesignator;
    if (locale != common_->locale)
        common_->locale = completed(locale);
    common_->localeSettings = readLocaleSettings(common_->locale);
}

std::int32_t Support::scrollBarWidth()
{
    if (!scrollBarWidth_)
        scrollBarWidth_ = toLong(platform.screen.verticalScrollBarWidth() * platform.screen.twipsPerPixelX());
    return *scrollBarWidth_;
}

} // namespace ko

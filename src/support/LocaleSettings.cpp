#include "support/LocaleSettings.h"

#include "platform/NumberText.h"

namespace ko {

LocaleSettings readLocaleSettings(const Locale& locale)
{
    return {locale.timeFormat,
            toLong(leadingNumber(locale.timeIs24Hour)),
            toLong(leadingNumber(locale.timeLeadingZero)),
            locale.timeSeparator,
            locale.amDesignator,
            locale.pmDesignator};
}

} // namespace ko

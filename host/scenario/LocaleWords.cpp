#include "host/scenario/LocaleWords.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace ko {

namespace {

struct Setting {
    std::string_view name;
    std::string Locale::*value;
};

constexpr std::array settings{Setting{"decimalSeparator", &Locale::decimalSeparator},
                              Setting{"digitGroupSeparator", &Locale::digitGroupSeparator},
                              Setting{"shortDateFormat", &Locale::shortDateFormat},
                              Setting{"timeFormat", &Locale::timeFormat},
                              Setting{"timeIs24Hour", &Locale::timeIs24Hour},
                              Setting{"timeLeadingZero", &Locale::timeLeadingZero},
                              Setting{"timeSeparator", &Locale::timeSeparator},
                              Setting{"amDesignator", &Locale::amDesignator},
                              Setting{"pmDesignator", &Locale::pmDesignator}};

} // namespace

std::vector<std::string> localeWords(const Locale& locale)
{
    std::vector<std::string> words;
    for (const Setting& setting : settings)
        if (locale.*setting.value != Locale().*setting.value)
            words.push_back(std::string(setting.name) + "=" + locale.*setting.value);
    return words;
}

bool takeLocaleWord(Locale& locale, const std::string& word)
{
    const std::size_t sign = word.find('=');
    const auto named = std::find_if(settings.begin(), settings.end(), [&](const Setting& setting) {
        return sign != std::string::npos && setting.name == std::string_view(word).substr(0, sign);
    });
    if (named == settings.end())
        return false;
    locale.*named->value = word.substr(sign + 1);
    return true;
}

} // namespace ko

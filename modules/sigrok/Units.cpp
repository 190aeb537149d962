#include "modules/sigrok/Units.h"

#include "modules/sigrok/Attempt.h"

namespace ko::sigrok {

std::string unitText(sr_unit unit)
{
    sr_analog_meaning meaning{};
    meaning.unit = unit;
    sr_datafeed_analog asked{};
    asked.meaning = &meaning;
    char* made = nullptr;
    attempt("unit", [&] { return sr_analog_unit_to_string(&asked, &made); });
    const std::string text = made ? made : "";
    g_free(made);
    const std::size_t begin = text.find_first_not_of(' ');
    return begin == std::string::npos ? "" : text.substr(begin);
}

} // namespace ko::sigrok

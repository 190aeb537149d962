#include "host/SystemLocale.h"

#include <array>
#include <clocale>
#include <langinfo.h>
#include <string_view>

namespace ko {

namespace {

struct Piece {
    char code;
    std::string_view picture;
};

constexpr std::array pieces{Piece{'d', "dd"},       Piece{'e', "d"},         Piece{'m', "MM"},
                            Piece{'Y', "yyyy"},     Piece{'y', "yy"},        Piece{'H', "HH"},
                            Piece{'k', "H"},        Piece{'I', "hh"},        Piece{'l', "h"},
                            Piece{'M', "mm"},       Piece{'S', "ss"},        Piece{'p', "tt"},
                            Piece{'T', "HH:mm:ss"}, Piece{'R', "HH:mm"},     Piece{'r', "hh:mm:ss tt"},
                            Piece{'D', "MM/dd/yy"}, Piece{'F', "yyyy-MM-dd"}};

std::string_view pictureOf(char code)
{
    for (const Piece& piece : pieces)
        if (piece.code == code)
            return piece.picture;
    return {};
}

/// A format of the C library ("%d.%m.%Y") as a format picture ("dd.MM.yyyy").
std::string picture(std::string_view format)
{
    std::string result;
    for (std::size_t at = 0; at < format.size(); ++at) {
        if (format[at] != '%') {
            result += format[at];
            continue;
        }
        do
            ++at;
        while (at < format.size() && std::string_view("-_0^#EO").find(format[at]) != std::string_view::npos);
        result += at < format.size() ? pictureOf(format[at]) : std::string_view{};
    }
    return result;
}

void put(std::string& into, std::string text)
{
    if (!text.empty())
        into = std::move(text);
}

std::string separatorOf(const std::string& timeFormat)
{
    const std::size_t start = timeFormat.find_first_of("hH");
    const std::size_t at = timeFormat.find_first_not_of("hH", start == std::string::npos ? 0 : start);
    return at == std::string::npos ? ":" : timeFormat.substr(at, 1);
}

} // namespace

Locale systemLocale()
{
    Locale result;
    const locale_t user = newlocale(LC_ALL_MASK, "", locale_t{});
    if (!user)
        return result;
    put(result.decimalSeparator, nl_langinfo_l(RADIXCHAR, user));
    put(result.digitGroupSeparator, nl_langinfo_l(THOUSEP, user));
    put(result.shortDateFormat, picture(nl_langinfo_l(D_FMT, user)));
    put(result.timeFormat, picture(nl_langinfo_l(T_FMT, user)));
    put(result.amDesignator, nl_langinfo_l(AM_STR, user));
    put(result.pmDesignator, nl_langinfo_l(PM_STR, user));
    freelocale(user);
    result.timeIs24Hour = result.timeFormat.find('H') != std::string::npos ? "1" : "0";
    const bool twoDigits =
        result.timeFormat.find("HH") != std::string::npos || result.timeFormat.find("hh") != std::string::npos;
    result.timeLeadingZero = twoDigits ? "1" : "0";
    result.timeSeparator = separatorOf(result.timeFormat);
    return result;
}

} // namespace ko

#pragma once

#include "platform/Locale.h"

namespace ko::test {

inline Locale localeOf(std::string_view date, std::string_view time, std::string_view separator = ":",
                       std::string_view am = "AM", std::string_view pm = "PM")
{
    Locale locale;
    locale.shortDateFormat = date;
    locale.timeFormat = time;
    locale.timeSeparator = separator;
    locale.amDesignator = am;
    locale.pmDesignator = pm;
    return locale;
}

const Locale english;
const Locale german = localeOf("dd.MM.yyyy", "HH:mm:ss", ":", "", "");
const Locale japanese = localeOf("yyyy/MM/dd", "H:mm:ss", ":", "\xE5\x8D\x88\xE5\x89\x8D", "\xE5\x8D\x88\xE5\xBE\x8C");
const Locale finnish = localeOf("d.M.yyyy", "H.mm.ss", ".", "ap.", "ip.");
const Locale korean = localeOf("yy. M. d.", "tt h:mm:ss", ":", "A", "P");
const Locale quoted = localeOf("dd/MM/yy 'd''s'", "HH 'h' mm 'min' ss 's'");

} // namespace ko::test

#pragma once

#include "platform/Locale.h"

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

namespace ko {

/// How a member of an instrument is shown and typed as text. Lists are separated by semicolons, because commas are
/// decimal separators; a missing member is the empty text.
enum class TextForm {
    Text,           ///< as it is
    Name,           ///< the same; empty: the member is missing
    Number,         ///< in the locale of the user
    OptionalNumber, ///< the same; empty: the member is missing
    Numbers,        ///< a list; empty: the member is missing
    Rate,           ///< a period as its rate
    Rates,          ///< a list of periods as rates, in reversed order, so that both lists can be ascending
    Words,          ///< a list of texts; one with a semicolon, a quote or outer blanks is in quotes, its quotes doubled
    Flag,           ///< "true" or "false"
    Any             ///< a number or else a text; empty: null
};

/// Returns the form of a trigger parameter's value.
TextForm valueForm(std::string_view type);

/// Returns a member as text. What is no value of the form is shown as it was typed.
std::string propertyText(const nlohmann::ordered_json& member, TextForm form, const Locale& locale);

/// Returns the member that a text means. Numbers whose text is that of a number of `held` mean exactly that number.
/// What cannot be read becomes a JSON text, which the reader of set-up files then refuses. A member that is to be
/// missing is returned as a discarded value.
nlohmann::ordered_json propertyMember(const std::string& text, TextForm form, const Locale& locale,
                                      const nlohmann::ordered_json& held);

} // namespace ko

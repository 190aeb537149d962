#include "host/setup/PropertyText.h"

#include "host/instruments/ParameterTypes.h"
#include "platform/Failure.h"
#include "platform/NumberText.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <vector>

namespace ko {

namespace {

using Member = nlohmann::ordered_json;

bool isRate(TextForm form)
{
    return form == TextForm::Rate || form == TextForm::Rates;
}

bool isList(TextForm form)
{
    return form == TextForm::Numbers || form == TextForm::Rates || form == TextForm::Words;
}

bool isNumber(TextForm form)
{
    return isRate(form) || form == TextForm::Number || form == TextForm::OptionalNumber || form == TextForm::Numbers ||
           form == TextForm::Any;
}

constexpr const char* blanks = " \t\r\n";

std::string trimmed(const std::string& text)
{
    const std::size_t first = text.find_first_not_of(blanks);
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

std::string quoted(const std::string& text)
{
    if (!text.empty() && text == trimmed(text) && text.find_first_of(";\"") == std::string::npos)
        return text;
    std::string result = "\"";
    for (const char c : text)
        result += c == '"' ? std::string("\"\"") : std::string(1, c);
    return result + "\"";
}

std::string unquoted(const std::string& text)
{
    if (text.size() < 2 || text.front() != '"' || text.back() != '"')
        return text;
    std::string result;
    for (std::size_t i = 1; i + 1 < text.size(); ++i) {
        result += text[i];
        if (text[i] == '"' && text[i + 1] == '"')
            ++i;
    }
    return result;
}

/// Splits at semicolons outside of quotes, and after entries at the line breaks and tabs of pasted spreadsheet cells.
/// The text after the last one is no entry if it is empty.
std::vector<std::string> entriesOf(const std::string& text)
{
    std::vector<std::string> entries(1);
    bool isQuoted = false;
    for (const char c : text) {
        isQuoted = isQuoted != (c == '"');
        const bool isCellEnd = (c == '\n' || c == '\t') && !trimmed(entries.back()).empty();
        if ((c == ';' || isCellEnd) && !isQuoted)
            entries.emplace_back();
        else
            entries.back() += c;
    }
    std::transform(entries.begin(), entries.end(), entries.begin(), trimmed);
    if (entries.back().empty())
        entries.pop_back();
    return entries;
}

std::string scalarText(const Member& value, TextForm form, const Locale& locale)
{
    if (value.is_number())
        return numberText(isRate(form) ? 1.0 / value.get<double>() : value.get<double>(), locale);
    if (value.is_boolean())
        return value.get<bool>() ? "true" : "false";
    if (!value.is_string())
        return {};
    return form == TextForm::Words ? quoted(value.get<std::string>()) : value.get<std::string>();
}

/// Whole numbers are written without a fraction, as in files.
Member numberMember(double number)
{
    const auto whole = wholeNumber(number);
    return whole ? Member(*whole) : Member(number);
}

Member numberOrText(const std::string& text, TextForm form, const Locale& locale)
{
    if (!isNumeric(text, locale))
        return text;
    try {
        const double number = toDouble(text, locale);
        const double meant = isRate(form) ? 1.0 / number : number;
        return std::isfinite(meant) ? numberMember(meant) : Member(text);
    } catch (const Failure&) { // too large
        return text;
    }
}

Member scalarMember(const std::string& text, TextForm form, const Locale& locale)
{
    if (isNumber(form))
        return numberOrText(text, form, locale);
    if (form == TextForm::Flag && (text == "true" || text == "false"))
        return text == "true";
    return form == TextForm::Words ? unquoted(text) : text;
}

/// Returns the first of these values with this text, which it removes; none: what the text means.
Member takenOr(std::vector<Member>& held, const std::string& text, TextForm form, const Locale& locale)
{
    const auto same = std::find_if(held.begin(), held.end(), [&](const Member& value) {
        return !value.is_string() && scalarText(value, form, locale) == text;
    });
    if (same == held.end())
        return scalarMember(text, form, locale);
    Member taken = *same;
    held.erase(same);
    return taken;
}

Member listMember(const std::string& text, TextForm form, const Locale& locale, std::vector<Member> held)
{
    Member list = Member::array();
    if (form == TextForm::Rates)
        std::reverse(held.begin(), held.end());
    for (const std::string& entry : entriesOf(text))
        list.push_back(takenOr(held, entry, form, locale));
    if (form == TextForm::Rates)
        std::reverse(list.begin(), list.end());
    return list.empty() ? Member(Member::value_t::discarded) : list;
}

bool isMissing(const std::string& text, TextForm form)
{
    return text.empty() && (form == TextForm::Name || form == TextForm::OptionalNumber);
}

} // namespace

TextForm valueForm(std::string_view type)
{
    if (isNumericType(type))
        return TextForm::Number;
    if (type == "Bool")
        return TextForm::Flag;
    return valueTypeName(type).empty() ? TextForm::Any : TextForm::Text;
}

std::string propertyText(const Member& member, TextForm form, const Locale& locale)
{
    if (!member.is_array())
        return scalarText(member, form, locale);
    std::vector<std::string> entries;
    for (const Member& value : member)
        entries.push_back(scalarText(value, form, locale));
    if (form == TextForm::Rates)
        std::reverse(entries.begin(), entries.end());
    std::string text;
    for (const std::string& entry : entries)
        text += (text.empty() ? "" : "; ") + entry;
    return text;
}

Member propertyMember(const std::string& text, TextForm form, const Locale& locale, const Member& held)
{
    std::vector<Member> values(held.begin(), held.end()); // of a scalar: itself
    if (isList(form))
        return listMember(text, form, locale, std::move(values));
    if (form == TextForm::Text || form == TextForm::Name)
        return isMissing(text, form) ? Member(Member::value_t::discarded) : Member(text);
    const std::string entry = trimmed(text);
    if (isMissing(entry, form))
        return Member::value_t::discarded;
    if (entry.empty() && form == TextForm::Any)
        return nullptr;
    return takenOr(values, entry, form, locale);
}

} // namespace ko

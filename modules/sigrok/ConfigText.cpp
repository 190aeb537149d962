#include "modules/sigrok/ConfigText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <sstream>

namespace ko::sigrok {

namespace {

const char* signatureOf(int datatype)
{
    switch (datatype) {
    case SR_T_UINT64: return "t";
    case SR_T_STRING: return "s";
    case SR_T_BOOL: return "b";
    case SR_T_FLOAT: return "d";
    case SR_T_INT32: return "i";
    case SR_T_RATIONAL_PERIOD:
    case SR_T_RATIONAL_VOLT:
    case SR_T_UINT64_RANGE: return "(tt)";
    case SR_T_DOUBLE_RANGE: return "(dd)";
    case SR_T_MQ: return "(ut)";
    default: return nullptr;
    }
}

template <class T> std::string numberText(T value)
{
    char text[32] = "";
    return {text, std::to_chars(std::begin(text), std::end(text), value).ptr};
}

template <class T> std::optional<T> numberIn(std::string_view text)
{
    T value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool isWhole = error == std::errc() && end == text.data() + text.size();
    return isWhole ? std::optional(value) : std::nullopt;
}

/// A text that libsigrok has made.
std::string taken(char* made)
{
    std::string text = made ? made : "";
    g_free(made);
    return text;
}

struct Pair {
    std::uint64_t first = 0, second = 0;
};

Pair pairIn(GVariant* value)
{
    Pair pair;
    g_variant_get(value, "(tt)", &pair.first, &pair.second);
    return pair;
}

std::string quantityName(int keyType, std::uint32_t key)
{
    const sr_key_info* const info = sr_key_info_get(keyType, key);
    return info && info->id ? info->id : "";
}

std::string quantityText(GVariant* value)
{
    std::uint32_t quantity = 0;
    std::uint64_t flags = 0;
    g_variant_get(value, "(ut)", &quantity, &flags);
    std::string text = quantityName(SR_KEY_MQ, quantity);
    for (std::uint32_t flag = 1; flag != 0; flag <<= 1U)
        if ((flags & flag) != 0)
            text += "/" + quantityName(SR_KEY_MQFLAGS, flag);
    return text;
}

GVariant* quantityOf(const std::string& text)
{
    std::istringstream words(text);
    std::string word;
    std::getline(words, word, '/');
    const sr_key_info* const quantity = sr_key_info_name_get(SR_KEY_MQ, word.c_str());
    std::uint64_t flags = 0;
    while (quantity && std::getline(words, word, '/')) {
        const sr_key_info* const flag = sr_key_info_name_get(SR_KEY_MQFLAGS, word.c_str());
        if (!flag)
            return nullptr;
        flags |= flag->key;
    }
    return quantity ? g_variant_new("(ut)", quantity->key, flags) : nullptr;
}

/// The two numbers of "A-B", of which each may have a sign.
template <class T> GVariant* rangeOf(const std::string& text, const char* signature)
{
    const std::size_t middle = text.find('-', 1);
    if (middle == std::string::npos)
        return nullptr;
    const auto from = numberIn<T>(std::string_view(text).substr(0, middle));
    const auto to = numberIn<T>(std::string_view(text).substr(middle + 1));
    return from && to ? g_variant_new(signature, *from, *to) : nullptr;
}

GVariant* rationalOf(const std::string& text, int (*parse)(const char*, std::uint64_t*, std::uint64_t*))
{
    Pair pair;
    return parse(text.c_str(), &pair.first, &pair.second) == SR_OK ? g_variant_new("(tt)", pair.first, pair.second)
                                                                   : nullptr;
}

GVariant* sizeOf(const std::string& text)
{
    std::uint64_t size = 0;
    const bool isNumber = !text.empty() && text.front() >= '0' && text.front() <= '9';
    return isNumber && sr_parse_sizestring(text.c_str(), &size) == SR_OK ? g_variant_new_uint64(size) : nullptr;
}

GVariant* floatingValueOf(const std::string& text, int datatype)
{
    switch (datatype) {
    case SR_T_UINT64: return sizeOf(text);
    case SR_T_STRING: return g_variant_new_string(text.c_str());
    case SR_T_BOOL: return text == "on" || text == "off" ? g_variant_new_boolean(text == "on") : nullptr;
    case SR_T_FLOAT: {
        const auto number = numberIn<double>(text);
        return number && std::isfinite(*number) ? g_variant_new_double(*number) : nullptr;
    }
    case SR_T_INT32: {
        const auto number = numberIn<std::int32_t>(text);
        return number ? g_variant_new_int32(*number) : nullptr;
    }
    case SR_T_RATIONAL_PERIOD: return rationalOf(text, sr_parse_period);
    case SR_T_RATIONAL_VOLT: return rationalOf(text, sr_parse_voltage);
    case SR_T_UINT64_RANGE: return rangeOf<std::uint64_t>(text, "(tt)");
    case SR_T_DOUBLE_RANGE: return rangeOf<double>(text, "(dd)");
    case SR_T_MQ: return quantityOf(text);
    default: return nullptr;
    }
}

bool isNear(double one, double other)
{
    return std::abs(one - other) <= 1e-6 * std::max(std::abs(one), std::abs(other));
}

} // namespace

std::vector<std::uint32_t> keysIn(const KeyArray& array)
{
    std::vector<std::uint32_t> keys;
    for (guint i = 0; array && i < array->len; ++i)
        keys.push_back(g_array_index(array.get(), std::uint32_t, i)); // NOLINT: a macro of casts
    return keys;
}

std::string utf8(const char* text)
{
    return text ? taken(g_utf8_make_valid(text, -1)) : std::string();
}

std::string keyName(std::uint32_t key)
{
    return quantityName(SR_KEY_CONFIG, key);
}

Variant owned(GVariant* value)
{
    return Variant(value ? g_variant_ref_sink(value) : nullptr);
}

std::optional<std::string> textOf(GVariant* value, int datatype)
{
    const char* const signature = signatureOf(datatype);
    if (!signature || !g_variant_is_of_type(value, G_VARIANT_TYPE(signature)))
        return std::nullopt;
    switch (datatype) {
    case SR_T_UINT64: return numberText(g_variant_get_uint64(value));
    case SR_T_STRING: return utf8(g_variant_get_string(value, nullptr));
    case SR_T_BOOL: return g_variant_get_boolean(value) != FALSE ? "on" : "off";
    case SR_T_FLOAT: return numberText(g_variant_get_double(value));
    case SR_T_INT32: return numberText(g_variant_get_int32(value));
    case SR_T_RATIONAL_PERIOD: return taken(sr_period_string(pairIn(value).first, pairIn(value).second));
    case SR_T_RATIONAL_VOLT: return taken(sr_voltage_string(pairIn(value).first, pairIn(value).second));
    case SR_T_UINT64_RANGE: return numberText(pairIn(value).first) + "-" + numberText(pairIn(value).second);
    case SR_T_DOUBLE_RANGE: {
        double from = 0.0;
        double to = 0.0;
        g_variant_get(value, "(dd)", &from, &to);
        return numberText(from) + "-" + numberText(to);
    }
    default: return quantityText(value);
    }
}

Variant valueOf(const std::string& text, int datatype)
{
    return owned(floatingValueOf(text, datatype));
}

std::vector<std::string> choicesIn(GVariant* list, int datatype)
{
    std::vector<std::string> choices;
    // A list of numbers with fractions holds a minimum, a maximum and a step.
    if (!list || datatype == SR_T_FLOAT || !g_variant_is_of_type(list, G_VARIANT_TYPE_ARRAY))
        return choices;
    for (gsize i = 0; i < g_variant_n_children(list); ++i) {
        const Variant child(g_variant_get_child_value(list, i));
        if (const auto text = textOf(child.get(), datatype))
            choices.push_back(*text);
    }
    return choices;
}

bool isSame(GVariant* one, GVariant* other, int datatype)
{
    if (datatype == SR_T_FLOAT)
        return isNear(g_variant_get_double(one), g_variant_get_double(other));
    if (datatype == SR_T_RATIONAL_PERIOD || datatype == SR_T_RATIONAL_VOLT) {
        const auto [p1, q1] = pairIn(one);
        const auto [p2, q2] = pairIn(other);
        return isNear(static_cast<double>(p1) * static_cast<double>(q2),
                      static_cast<double>(p2) * static_cast<double>(q1));
    }
    return g_variant_equal(one, other) != FALSE;
}

std::string joined(const std::vector<std::string>& texts)
{
    std::string all;
    for (const std::string& text : texts)
        all += (all.empty() ? "" : ", ") + text;
    return all;
}

} // namespace ko::sigrok

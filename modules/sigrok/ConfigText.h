#pragma once

#include <cstdint>
#include <libsigrok/libsigrok.h>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace ko::sigrok {

struct VariantFreer {
    void operator()(GVariant* value) const { g_variant_unref(value); }
};
using Variant = std::unique_ptr<GVariant, VariantFreer>;

struct ArrayFreer {
    void operator()(GArray* array) const { g_array_free(array, TRUE); }
};
using KeyArray = std::unique_ptr<GArray, ArrayFreer>;

/// The keys of an array, none of a null one.
std::vector<std::uint32_t> keysIn(const KeyArray& array);

/// A text of a device, which may have any bytes, as UTF-8; empty for a null one.
std::string utf8(const char* text);

/// libsigrok's short name of a key; empty if it has none.
std::string keyName(std::uint32_t key);

/// `value` with an owner.
Variant owned(GVariant* value);

/// Values of configuration keys as texts. `datatype` is an `sr_datatype`.
/// Numbers have a decimal point, truth values are "on" and "off", ranges "0.5-1.5", periods and voltages have units
/// ("10 ns", "20 mV"), measured quantities are "voltage/dc/rms".

/// Returns none for a value that has no text.
std::optional<std::string> textOf(GVariant* value, int datatype);
/// Returns null for a text that is no value of this type.
Variant valueOf(const std::string& text, int datatype);
/// Returns the values that a driver lists for a key; none if it lists no single values of this type.
std::vector<std::string> choicesIn(GVariant* list, int datatype);
/// Whether both are the same value, apart from rounding.
bool isSame(GVariant* one, GVariant* other, int datatype);

/// "a, b, c"
std::string joined(const std::vector<std::string>& texts);

} // namespace ko::sigrok

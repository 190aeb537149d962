#pragma once

#include "interfaces/Values.h"

#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace ko {

struct JsonValue;
struct JsonMember;
using JsonList = std::vector<JsonValue>;
using JsonObject = std::vector<JsonMember>; ///< in the order of the text; keys are unique

/// A value of a JSON text and its bytes in the text, from `begin` to before `end`.
struct JsonValue {
    std::size_t begin = 0;
    std::size_t end = 0;
    /// A number without fraction or exponent is an integer if it fits 32 bits; null is the empty value.
    std::variant<Value, JsonList, JsonObject> content;

    [[nodiscard]] bool isNull() const { return holds<std::monostate>(); }
    [[nodiscard]] bool isText() const { return holds<std::string>(); }
    /// Returns the value of this key; null if it is missing or this is no object.
    [[nodiscard]] const JsonValue* find(std::string_view key) const;

private:
    template <class T> [[nodiscard]] bool holds() const
    {
        const auto* const scalar = std::get_if<Value>(&content);
        return scalar && std::holds_alternative<T>(*scalar);
    }
};

struct JsonMember : JsonValue {
    std::string key;
    std::size_t keyBegin;
};

/// Parses JSON with // and /* */ comments. Throws an `InputError` with `file` and the line for wrong
/// syntax, duplicate keys, and values nested more than 64 deep.
JsonValue parseJson(const std::string& text, const std::string& file);

/// The place of a value.
struct JsonPlace {
    std::string path;  ///< "$.drivers[0].name"
    std::size_t begin; ///< the first byte of a member's key, or of an element
};

/// Returns the place of `value`, which is `root` or part of it.
JsonPlace placeOf(const JsonValue& value, const JsonValue& root);

/// Returns the line of byte `at`, counted from 1.
int lineAt(const std::string& text, std::size_t at);

/// Thrown for an invalid value, which must outlive the exception. Its text follows the value's path: ": must be a
/// text",
/// ".name: is missing".
class JsonRefusal : public std::runtime_error {
public:
    JsonRefusal(const JsonValue& value, const std::string& what) : std::runtime_error(what), value_(&value) {}

    [[nodiscard]] const JsonValue& value() const { return *value_; }

private:
    const JsonValue* value_;
};

} // namespace ko

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
using JsonObject = std::vector<JsonMember>; ///< in the order of the text; no key comes twice

/// A value of a JSON text and the bytes of the text that it takes, from `begin` to before `end`.
struct JsonValue {
    std::size_t begin = 0;
    std::size_t end = 0;
    /// A number that is whole and written so is an integer where it fits 32 bits; null is the empty value.
    std::variant<Value, JsonList, JsonObject> content;

    [[nodiscard]] bool isNull() const { return holds<std::monostate>(); }
    [[nodiscard]] bool isText() const { return holds<std::string>(); }
    /// The value of this key; null where it is missing, and for a value that is no object.
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

/// Parses JSON with // and /* */ comments. Fails with an `InputError` that names `file` and the line: for wrong
/// syntax, a key that an object has twice, and values nested more than 64 deep.
JsonValue parseJson(const std::string& text, const std::string& file);

/// Where a value is.
struct JsonPlace {
    std::string path;  ///< "$.drivers[0].name"
    std::size_t begin; ///< the first byte of a member's key, or of an element
};

/// `value` is `root` or part of it.
JsonPlace placeOf(const JsonValue& value, const JsonValue& root);

/// The line of a text, from 1, in which its byte `at` is.
int lineAt(const std::string& text, std::size_t at);

/// A value, which outlives the refusal, is not what it must be. What it says follows the value's path: ": must be a
/// text", ".name: is missing".
class JsonRefusal : public std::runtime_error {
public:
    JsonRefusal(const JsonValue& value, const std::string& what) : std::runtime_error(what), value_(&value) {}

    [[nodiscard]] const JsonValue& value() const { return *value_; }

private:
    const JsonValue* value_;
};

} // namespace ko

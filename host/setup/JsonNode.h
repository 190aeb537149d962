#pragma once

#include "interfaces/Values.h"

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace ko {

/// A value of a file is not what it must be.
class JsonRefusal : public std::runtime_error {
public:
    /// `path` names the value; `at` is the value itself or, where that is missing, the object that lacks it.
    JsonRefusal(const std::string& path, std::string at, const std::string& what)
        : std::runtime_error(path + ": " + what), at_(std::move(at))
    {
    }

    [[nodiscard]] const std::string& at() const { return at_; }

private:
    std::string at_;
};

/// A value in a JSON document, and the way to it. Every reading function refuses (`JsonRefusal`) a value of another
/// type or outside the range of what it answers. A node outlives the nodes made from it.
class JsonNode {
public:
    explicit JsonNode(const nlohmann::json& value) : value_(value) {}

    /// "$.drivers[0].name".
    [[nodiscard]] std::string path() const;
    [[noreturn]] void refuse(const std::string& what) const;

    [[nodiscard]] bool isNull() const { return value_.is_null(); }
    [[nodiscard]] bool isText() const { return value_.is_string(); }
    [[nodiscard]] double number() const;
    [[nodiscard]] float single() const;
    [[nodiscard]] std::int32_t integer() const;
    [[nodiscard]] bool boolean() const;
    [[nodiscard]] std::string text() const;
    /// Any scalar: a number that is whole and written so is an integer where it fits 32 bits, null the empty value.
    [[nodiscard]] Value scalar() const;

    /// Refuses a value that is no object or has a key not named here.
    void onlyKeys(const std::vector<std::string_view>& keys) const;

    /// What `read` makes of each element of an array.
    template <class Read> auto list(const Read& read) const
    {
        std::vector<decltype(read(*this))> result;
        requireArray();
        for (std::size_t i = 0; i < value_.size(); ++i)
            result.push_back(read(JsonNode(value_[i], *this, {}, i)));
        return result;
    }

    /// Puts what `read` makes of the key's value into `into`, and leaves it as it is where the key is missing.
    template <class T, class Read> void take(std::string_view key, T& into, const Read& read) const
    {
        const auto found = value_.find(key);
        if (found != value_.end())
            into = read(JsonNode(*found, *this, key, 0));
    }

    /// The same for a key that must be there.
    template <class T, class Read> void need(std::string_view key, T& into, const Read& read) const
    {
        if (!value_.contains(key))
            refuseMissing(key);
        take(key, into, read);
    }

private:
    JsonNode(const nlohmann::json& value, const JsonNode& parent, std::string_view key, std::size_t index)
        : value_(value), parent_(&parent), key_(key), index_(index)
    {
    }
    void requireArray() const;
    [[noreturn]] void refuseMissing(std::string_view key) const;

    const nlohmann::json& value_;
    const JsonNode* parent_ = nullptr;
    std::string_view key_; ///< empty for an element of an array
    std::size_t index_ = 0;
};

} // namespace ko

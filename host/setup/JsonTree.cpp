#include "host/setup/JsonTree.h"

#include "host/instruments/ParameterTypes.h"
#include "host/support/InputError.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <nlohmann/json.hpp>
#include <set>

namespace ko {

namespace {

using Parser = nlohmann::json;

constexpr std::size_t deepest = 64;

/// Iterates over the text for the parser and records how far the parser has read.
class ReadingIterator {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;

    explicit ReadingIterator(const char*& next) : next_(&next) {}

    reference operator*() const { return **next_; }
    ReadingIterator& operator++()
    {
        ++*next_;
        return *this;
    }
    bool operator==(const ReadingIterator& other) const { return *next_ == *other.next_; }
    bool operator!=(const ReadingIterator& other) const { return *next_ != *other.next_; }

private:
    const char** next_;
};

/// Returns the parser's message without its prefix "[json.exception...] parse error at line 1, column 2: ".
std::string plainMessage(const std::string& message)
{
    const std::size_t place = message.find(" at line ");
    const std::size_t start = message.find(": ", place == std::string::npos ? 0 : place);
    if (place != std::string::npos && start != std::string::npos)
        return message.substr(start + 2);
    const std::size_t bracket = message.find("] ");
    return bracket == std::string::npos ? message : message.substr(bracket + 2);
}

bool isEscaped(const std::string& text, std::size_t at)
{
    std::size_t backslashes = 0;
    while (backslashes < at && text[at - backslashes - 1] == '\\')
        ++backslashes;
    return backslashes % 2 == 1;
}

/// Builds the tree from the parser's events, each raised after the last byte of its token has been read.
class TreeBuilder : public Parser::json_sax_t {
public:
    TreeBuilder(const std::string& text, const std::string& file) : text_(text), file_(file) {}

    JsonValue build()
    {
        const char* end = text_.data() + text_.size();
        Parser::sax_parse(ReadingIterator(next_), ReadingIterator(end), this, Parser::input_format_t::json, true, true);
        return std::move(root_);
    }

    bool null() override { return add(Value(), 4); }
    bool boolean(bool value) override { return add(Value(value), value ? 4 : 5); }
    bool number_integer(Parser::number_integer_t value) override { return addWhole(static_cast<double>(value)); }
    bool number_unsigned(Parser::number_unsigned_t value) override { return addWhole(static_cast<double>(value)); }
    bool number_float(Parser::number_float_t value, const std::string& /*text*/) override { return addNumber(value); }
    bool string(std::string& text) override { return add(Value(std::move(text)), position() - textBegin()); }
    bool binary(Parser::binary_t& /*bytes*/) override { return false; }
    bool start_object(std::size_t /*size*/) override
    {
        keys_.emplace_back();
        return open(JsonObject());
    }
    bool key(std::string& name) override
    {
        auto& members = std::get<JsonObject>(open_.back()->content);
        members.push_back({{position(), position(), {}}, name, textBegin()});
        if (!keys_.back().insert(std::move(name)).second)
            refuse(placeOf(members.back(), root_).path + ": stands here twice");
        return true;
    }
    bool end_object() override
    {
        keys_.pop_back();
        return close();
    }
    bool start_array(std::size_t /*size*/) override { return open(JsonList()); }
    bool end_array() override { return close(); }
    bool parse_error(std::size_t /*at*/, const std::string& /*token*/, const Parser::exception& error) override
    {
        refuse(plainMessage(error.what()));
    }

private:
    [[nodiscard]] std::size_t position() const { return static_cast<std::size_t>(next_ - text_.data()); }

    /// Names the line of the last byte but one, as the parser reads one byte beyond a number.
    [[noreturn]] void refuse(const std::string& what) const
    {
        throw InputError(file_, lineAt(text_, std::max<std::size_t>(position(), 1) - 1), what);
    }

    /// Returns the begin of the string just read: the last unescaped quote before its end.
    [[nodiscard]] std::size_t textBegin() const
    {
        std::size_t quote = position() - 1;
        do
            quote = text_.rfind('"', quote - 1);
        while (isEscaped(text_, quote));
        return quote;
    }

    /// Returns the place of the value just read or begun.
    JsonValue& next()
    {
        if (open_.empty())
            return root_;
        if (auto* const list = std::get_if<JsonList>(&open_.back()->content))
            return list->emplace_back();
        return std::get<JsonObject>(open_.back()->content).back();
    }
    bool add(Value value, std::size_t length)
    {
        next() = {position() - length, position(), std::move(value)};
        return true;
    }
    bool addNumber(const Value& value)
    {
        const bool isPassed = std::isdigit(static_cast<unsigned char>(text_[position() - 1])) == 0;
        const std::size_t end = position() - (isPassed ? 1 : 0);
        next() = {text_.find_last_not_of("+-.0123456789Ee", end - 1) + 1, end, value};
        return true;
    }
    bool addWhole(double number)
    {
        if (const auto whole = wholeNumber(number))
            return addNumber(*whole);
        return addNumber(number);
    }
    template <class Members> bool open(Members members)
    {
        JsonValue& value = next();
        value = {position() - 1, text_.size(), std::move(members)};
        open_.push_back(&value);
        if (open_.size() > deepest)
            refuse("nested too deep");
        return true;
    }
    bool close()
    {
        open_.back()->end = position();
        open_.pop_back();
        return true;
    }

    const std::string& text_;
    const std::string& file_;
    const char* next_ = text_.data();
    JsonValue root_;
    std::vector<JsonValue*> open_;            ///< each the last value of the one before, so that none of them moves
    std::vector<std::set<std::string>> keys_; ///< of the objects among them
};

/// Returns the element of a list or object that contains `value`.
template <class Values> auto around(const JsonValue& value, const Values& values)
{
    return std::find_if(values.begin(), values.end(),
                        [&](const JsonValue& outer) { return outer.begin <= value.begin && value.end <= outer.end; });
}

} // namespace

const JsonValue* JsonValue::find(std::string_view key) const
{
    if (const auto* const members = std::get_if<JsonObject>(&content))
        for (const JsonMember& member : *members)
            if (member.key == key)
                return &member;
    return nullptr;
}

JsonValue parseJson(const std::string& text, const std::string& file)
{
    return TreeBuilder(text, file).build();
}

JsonPlace placeOf(const JsonValue& value, const JsonValue& root)
{
    JsonPlace place{"$", root.begin};
    for (const JsonValue* outer = &root; outer != &value;) {
        if (const auto* const list = std::get_if<JsonList>(&outer->content)) {
            const auto element = around(value, *list);
            place = {place.path + "[" + std::to_string(element - list->begin()) + "]", element->begin};
            outer = &*element;
        } else {
            const auto member = around(value, std::get<JsonObject>(outer->content));
            place = {place.path + "." + member->key, member->keyBegin};
            outer = &*member;
        }
    }
    return place;
}

int lineAt(const std::string& text, std::size_t at)
{
    return 1 + static_cast<int>(std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
}

} // namespace ko

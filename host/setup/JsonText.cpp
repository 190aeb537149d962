#include "host/setup/JsonText.h"

#include "host/support/InputError.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <vector>

namespace ko {

namespace {

using nlohmann::json;
using Event = json::parse_event_t;

constexpr std::size_t deepest = 64;

/// Walks the text and counts its lines up to the character before the last one read: the parser reads one character
/// beyond a number.
struct LineCounter {
    int line = 1;
    bool atLineEnd = false;

    void read(char character)
    {
        line += atLineEnd ? 1 : 0;
        atLineEnd = character == '\n';
    }
};

class CountingIterator {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;

    CountingIterator(const char* at, LineCounter& counter) : at_(at), counter_(&counter) {}

    reference operator*() const { return *at_; }
    CountingIterator& operator++()
    {
        counter_->read(*at_++);
        return *this;
    }
    bool operator==(const CountingIterator& other) const { return at_ == other.at_; }
    bool operator!=(const CountingIterator& other) const { return at_ != other.at_; }

private:
    const char* at_;
    LineCounter* counter_;
};

/// Where in the document the parser stands.
class Place {
public:
    /// Follows the parser; true when a value begins here.
    bool follow(Event event, const std::string& name)
    {
        switch (event) {
        case Event::key: return enterKey(name);
        case Event::object_start: return enter(false);
        case Event::array_start: return enter(true);
        case Event::value: return count();
        default: frames_.pop_back(); return false;
        }
    }

    [[nodiscard]] std::size_t depth() const { return frames_.size(); }
    [[nodiscard]] bool isRepeatedKey() const { return repeated_; }

    [[nodiscard]] std::string path() const
    {
        std::string result = "$";
        for (const Frame& frame : frames_) {
            if (frame.isArray && frame.index >= 0)
                result += "[" + std::to_string(frame.index) + "]";
            else if (!frame.isArray && !frame.key.empty())
                result += "." + frame.key;
        }
        return result;
    }

private:
    struct Frame {
        bool isArray;
        std::ptrdiff_t index = -1;
        std::string key = {};
        std::set<std::string> keys = {};
    };

    bool count()
    {
        const bool inArray = !frames_.empty() && frames_.back().isArray;
        if (inArray)
            ++frames_.back().index;
        return inArray;
    }
    bool enter(bool array)
    {
        const bool begins = count() || frames_.empty();
        frames_.push_back({array});
        return begins;
    }
    bool enterKey(std::string key)
    {
        repeated_ = !frames_.back().keys.insert(key).second;
        frames_.back().key = std::move(key);
        return true;
    }

    std::vector<Frame> frames_;
    bool repeated_ = false;
};

/// What the parser says after its own "[json.exception...] parse error at line 1, column 2: ".
std::string plainMessage(const std::string& message)
{
    const std::size_t place = message.find(" at line ");
    const std::size_t start = message.find(": ", place == std::string::npos ? 0 : place);
    if (place != std::string::npos && start != std::string::npos)
        return message.substr(start + 2);
    const std::size_t bracket = message.find("] ");
    return bracket == std::string::npos ? message : message.substr(bracket + 2);
}

/// Tells every event of a parser to a watch, keys by name. The library's own way of watching while it builds takes time
/// that grows with the square of a list's length.
template <class Watch> class Events : public json::json_sax_t {
public:
    explicit Events(const Watch& watch) : watch_(watch) {}

    std::string complaint; ///< the parser's, "" while there is none

    bool null() override { return tell(Event::value); }
    bool boolean(bool) override { return tell(Event::value); }
    bool number_integer(json::number_integer_t) override { return tell(Event::value); }
    bool number_unsigned(json::number_unsigned_t) override { return tell(Event::value); }
    bool number_float(json::number_float_t, const std::string&) override { return tell(Event::value); }
    bool string(std::string&) override { return tell(Event::value); }
    bool binary(json::binary_t&) override { return tell(Event::value); }
    bool start_object(std::size_t) override { return tell(Event::object_start); }
    bool key(std::string& name) override { return tell(Event::key, name); }
    bool end_object() override { return tell(Event::object_end); }
    bool start_array(std::size_t) override { return tell(Event::array_start); }
    bool end_array() override { return tell(Event::array_end); }
    bool parse_error(std::size_t, const std::string&, const json::exception& error) override
    {
        complaint = plainMessage(error.what());
        return false;
    }

private:
    bool tell(Event event, const std::string& name = {})
    {
        watch_(event, name);
        return true;
    }

    const Watch& watch_;
};

/// What is wrong with the text, "" when nothing is.
template <class Watch> std::string walk(const std::string& text, LineCounter& counter, const Watch& watch)
{
    const CountingIterator begin(text.data(), counter), end(text.data() + text.size(), counter);
    Events<Watch> events(watch);
    json::sax_parse(begin, end, &events, json::input_format_t::json, true, true);
    return events.complaint;
}

} // namespace

json parseJson(const std::string& text, const std::string& file)
{
    LineCounter counter;
    Place place;
    const auto watch = [&](Event event, const std::string& name) {
        const bool begins = place.follow(event, name);
        if (event == Event::key && begins && place.isRepeatedKey())
            throw InputError(file, counter.line, place.path() + ": stands here twice");
        if (place.depth() > deepest)
            throw InputError(file, counter.line, "nested too deep");
    };
    if (const std::string complaint = walk(text, counter, watch); !complaint.empty())
        throw InputError(file, counter.line, complaint);
    return json::parse(text, nullptr, true, true);
}

int lineOfPath(const std::string& text, const std::string& path)
{
    LineCounter counter;
    Place place;
    int line = 0;
    const auto watch = [&](Event event, const std::string& name) {
        if (place.follow(event, name) && line == 0 && place.path() == path)
            line = counter.line;
    };
    walk(text, counter, watch);
    return std::max(line, 1);
}

} // namespace ko

#include "host/JsonText.h"

#include "host/InputError.h"

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
    bool follow(Event event, const json& parsed)
    {
        switch (event) {
        case Event::key: return enterKey(parsed.get<std::string>());
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

template <class Watch> json parseWatched(const std::string& text, LineCounter& counter, const Watch& watch)
{
    const CountingIterator begin(text.data(), counter), end(text.data() + text.size(), counter);
    const auto callback = [&](int, Event event, json& parsed) {
        watch(event, parsed);
        return true;
    };
    return json::parse(begin, end, callback, true, true);
}

} // namespace

json parseJson(const std::string& text, const std::string& file)
{
    LineCounter counter;
    Place place;
    const auto watch = [&](Event event, const json& parsed) {
        const bool begins = place.follow(event, parsed);
        if (event == Event::key && begins && place.isRepeatedKey())
            throw InputError(file, counter.line, place.path() + ": stands here twice");
        if (place.depth() > deepest)
            throw InputError(file, counter.line, "nested too deep");
    };
    try {
        return parseWatched(text, counter, watch);
    } catch (const json::exception& error) {
        throw InputError(file, counter.line, plainMessage(error.what()));
    }
}

int lineOfPath(const std::string& text, const std::string& path)
{
    LineCounter counter;
    Place place;
    int line = 0;
    parseWatched(text, counter, [&](Event event, const json& parsed) {
        if (place.follow(event, parsed) && line == 0 && place.path() == path)
            line = counter.line;
    });
    return std::max(line, 1);
}

} // namespace ko

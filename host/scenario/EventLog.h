#pragma once

#include "host/instruments/CallValue.h"

#include <iosfwd>
#include <nlohmann/json_fwd.hpp>
#include <string_view>
#include <vector>

namespace ko {

using Json = nlohmann::ordered_json;

/// A member of an event, as `toJson` writes values.
struct EventMember {
    std::string_view key;
    CallValue value;
};

/// What happened, one JSON object a line, each written out at once.
class EventLog {
public:
    /// `output` outlives the log.
    explicit EventLog(std::ostream& output) : output_(output) {}

    /// The script's line that what happens from now on belongs to.
    void setLine(int line) { line_ = line; }
    [[nodiscard]] int line() const { return line_; }

    /// From now on nothing is written any more.
    void mute() { muted_ = true; }

    /// False once a line could not be written.
    [[nodiscard]] bool isWritten() const;

    void event(std::string_view name, const std::vector<EventMember>& members = {});
    /// The same with members of any shape.
    void jsonEvent(std::string_view name, const Json& members);

private:
    std::ostream& output_;
    int line_ = 0;
    bool muted_ = false;
};

} // namespace ko

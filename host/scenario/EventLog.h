#pragma once

#include <iosfwd>
#include <nlohmann/json.hpp>
#include <string_view>

namespace ko {

using Json = nlohmann::ordered_json;

/// Writes events, one JSON object per line, each flushed at once.
class EventLog {
public:
    /// `output` outlives the log.
    explicit EventLog(std::ostream& output) : output_(output) {}

    /// Sets the script's line number that later events carry.
    void setLine(int line) { line_ = line; }
    [[nodiscard]] int line() const { return line_; }

    /// Drops all later events.
    void mute() { muted_ = true; }

    /// Returns false once an event could not be written.
    [[nodiscard]] bool isWritten() const;

    void event(std::string_view name, const Json& members = Json::object());

private:
    std::ostream& output_;
    int line_ = 0;
    bool muted_ = false;
};

} // namespace ko

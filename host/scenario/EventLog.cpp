#include "host/scenario/EventLog.h"

#include "host/setup/SetupWriter.h"

#include <nlohmann/json.hpp>
#include <ostream>

namespace ko {

bool EventLog::isWritten() const
{
    return output_.good();
}

void EventLog::event(std::string_view name, const std::vector<EventMember>& members)
{
    Json json = Json::object();
    for (const EventMember& member : members)
        json[std::string(member.key)] = toJson(member.value);
    jsonEvent(name, json);
}

void EventLog::jsonEvent(std::string_view name, const Json& members)
{
    if (muted_)
        return;
    Json line{{"line", line_}, {"event", name}};
    line.update(members);
    output_ << line.dump(-1, ' ', false, Json::error_handler_t::replace) << std::endl;
}

} // namespace ko

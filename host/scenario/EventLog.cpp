#include "host/scenario/EventLog.h"

#include <ostream>

namespace ko {

bool EventLog::isWritten() const
{
    return output_.good();
}

void EventLog::event(std::string_view name, const Json& members)
{
    if (muted_)
        return;
    Json line{{"line", line_}, {"event", name}};
    line.update(members);
    output_ << line.dump(-1, ' ', false, Json::error_handler_t::replace) << std::endl;
}

} // namespace ko

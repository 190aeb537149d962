#include "modules/sigrok/Session.h"

#include "modules/sigrok/Attempt.h"

namespace ko::sigrok {

Session::Session(Device& device, const std::optional<Trigger>& trigger, SessionClient& client,
                 std::chrono::milliseconds interval)
    : client_(client), interval_(interval), glib_(g_main_context_new())
{
    try {
        attempt("session", [&] { return sr_session_new(device.context(), &session_); });
        attempt("session", [&] { return sr_session_dev_add(session_, device.instance()); });
        attempt("session", [&] { return sr_session_datafeed_callback_add(session_, takePacket, this); });
        if (trigger)
            setTrigger(*trigger);
    } catch (...) {
        release();
        throw;
    }
}

Session::~Session()
{
    requestStop();
    if (thread_.joinable())
        thread_.join();
    release();
}

void Session::release()
{
    if (session_)
        sr_session_destroy(session_);
    if (trigger_)
        sr_trigger_free(trigger_);
    g_main_context_unref(glib_);
}

void Session::setTrigger(const Trigger& trigger)
{
    trigger_ = sr_trigger_new(nullptr);
    attempt("trigger", [&] {
        sr_trigger_stage* const stage = sr_trigger_stage_add(trigger_);
        return sr_trigger_match_add(stage, trigger.channel, trigger.when.match, trigger.when.level);
    });
    attempt("trigger", [&] { return sr_session_trigger_set(session_, trigger_); });
}

void Session::start()
{
    std::promise<void> started;
    std::future<void> result = started.get_future();
    thread_ = std::jthread([this, own = std::move(started)]() mutable { run(std::move(own)); });
    try {
        result.get();
    } catch (...) {
        thread_.join();
        throw;
    }
}

void Session::run(std::promise<void> started)
{
    g_main_context_push_thread_default(glib_);
    try {
        attempt("start", [&] { return sr_session_start(session_); });
    } catch (...) {
        g_main_context_pop_thread_default(glib_);
        started.set_exception(std::current_exception());
        return;
    }
    started.set_value();
    SessionEnd end = runToTheEnd();
    g_main_context_pop_thread_default(glib_);
    if (!failure_.empty())
        end.failure = failure_;
    client_.over(end);
}

SessionEnd Session::runToTheEnd()
{
    attach(g_timeout_source_new(static_cast<guint>(interval_.count())), tick);
    try {
        attempt("acquisition", [&] { return sr_session_run(session_); });
        while (failure_.empty() && lastError().empty() && !isStopping_ && client_.goesOn()) {
            attempt("start", [&] { return sr_session_start(session_); });
            attempt("acquisition", [&] { return sr_session_run(session_); });
        }
        return {.failure = {}, .reported = lastError()};
    } catch (const Failure& failure) {
        sr_session_stop(session_);
        return {.failure = failure.what(), .reported = {}};
    }
}

void Session::attach(GSource* source, GSourceFunc act)
{
    // Before the device's sources, which may always have something.
    g_source_set_priority(source, G_PRIORITY_HIGH);
    g_source_set_callback(source, act, this, nullptr);
    g_source_attach(source, glib_);
    g_source_unref(source);
}

/// Stops from the session's own loop: whatever it is doing, also if it has not begun to run.
void Session::requestStop()
{
    if (!isStopping_.exchange(true))
        attach(g_idle_source_new(), stop);
}

gboolean Session::stop(void* session)
{
    sr_session_stop(static_cast<Session*>(session)->session_);
    return G_SOURCE_REMOVE;
}

template <class Call> void Session::callClient(const Call& call)
{
    if (!failure_.empty())
        return;
    try {
        call();
    } catch (const std::exception& error) {
        failure_ = error.what();
        requestStop();
    }
}

gboolean Session::tick(void* session)
{
    auto* const self = static_cast<Session*>(session);
    self->callClient([&] { self->client_.tick(); });
    return G_SOURCE_CONTINUE;
}

void Session::takePacket(const sr_dev_inst* /*device*/, const sr_datafeed_packet* packet, void* session)
{
    auto* const self = static_cast<Session*>(session);
    self->callClient([&] { self->client_.take(*packet); });
}

} // namespace ko::sigrok

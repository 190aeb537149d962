#pragma once

#include "modules/sigrok/Device.h"
#include "modules/sigrok/Triggering.h"

#include <atomic>
#include <chrono>
#include <future>
#include <thread>

namespace ko::sigrok {

/// How a session has ended.
struct SessionEnd {
    std::string failure;  ///< why it could not go on; empty: it could
    std::string reported; ///< the last error that libsigrok has reported; empty: none
};

/// What takes part in a session. Called on the session's thread.
class SessionClient {
public:
    virtual ~SessionClient() = default;

    /// What these throw ends the session.
    virtual void take(const sr_datafeed_packet& packet) = 0;
    virtual void tick() = 0;
    /// Whether the device, which has ended without an error, is to be started again.
    virtual bool goesOn() = 0;
    /// Must not throw.
    virtual void over(const SessionEnd& end) = 0;
};

/// One acquisition of a device, on a thread of its own with a GLib context of its own.
class Session {
public:
    struct Trigger {
        sr_channel* channel = nullptr;
        TriggerMatch when;
    };

    /// `client` is to live as long as the session. It gets a `tick` after each `interval`.
    Session(Device& device, const std::optional<Trigger>& trigger, SessionClient& client,
            std::chrono::milliseconds interval);
    /// Ends the session and waits.
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Returns when the device acquires. Fails with a `Failure`, without a call of `over`.
    void start();
    /// Makes the session end soon. Can be called on any thread, also within a call of the client.
    void requestStop();
    /// Whether `requestStop` was called.
    [[nodiscard]] bool isStopping() const { return isStopping_; }

private:
    static void takePacket(const sr_dev_inst* device, const sr_datafeed_packet* packet, void* session);
    static gboolean tick(void* session);
    static gboolean stop(void* session);

    void setTrigger(const Trigger& trigger);
    void release();
    void attach(GSource* source, GSourceFunc act);
    void run(std::promise<void> started);
    SessionEnd runToTheEnd();
    /// Calls the client; keeps the failure and stops.
    template <class Call> void callClient(const Call& call);

    SessionClient& client_;
    std::chrono::milliseconds interval_;
    GMainContext* glib_;
    sr_session* session_ = nullptr;
    sr_trigger* trigger_ = nullptr;
    std::atomic<bool> isStopping_ = false;
    std::string failure_; ///< of the client; on the session's thread
    std::jthread thread_;
};

} // namespace ko::sigrok

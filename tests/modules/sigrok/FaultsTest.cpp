#include "modules/sigrok/Demo.h"

#include <algorithm>
#include <atomic>
#include <set>
#include <thread>

namespace ko::sigrok {

namespace {

/// What goes wrong in libsigrok.
struct Faults {
    int failAfter = -1;           ///< calls; negative: no call fails
    std::uint64_t rate = 0;       ///< that the device says it keeps; 0: the one it keeps
    bool isTakenAway = false;     ///< as soon as it acquires
    bool isDouble = false;        ///< a search finds each device twice
    const char* failed = nullptr; ///< the call that has failed

    bool isDue(const char* name)
    {
        if (failAfter < 0 || failAfter-- > 0)
            return false;
        failed = name;
        return true;
    }
};
Faults faults;
std::atomic<bool> hangs = false; ///< a device that acquires

} // namespace

} // namespace ko::sigrok

// The linker lets the module call these (see CMakeLists.txt).
#define FAILING(name, parameters, arguments)                                                                           \
    extern "C" int __real_##name parameters;                                                                           \
    extern "C" int __wrap_##name parameters                                                                            \
    {                                                                                                                  \
        return ko::sigrok::faults.isDue(#name) ? SR_ERR_IO : __real_##name arguments;                                  \
    }

using Group = const sr_channel_group*;
FAILING(sr_driver_init, (sr_context * context, sr_dev_driver* driver), (context, driver))
FAILING(sr_dev_open, (sr_dev_inst * device), (device))
FAILING(sr_config_list,
        (const sr_dev_driver* driver, const sr_dev_inst* device, Group group, uint32_t key, GVariant** data),
        (driver, device, group, key, data))
FAILING(sr_config_set, (const sr_dev_inst* device, Group group, uint32_t key, GVariant* data),
        (device, group, key, data))
FAILING(sr_config_commit, (const sr_dev_inst* device), (device))
FAILING(sr_dev_channel_enable, (sr_channel * channel, gboolean state), (channel, state))
FAILING(sr_session_new, (sr_context * context, sr_session** made), (context, made))
FAILING(sr_session_dev_add, (sr_session * session, sr_dev_inst* device), (session, device))
FAILING(sr_session_datafeed_callback_add, (sr_session * session, sr_datafeed_callback call, void* data),
        (session, call, data))
FAILING(sr_trigger_match_add, (sr_trigger_stage * stage, sr_channel* channel, int match, float value),
        (stage, channel, match, value))
FAILING(sr_session_trigger_set, (sr_session * session, sr_trigger* trigger), (session, trigger))
FAILING(sr_session_start, (sr_session * session), (session))
FAILING(sr_analog_to_float, (const sr_datafeed_analog* analog, float* samples), (analog, samples))
FAILING(sr_analog_unit_to_string, (const sr_datafeed_analog* analog, char** text), (analog, text))

extern "C" int __real_sr_config_get(const sr_dev_driver*, const sr_dev_inst*, Group, uint32_t, GVariant**);
extern "C" int __wrap_sr_config_get(const sr_dev_driver* driver, const sr_dev_inst* device, Group group, uint32_t key,
                                    GVariant** data)
{
    if (ko::sigrok::faults.isDue("sr_config_get"))
        return SR_ERR_IO;
    if (key != SR_CONF_SAMPLERATE || ko::sigrok::faults.rate == 0)
        return __real_sr_config_get(driver, device, group, key, data);
    *data = g_variant_ref_sink(g_variant_new_uint64(ko::sigrok::faults.rate));
    return SR_OK;
}

extern "C" GSList* __real_sr_driver_scan(sr_dev_driver*, GSList*);
extern "C" GSList* __wrap_sr_driver_scan(sr_dev_driver* driver, GSList* options)
{
    GSList* const found = __real_sr_driver_scan(driver, options);
    return ko::sigrok::faults.isDouble ? g_slist_concat(found, __real_sr_driver_scan(driver, options)) : found;
}

extern "C" int __real_sr_session_run(sr_session*);
extern "C" int __wrap_sr_session_run(sr_session* session)
{
    if (ko::sigrok::faults.isDue("sr_session_run"))
        return SR_ERR_IO;
    if (ko::sigrok::faults.isTakenAway)
        sr_session_stop(session);
    while (ko::sigrok::hangs)
        std::this_thread::yield();
    return __real_sr_session_run(session);
}

namespace ko::sigrok {

namespace {

/// Opens a device and acquires with it: a channel, or logic on a trigger. Returns what has failed.
std::string openAndAcquire(bool onTrigger)
{
    Tape kept;
    const std::string failure = thrownBy([&] {
        const Demo demo(DeviceOptions{{"pattern A0", "sine"}, {"pattern Logic", "incremental"}});
        demo.change([&](InstrumentSettings& it) {
            for (GroupSettings& group : it.groups)
                for (ChannelSettings& channel : group.channels)
                    channel.enabled = std::int32_t{channel.name == (onTrigger ? "D0" : "A0") ? 1 : 0};
            it.groups[0].channels[0].triggerSource = true;
            it.timebase->startMode = onTrigger ? startMode::onTrigger : startMode::immediately;
        });
        demo.acquire(kept, 10, onTrigger);
    });
    EXPECT_TRUE(failure.empty() || !kept.end) << failure;
    return failure + kept.why;
}

} // namespace

TEST(SigrokFaultsTest, EachErrorOfLibsigrokIsAFailureWithItsTextAndWhatWasDone)
{
    std::set<std::string> functions;
    const auto failAfter = [&](int calls, bool onTrigger) {
        faults = {.failAfter = calls};
        const std::string failure = openAndAcquire(onTrigger);
        const char* const failed = faults.failed;
        faults = {};
        const bool names = failure.find(": " + std::string(sr_strerror(SR_ERR_IO))) != std::string::npos;
        EXPECT_TRUE(failed ? names : failure.empty()) << (failed ? failed : "") << ": " << failure;
        if (failed)
            functions.insert(failed);
        return failed != nullptr;
    };
    for (const bool onTrigger : {false, true})
        for (int calls = 0; failAfter(calls, onTrigger);)
            ++calls;
    EXPECT_EQ(functions.size(), 16U);
}

TEST(SigrokFaultsTest, AnotherRateThanTheOneSetIsAFailureWithBoth)
{
    const Demo demo;
    faults = {.rate = 2000};
    EXPECT_EQ(thrownBy([&] { demo.acquisition().arm(); }), "sample rate: 10000 Hz set, 2000 Hz kept");
    faults = {};
    EXPECT_EQ(thrownBy([&] { demo.acquisition().arm(); }), "");
}

TEST(SigrokFaultsTest, ADeviceThatIsTakenAwayEndsTheAcquisitionWithAReasonAndMayComeBack)
{
    const Demo demo;
    faults = {.isTakenAway = true};
    Tape kept;
    demo.acquire(kept, 100000);
    faults = {};
    EXPECT_EQ(kept.why, "the device has ended the acquisition");
    EXPECT_EQ(kept.end, std::ssize(kept.samplesOf(0)));
    Tape again;
    demo.acquire(again, 10);
    EXPECT_EQ(again.end, 10);
}

TEST(SigrokFaultsTest, ADeviceThatDoesNotStopIsLeftAloneUntilItDoes)
{
    hangs = true;
    Tape kept;
    std::weak_ptr<Library> library;
    {
        const Demo demo;
        library = demo.library;
        demo.library->stopTime = std::chrono::milliseconds(1);
        demo.acquisition().arm();
        demo.start(kept, 10);
        demo.acquisition().stop();
        EXPECT_EQ(kept.why, "the device does not stop");
        EXPECT_THROW(demo.acquisition().arm(), Failure);
    }
    EXPECT_FALSE(library.expired()) << "its device is still in use";
    for (hangs = false; !library.expired();)
        std::this_thread::yield();
}

TEST(SigrokFaultsTest, OfSeveralDevicesNoneIsGuessed)
{
    const auto library = std::make_shared<Library>();
    faults = {.isDouble = true};
    const auto found = library->devices();
    EXPECT_EQ(std::count_if(found.begin(), found.end(), [](const FoundDevice& it) { return it.device == "demo"; }), 2);
    EXPECT_EQ(thrownBy([&] { SigrokInstrument::open(library, "demo", {}); }), "several devices answer: demo, demo");
    faults = {};
    EXPECT_EQ(thrownBy([&] { SigrokInstrument::open(library, "demo", {}); }), "");
}

} // namespace ko::sigrok

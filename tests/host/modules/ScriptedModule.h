#pragma once

#include "host/instruments/HostInstrument.h"
#include "host/instruments/SimulatedAcquisition.h"
#include "host/modules/InstrumentModule.h"
#include "host/modules/Script.h"

#include <utility>

namespace ko::test {

/// A scripted device; what its script does not change is that of a simulated instrument.
class ScriptedInstrument final : public Instrument, private Driver, private Acquisition, private BlockSink {
public:
    ScriptedInstrument(SharedScript script, const DeviceOptions& options)
        : script_(std::move(script)), core_(new Core(scriptedSettings(options), *script_)),
          gate_(std::unique_ptr<Instrument>(core_))
    {
        for (const std::string& operation : script_->throws)
            gate_.calls().fail({.operation = operation, .description = script_->isSilent ? "" : operation + " throws"});
    }
    ~ScriptedInstrument() override { samples_.stop(); }

    Driver& driver() override
    {
        return *script_->run("driver", [this]() -> Driver* { return this; });
    }
    [[nodiscard]] const InstrumentSettings& held() const override
    {
        held_ = script_->run("held", [&] { return core_->held(); });
        if (script_->held)
            script_->held(held_);
        return held_;
    }
    void restore(const InstrumentSettings& settings) override
    {
        script_->run("restore", [&] { core_->restore(settings); });
    }
    Acquisition* acquisition() override
    {
        return script_->run("acquisition", [&]() -> Acquisition* { return this; });
    }

private:
    struct Core final : KeptInstrument {
        Core(InstrumentSettings settings, const Script& its) : KeptInstrument(std::move(settings)), script(its) {}
        double keptSamplePeriod(double requested) override
        {
            return script.keeps ? script.keeps(requested) : KeptInstrument::keptSamplePeriod(requested);
        }
        const Script& script;
    };

    std::int32_t GroupCount() override
    {
        return script_->run("GroupCount", [&] { return gate_.GroupCount(); });
    }
    std::int32_t ChannelCount(std::int32_t group) override
    {
        return script_->run("ChannelCount", [&] { return gate_.ChannelCount(group); });
    }
    Value ChannelAttribute(std::int32_t group, std::int32_t channel, std::int32_t attribute) override
    {
        return script_->run("ChannelAttribute", [&] { return gate_.ChannelAttribute(group, channel, attribute); });
    }
    std::int32_t MeasurementMode() override { return gate_.MeasurementMode(); }
    std::int32_t SamplingMode() override { return gate_.SamplingMode(); }
    std::string DriverName(std::int32_t form) override { return gate_.DriverName(form); }
    std::string GroupName(std::int32_t group) override
    {
        return script_->run("GroupName", [&] { return gate_.GroupName(group); });
    }
    Timebase* queryTimebase() override
    {
        return script_->run("queryTimebase", [&] {
            isOther_ = !isOther_ && script_->isRestless;
            return isOther_ ? core_->driver().queryTimebase() : gate_.queryTimebase();
        });
    }
    TriggerParameters* queryTriggerParameters() override
    {
        return script_->run("queryTriggerParameters", [&] { return gate_.queryTriggerParameters(); });
    }
    TriggerLines* queryTriggerLines() override
    {
        return script_->run("queryTriggerLines", [&] { return gate_.queryTriggerLines(); });
    }
    StaticMeasurement* queryStaticMeasurement() override
    {
        return script_->run("queryStaticMeasurement", [&] { return gate_.queryStaticMeasurement(); });
    }
    DynamicMeasurement* queryDynamicMeasurement() override
    {
        return script_->run("queryDynamicMeasurement", [&] { return gate_.queryDynamicMeasurement(); });
    }

    [[nodiscard]] ArmedSettings settingsToArm() const override
    {
        return script_->run("settingsToArm", [&] { return samples_.settingsToArm(); });
    }
    ArmedSettings arm() override
    {
        if (script_->isGone)
            throw Failure(failure::unspecified, "is not there any more");
        ArmedSettings armed = script_->run("arm", [&] { return samples_.arm(); });
        if (script_->arm)
            script_->arm(armed);
        return armed;
    }
    void start(const AcquisitionOrder& order, BlockSink& sink) override
    {
        BlockSink* const before = std::exchange(sink_, &sink);
        if (script_->start)
            script_->start(sink);
        try {
            script_->run("start", [&] { samples_.start(order, *this); });
        } catch (...) {
            sink_ = before;
            throw;
        }
    }
    void stop() override
    {
        script_->run("stop", [&] { samples_.stop(); });
    }

    void triggered(std::int64_t sample) override
    {
        script_->triggered ? script_->triggered(*sink_, sample) : sink_->triggered(sample);
    }
    void deliver(Block block) override
    {
        script_->deliver ? script_->deliver(*sink_, std::move(block)) : sink_->deliver(std::move(block));
    }
    void ended(std::int64_t next, const std::string& reason) override
    {
        script_->ended ? script_->ended(*sink_, next, reason) : sink_->ended(next, reason);
    }

    SharedScript script_;
    Core* core_;
    HostInstrument gate_;
    SimulatedAcquisition samples_{core_->held()};
    BlockSink* sink_ = nullptr;
    mutable InstrumentSettings held_;
    bool isOther_ = false;
};

class ScriptedModule final : public InstrumentModule, public DeviceSource {
public:
    explicit ScriptedModule(SharedScript script) : script_(std::move(script)) {}

    [[nodiscard]] std::string name() const override
    {
        return script_->run("name", [&] { return script_->name ? script_->name() : "scripted"; });
    }
    [[nodiscard]] std::string about() const override
    {
        return script_->run("about", [] { return std::string("a test"); });
    }
    std::vector<KnownDevice> find() override { return {}; }
    std::vector<FoundDevice> devices() override
    {
        return script_->run("devices", [&] { return script_->found; });
    }
    std::unique_ptr<Instrument> open(const std::string& device, const DeviceOptions& options) override
    {
        return script_->run("open", [&]() -> std::unique_ptr<Instrument> {
            if (script_->isGone || script_->missing-- > 0 || (device != "a" && device != "b"))
                throw Failure(failure::unspecified, "device " + device + " is not there");
            return std::make_unique<ScriptedInstrument>(script_, options);
        });
    }
    std::unique_ptr<Instrument> open(const std::string& /*module*/, const std::string& device,
                                     const DeviceOptions& options) override
    {
        return open(device, options);
    }

private:
    SharedScript script_;
};

} // namespace ko::test

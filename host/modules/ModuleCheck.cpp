#include "host/modules/ModuleCheck.h"

#include "host/modules/AcquisitionCheck.h"
#include "host/modules/InstrumentModule.h"
#include "host/modules/WriteCheck.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace ko {

namespace {

constexpr const char* nowhere = "no device is called this";

std::string openCall(const std::string& device, const DeviceOptions& options)
{
    std::string call = "open(\"" + device + "\"";
    for (const auto& [name, value] : options)
        call.append(", ").append(name).append("=").append(value);
    return call + ")";
}

struct ModuleCheck {
    CheckLog& log;
    InstrumentModule& module;
    const ModuleCheckOptions& options;

    void all() const
    {
        log.lookAt("module");
        name();
        log.must("about", [&] { return module.about(); });
        for (const std::string& device : {std::string(nowhere), std::string()})
            refuses(device, {});
        const std::vector<FoundDevice> found = devices();
        devices();
        if (found.empty())
            log.note("finds no devices, so that no instrument was checked");
        for (const FoundDevice& it : found) {
            log.lookAt(it.device);
            refuses(it.device, {{"no option is called this", "1"}});
            device(it.device);
            device(it.device);
        }
    }

    void name() const
    {
        const auto name = log.must("name", [&] { return module.name(); });
        const auto again = log.must("name", [&] { return module.name(); });
        if (!name || !again)
            return;
        const bool isWord = !name->empty() && name->find_first_of(" \t\r\n\"") == std::string::npos;
        if (!isWord)
            log.blame("name", "returns \"" + *name + "\", which is no word");
        if (*name != *again)
            log.blame("name", "returns \"" + *name + "\", and then \"" + *again + "\"");
    }

    std::vector<FoundDevice> devices() const
    {
        std::vector<FoundDevice> found =
            log.must("devices", [&] { return module.devices(); }).value_or(std::vector<FoundDevice>{});
        std::set<std::string> seen;
        for (const FoundDevice& it : found) {
            if (it.device.empty() || it.title.empty())
                log.blame("devices", "finds a device without a description or a title: \"" + it.device + "\", \"" +
                                         it.title + "\"");
            if (!seen.insert(it.device).second)
                log.blame("devices", "finds \"" + it.device + "\" twice");
        }
        return found;
    }

    void refuses(const std::string& device, const DeviceOptions& wanted) const
    {
        log.mustFail(openCall(device, wanted), [&] { return module.open(device, wanted); });
    }

    [[nodiscard]] std::unique_ptr<Instrument> open(const std::string& device, const DeviceOptions& wanted) const
    {
        const std::string call = openCall(device, wanted);
        auto opened = log.must(call, [&] { return module.open(device, wanted); });
        if (opened && !*opened)
            log.blame(call, "returns null");
        return opened ? std::move(*opened) : nullptr;
    }

    void device(const std::string& device) const
    {
        DeviceOptions present;
        if (const auto instrument = open(device, {})) {
            log.may(openCall(device, {}) + " while it is open", [&] { return module.open(device, {}); });
            driver(*instrument);
            present = log.must("held", [&] { return instrument->held().options; }).value_or(present);
        }
        auto instrument = open(device, present);
        if (!instrument)
            return;
        if (log.must("held", [&] { return instrument->held().options; }) != present)
            log.blame("held", "has other options than those that the device was opened with");
        checkAcquisition(log, std::move(instrument), options);
    }

    void driver(Instrument& instrument) const
    {
        const auto opened = openedInstrument(log, instrument);
        if (!opened)
            return;
        compareAnswers(*opened);
        figures(*opened);
        checkIndices(*opened);
        checkWrites(*opened);
        checkRestore(*opened);
    }

    void figures(const OpenedInstrument& opened) const
    {
        auto* const sampled =
            log.must("queryDynamicMeasurement", [&] { return opened.driver.queryDynamicMeasurement(); })
                .value_or(nullptr);
        auto* const scanned = log.must("queryStaticMeasurement", [&] { return opened.driver.queryStaticMeasurement(); })
                                  .value_or(nullptr);
        const InstrumentSettings held = opened.held();
        const bool isDynamic = held.measurementMode == 1 && held.samplingMode == 1;
        if (!opened.timebase)
            return;
        if (isDynamic ? !sampled : !scanned)
            log.blame(isDynamic ? "queryDynamicMeasurement" : "queryStaticMeasurement",
                      "returns null, and the instrument measures so");
        else if (isDynamic)
            figure("DynamicBytes", [&] { return sampled->DynamicBytes(); });
        else
            figure("NumberOfScans", [&] { return static_cast<double>(scanned->NumberOfScans()); });
    }

    template <class Ask> void figure(const char* call, const Ask& ask) const
    {
        const auto answer = log.must(call, ask);
        if (answer && !(std::isfinite(*answer) && *answer >= 0.0))
            log.blame(call, "answers " + checkedNumber(*answer));
    }
};

} // namespace

ModuleReport checkModule(InstrumentModule& module, const ModuleCheckOptions& options)
{
    CheckLog log(options);
    ModuleCheck{log, module, options}.all();
    return log.finish();
}

} // namespace ko

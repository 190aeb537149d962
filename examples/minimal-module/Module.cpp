#include "LoadMeter.h"

#include "host/modules/InstrumentModule.h"

#include <QObject>

/// The plug-in: finds one device, this machine.
class MinimalModule final : public QObject, public ko::InstrumentModule {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID KORVELL_INSTRUMENT_MODULE)
    Q_INTERFACES(ko::InstrumentModule)

public:
    std::string name() const override { return "load"; }
    std::string about() const override { return "the load of this machine"; }
    std::vector<ko::FoundDevice> devices() override { return {{.device = "machine", .title = "This machine"}}; }

    std::unique_ptr<ko::Instrument> open(const std::string& device, const ko::DeviceOptions& options) override
    {
        if (device != "machine")
            throw ko::Failure(ko::failure::unspecified, "there is no device \"" + device + "\"; there is \"machine\"");
        return std::make_unique<LoadMeter>(options);
    }
};

#include "Module.moc"

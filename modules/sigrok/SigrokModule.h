#pragma once

#include "host/modules/InstrumentModule.h"

#include <QObject>

namespace ko::sigrok {

class Library;

/// Opens the devices of libsigrok: logic analyzers, oscilloscopes, meters. A device is named as sigrok's own programs
/// name it: "demo", "fx2lafw:conn=1.5", "agilent-dmm:conn=/dev/ttyUSB0".
class SigrokModule final : public QObject, public InstrumentModule {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID KORVELL_INSTRUMENT_MODULE)
    Q_INTERFACES(ko::InstrumentModule)

public:
    [[nodiscard]] std::string name() const override { return "sigrok"; }
    [[nodiscard]] std::string about() const override;
    std::vector<FoundDevice> devices() override;
    std::unique_ptr<Instrument> open(const std::string& device, const DeviceOptions& options) override;

private:
    /// libsigrok is started by the first use, so that its failure is that of the call.
    Library& library();

    std::shared_ptr<Library> library_;
};

} // namespace ko::sigrok

#include "host/modules/ScriptedModule.h"

#include <QObject>
#include <csignal>
#include <cstdlib>

/// A plug-in whose scripted module throws in the calls that the environment names; in some builds one that is broken.
class ScriptedPlugin final : public QObject, public ko::InstrumentModule {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID KO_TEST_INTERFACE)
    Q_INTERFACES(ko::InstrumentModule)

public:
    [[nodiscard]] std::string name() const override { return module().name(); }
    [[nodiscard]] std::string about() const override { return module().about(); }
    std::vector<ko::FoundDevice> devices() override
    {
        if (planned() == "crash")
            static_cast<void>(std::raise(SIGSEGV));
        return module().devices();
    }
    std::unique_ptr<ko::Instrument> open(const std::string& device, const ko::DeviceOptions& options) override
    {
        return module().open(device, options);
    }

private:
    static std::string planned()
    {
        const char* const call = std::getenv("KO_TEST_THROWS");
        return call ? call : "";
    }
    static ko::test::ScriptedModule module()
    {
        const auto script = std::make_shared<ko::test::Script>();
        script->throws = {planned()};
        return ko::test::ScriptedModule(script);
    }
};

#include "ScriptedPlugin.moc"

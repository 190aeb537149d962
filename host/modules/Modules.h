#pragma once

#include "host/instruments/DeviceSource.h"

#include <filesystem>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

namespace ko {

struct FoundDevice;
class InstrumentModule;

/// The driver modules of the program, loaded when they are first needed and kept loaded. A module that cannot be
/// loaded, or that throws, is named with its trouble and costs nothing else. Members can be called on any thread; calls
/// to the modules come one at a time.
class Modules final : public DeviceSource {
public:
    /// Modules are the shared libraries in these folders; a folder that does not exist has none. Of modules with the
    /// same name the first one counts.
    explicit Modules(std::vector<std::filesystem::path> folders);
    ~Modules() override;
    Modules(const Modules&) = delete;
    Modules& operator=(const Modules&) = delete;

    /// A module with the devices that it finds at present.
    struct Listed {
        std::filesystem::path file;
        std::string name;  ///< empty if the module cannot be loaded
        std::string about; ///< the module's version, for people
        std::vector<FoundDevice> devices;
        std::string trouble; ///< why it is not loaded, or found no devices; empty: none
    };
    /// Searches for devices, which may take seconds.
    std::vector<Listed> list();

    std::vector<KnownDevice> find() override;
    std::unique_ptr<Instrument> open(const std::string& module, const std::string& device,
                                     const DeviceOptions& options) override;

private:
    struct Loaded {
        std::filesystem::path file;
        std::string name;
        InstrumentModule* module = nullptr; ///< null if it cannot be loaded
        std::string trouble;
    };

    void load();

    std::mutex mutex_;
    std::vector<std::filesystem::path> folders_;
    bool isLoaded_ = false;
    std::vector<Loaded> modules_;
};

/// Returns the module in this file, loaded, and owned by the program. Fails with a `Failure` that does not name the
/// file.
InstrumentModule& loadModule(const std::filesystem::path& file);

} // namespace ko

#pragma once

#include <memory>
#include <string>
#include <vector>

namespace ko {

class Modules;

/// The options of the command line for driver modules.
struct ModuleCommand {
    bool list = false;                ///< list modules and devices
    std::string check;                ///< file of a module to check; empty: none
    std::vector<std::string> folders; ///< searched for modules before the program's own

    [[nodiscard]] bool isGiven() const { return list || !check.empty(); }
};

/// Returns the modules of the program and of the given folders. Throws an `InputError` for one that is no folder.
std::shared_ptr<Modules> modulesOf(const ModuleCommand& command);

/// Prints what is asked for. Returns whether a checked module keeps the contract. Throws an `InputError` if it cannot
/// be loaded.
bool runModules(const ModuleCommand& command, Modules& modules);

} // namespace ko

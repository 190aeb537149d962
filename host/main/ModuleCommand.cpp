#include "host/main/ModuleCommand.h"

#include "host/main/CheckCommand.h"
#include "host/modules/InstrumentModule.h"
#include "host/modules/Modules.h"
#include "host/support/DataFolders.h"
#include "host/support/InputError.h"
#include "host/support/StandardStreams.h"

#include <iostream>

namespace ko {

namespace {

/// Of each module a line, and one for each of its devices.
void printModules(Modules& modules)
{
    const auto listed = modules.list();
    for (const Modules::Listed& it : listed) {
        if (!it.name.empty())
            std::cout << it.name << "  " << (it.about.empty() ? "" : oneLine(it.about) + "  ") << it.file.string()
                      << '\n';
        for (const FoundDevice& device : it.devices)
            std::cout << "  " << oneLine(device.device) << "  " << oneLine(device.title) << '\n';
        if (!it.trouble.empty())
            complain("note: " + it.file.string() + ": " + oneLine(it.trouble));
    }
    if (listed.empty())
        complain("note: there are no driver modules; --module-folder FOLDER names a folder with some");
}

} // namespace

std::shared_ptr<Modules> modulesOf(const ModuleCommand& command)
{
    std::vector<std::filesystem::path> folders;
    for (const std::string& folder : command.folders) {
        std::error_code unknown;
        if (!std::filesystem::is_directory(folder, unknown))
            throw InputError("--module-folder " + folder + ": is no folder");
        folders.push_back(std::filesystem::absolute(folder));
    }
    folders.push_back(modulesFolder());
    return std::make_shared<Modules>(std::move(folders));
}

bool runModules(const ModuleCommand& command, Modules& modules)
{
    if (command.list)
        printModules(modules);
    return command.check.empty() || checkModuleFile(command.check);
}

} // namespace ko

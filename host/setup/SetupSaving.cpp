#include "host/setup/SetupSaving.h"

#include "host/setup/SetupEdit.h"
#include "host/setup/SetupWriter.h"
#include "host/support/FileWriter.h"
#include "host/support/InputError.h"

#include <filesystem>

namespace ko {

std::string textToSave(const std::string& file, const Setup& setup, const std::string& before)
{
    try {
        return before.empty() ? setupText(setup) : editedText(before, setup);
    } catch (const std::exception& error) {
        throw InputError(file + ": cannot be saved: " + error.what());
    }
}

void saveSetup(const std::string& file, const Setup& setup, const std::string& before)
{
    writeWhole(file, textToSave(file, setup, before));
}

bool hasChangedSince(const std::string& file, const std::string& content)
{
    std::error_code ignored;
    const auto status = std::filesystem::status(file, ignored);
    if (!std::filesystem::is_regular_file(status))
        return status.type() == std::filesystem::file_type::not_found;
    try {
        return readFile(file) != content;
    } catch (const InputError&) {
        return true;
    }
}

Setup withPresentValues(Setup setup, const HostInstruments& drivers)
{
    setup.instruments.clear();
    for (const auto& driver : drivers)
        setup.instruments.push_back(driver->settings());
    return setup;
}

} // namespace ko

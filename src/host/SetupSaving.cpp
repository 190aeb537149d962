#include "host/SetupSaving.h"

#include "host/InputError.h"
#include "host/SetupWriter.h"

#include <QSaveFile>
#include <filesystem>

namespace ko {

void writeWhole(const std::string& name, const std::string& content)
{
    // A device would be replaced by a file.
    using std::filesystem::file_type;
    std::error_code ignored;
    const file_type kind = std::filesystem::status(name, ignored).type();
    if (kind != file_type::regular && kind != file_type::not_found && kind != file_type::none)
        throw InputError(name + ": cannot be saved: it is no file");
    QSaveFile file(QString::fromStdString(name));
    const auto size = static_cast<qint64>(content.size());
    if (!file.open(QIODevice::WriteOnly) || file.write(content.data(), size) != size || !file.commit())
        throw InputError(name + ": cannot be saved: " + file.errorString().toStdString());
}

void saveSetup(const std::string& file, const Setup& setup)
{
    std::string text;
    try {
        text = setupText(setup);
    } catch (const nlohmann::json::exception& error) {
        throw InputError(file + ": cannot be saved: " + error.what());
    }
    writeWhole(file, text);
}

Setup withPresentValues(Setup setup, const SimulatedDrivers& drivers)
{
    setup.instruments.clear();
    for (const auto& driver : drivers)
        setup.instruments.push_back(driver->settings());
    return setup;
}

} // namespace ko

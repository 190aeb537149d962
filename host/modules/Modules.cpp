#include "host/modules/Modules.h"

#include "host/instruments/ForeignCall.h"
#include "host/modules/InstrumentModule.h"
#include "host/support/Suggestion.h"

#include <QJsonObject>
#include <QPluginLoader>
#include <algorithm>

namespace ko {

namespace {

[[noreturn]] void refuse(const std::string& reason)
{
    throw Failure(failure::unspecified, reason);
}

std::vector<std::filesystem::path> filesIn(const std::filesystem::path& folder)
{
    std::vector<std::filesystem::path> files;
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(folder, ignored))
        if (entry.path().extension() == ".so" && entry.is_regular_file(ignored))
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace

InstrumentModule& loadModule(const std::filesystem::path& file)
{
    QPluginLoader loader(QString::fromStdString(file.string()));
    loader.setLoadHints(QLibrary::PreventUnloadHint | QLibrary::ResolveAllSymbolsHint);
    const QString kind = loader.metaData().value(QStringLiteral("IID")).toString();
    const QString wanted = QStringLiteral(KORVELL_INSTRUMENT_MODULE);
    if (kind.isEmpty())
        refuse("is no driver module");
    if (kind != wanted)
        refuse("is made for " + kind.toStdString() + ", not for " + wanted.toStdString());
    QObject* const root = foreignCall([&] { return loader.instance(); });
    if (!root)
        refuse(loader.errorString().toStdString());
    auto* const module = qobject_cast<InstrumentModule*>(root);
    if (!module)
        refuse("does not have the interface that it names");
    return *module;
}

Modules::Modules(std::vector<std::filesystem::path> folders) : folders_(std::move(folders)) {}
Modules::~Modules() = default;

void Modules::load()
{
    if (std::exchange(isLoaded_, true))
        return;
    for (const auto& folder : folders_)
        for (const auto& file : filesIn(folder)) {
            Loaded& it = modules_.emplace_back(Loaded{.file = file, .name = {}, .module = nullptr, .trouble = {}});
            try {
                InstrumentModule& module = loadModule(file);
                const std::string name = foreignCall([&] { return module.name(); });
                const auto other = std::find_if(modules_.begin(), modules_.end(),
                                                [&](const Loaded& earlier) { return earlier.name == name; });
                if (name.empty() || other != modules_.end())
                    refuse(name.empty() ? "has no name" : "is called " + name + ", as " + other->file.string() + " is");
                it.name = name;
                it.module = &module;
            } catch (const Failure& failure) {
                it.trouble = failure.what();
            }
        }
}

std::vector<Modules::Listed> Modules::list()
{
    const std::lock_guard lock(mutex_);
    load();
    std::vector<Listed> listed;
    for (const Loaded& it : modules_) {
        Listed& now = listed.emplace_back(
            Listed{.file = it.file, .name = it.name, .about = {}, .devices = {}, .trouble = it.trouble});
        if (!it.module)
            continue;
        try {
            foreignCall([&] {
                now.about = it.module->about();
                now.devices = it.module->devices();
            });
        } catch (const Failure& failure) {
            now.trouble = failure.what();
        }
    }
    return listed;
}

std::vector<KnownDevice> Modules::find()
{
    std::vector<KnownDevice> known;
    for (const Listed& it : list()) {
        const std::string name = it.name.empty() ? it.file.string() : it.name;
        for (const FoundDevice& found : it.devices)
            known.push_back({name, found.device, found.title, {}});
        if (!it.trouble.empty())
            known.push_back({name, {}, {}, it.trouble});
    }
    return known;
}

std::unique_ptr<Instrument> Modules::open(const std::string& module, const std::string& device,
                                          const DeviceOptions& options)
{
    const std::lock_guard lock(mutex_);
    load();
    std::vector<std::string> names;
    for (const Loaded& it : modules_) {
        if (it.module && it.name == module) {
            auto instrument = foreignCall([&] { return it.module->open(device, options); });
            return instrument ? std::move(instrument) : throw Failure(failure::unspecified, "was not opened");
        }
        if (it.module)
            names.push_back(it.name);
    }
    refuse(names.empty() ? "there are no driver modules" : "no such driver module; " + suggestion(names, module));
}

} // namespace ko

#include "host/setup/SetupTemplates.h"

#include "host/support/DataFolders.h"
#include "host/support/InputError.h"
#include "host/support/Suggestion.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace ko {

namespace {

struct Entry {
    const char* name;
    const char* file; ///< in the folder of the demo
};

constexpr std::array templates{Entry{"empty", "empty.json"}, Entry{"vibration", "vibration.json"},
                               Entry{"engine-bench", "engine-bench-demo.json"},
                               Entry{"temperature-logging", "temperature-logging.json"}, Entry{"mixed", "mixed.json"}};

static_assert(templates.size() == templateCount);

std::string demoFile(const std::string& name)
{
    const auto file = findDataFile("demo/" + name);
    if (!file)
        throw InputError(name + ": is missing in the program's data");
    return file->string();
}

} // namespace

std::vector<std::string> templateNames()
{
    std::vector<std::string> names(templates.size());
    std::transform(templates.begin(), templates.end(), names.begin(), [](const Entry& entry) { return entry.name; });
    return names;
}

SetupTemplate templateNamed(const std::string& name)
{
    const auto* const found =
        std::find_if(templates.begin(), templates.end(), [&](const Entry& entry) { return entry.name == name; });
    if (found == templates.end())
        throw InputError(name + ": no such template; " + suggestion(templateNames(), name));
    const std::string file = demoFile(found->file);
    return {name, file, readFile(file)};
}

std::vector<InstrumentSettings> instrumentKinds()
{
    return loadSetup(demoFile("instrument-kinds.json")).instruments;
}

std::string kindWord(const InstrumentSettings& kind)
{
    std::string word = kind.name;
    std::transform(word.begin(), word.end(), word.begin(),
                   [](unsigned char c) { return c == ' ' ? '-' : static_cast<char>(std::tolower(c)); });
    return word;
}

} // namespace ko

#include "host/sheet/SheetCommand.h"

#include "host/settings/HeadlessPage.h"
#include "host/sheet/SheetFile.h"

#include <filesystem>

namespace ko {

void writeSheet(const SheetCommand& command, const ScenarioOptions& options, const std::string& setupFile,
                bool isChanged)
{
    HeadlessPage played(options);
    saveSheet(command.file,
              {.page = played.page(),
               .drivers = played.drivers(),
               .title = options.setup.title,
               .file = std::filesystem::path(setupFile).filename().string(),
               .isChanged = isChanged,
               .made = played.now(),
               .texts = [&played](int number) { return toQt(played.text(number)); },
               .locale = options.locale},
              command.paper);
}

} // namespace ko

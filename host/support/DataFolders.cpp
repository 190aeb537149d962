#include "host/support/DataFolders.h"

#include <system_error>

namespace ko {

namespace {

/// argv[0] may be a symbolic link or a name found through PATH, so the kernel is asked instead.
std::filesystem::path programFolder()
{
    std::error_code unknown;
    return std::filesystem::read_symlink("/proc/self/exe", unknown).parent_path();
}

} // namespace

std::filesystem::path modulesFolder()
{
    return (programFolder() / KO_MODULES_FROM_PROGRAM).lexically_normal();
}

std::optional<std::filesystem::path> findDataFile(const std::filesystem::path& name)
{
    std::error_code ignored;
    auto file = (programFolder() / KO_DATA_FROM_PROGRAM / name).lexically_normal();
    return std::filesystem::is_regular_file(file, ignored) ? std::optional(std::move(file)) : std::nullopt;
}

} // namespace ko

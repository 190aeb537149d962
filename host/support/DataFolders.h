#pragma once

#include <filesystem>
#include <optional>

namespace ko {

/// A file that belongs to the program, by its path within the program's data folder: "strings/de.txt",
/// "help/index.html". Found beside the program wherever that was installed or built, whatever the current folder is;
/// none where there is no such file.
std::optional<std::filesystem::path> findDataFile(const std::filesystem::path& name);

} // namespace ko

#pragma once

#include <filesystem>
#include <optional>

namespace ko {

/// Finds one of the program's own data files by its path in the data folder: "strings/de.txt", "help/index.html". The
/// search starts at the executable, installed or built, and does not depend on the current folder. Returns none if
/// there is no such file.
std::optional<std::filesystem::path> findDataFile(const std::filesystem::path& name);

/// The folder of the driver modules that belong to the program, installed or built; it may not exist.
std::filesystem::path modulesFolder();

} // namespace ko

#pragma once

#include <QStringList>
#include <filesystem>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace ko::test {

/// How writing has ended for the user.
struct Outcome {
    bool isDone = false;
    std::string message;
};

using Act = std::function<Outcome()>;

/// A kind of file, and how it is written.
struct Kind {
    const char* name;
    const char* file; ///< a path in the folder
    std::string old;  ///< its content before
    bool (*isWhole)(const std::string& file);
    /// What may be beside it afterwards.
    std::set<std::string> beside;
    /// Whether a file that was begun stays although the end could not be written.
    bool grows;
    QStringList arguments; ///< of the program; empty: the window
    /// Prepares the window for the act that writes the file.
    std::function<Act(const std::filesystem::path& folder)> begin;
};

/// Returns every kind of file that the program and the window write.
std::vector<Kind> fileKinds();

} // namespace ko::test

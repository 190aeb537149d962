#pragma once

#include "widgets/support/Convert.h"

#include <QDialog>
#include <optional>
#include <string>
#include <vector>

namespace ko {

/// A line of a scenario that did not have the result that it expects.
struct ReplayDifference {
    int line = 0;
    std::string command;
    std::optional<std::string> expected, found; ///< none: the command had no effect
};

/// What has come of a scenario that was played.
struct ReplayResult {
    std::string file;
    std::vector<ReplayDifference> differences;
    int lastLine = 0;
    bool isWhole = false; ///< played to its end
    std::string fault;    ///< why it ended at the last line; empty: the user has stopped it, or the window was closed
};

/// Reads the differences from the events of a scenario; `script` is its text.
std::vector<ReplayDifference> differencesIn(const std::string& events, const std::string& script);

/// Shows the result, with a table of the differences.
class ReplayReport : public QDialog {
public:
    ReplayReport(const Texts& texts, const ReplayResult& result, QWidget* parent);
};

} // namespace ko

#pragma once

#include "host/setup/SetupSession.h"

namespace ko::test {

/// A user with predefined answers.
struct Answers : SessionQuestions {
    Unsaved unsaved = Unsaved::Cancel;
    Conflict conflict = Conflict::Cancel;
    bool wantsReload = false;
    std::string saveAs;
    std::string asked;
    std::function<void()> meanwhile = [] {}; ///< called before the answer

    Unsaved keepChanges() override
    {
        asked += "changes ";
        meanwhile();
        return unsaved;
    }
    std::string fileToSave() override
    {
        asked += "file ";
        meanwhile();
        return saveAs;
    }
    Conflict settleConflict() override
    {
        asked += "conflict ";
        meanwhile();
        return conflict;
    }
    bool reload() override
    {
        asked += "reload ";
        return wantsReload;
    }
    void tellNotSaved(const std::string& reason) override { asked += "not saved: " + reason; }
    void tellNotOpened(const std::string& reason) override { asked += "not opened: " + reason; }
};

} // namespace ko::test

#pragma once

#include "host/setup/SetupSession.h"
#include "widgets/support/Convert.h"
#include "widgets/support/Modal.h"
#include "widgets/support/PlainText.h"

namespace ko {

/// What the frame window asks of its user.
class UserQuestions : public SessionQuestions {
public:
    /// The file to open; empty when the user wants none.
    virtual std::string fileToOpen() = 0;
};

/// The same by message boxes and file dialogs. One that is destroyed with the window, and this with it, counts as
/// cancelled.
class BoxQuestions : public UserQuestions {
public:
    /// `window` and `session` outlive it.
    BoxQuestions(QWidget& window, const SetupSession& session, Texts texts);

    Unsaved keepChanges() override;
    std::string fileToOpen() override;
    std::string fileToSave() override;
    Conflict settleConflict() override;
    bool reload() override;
    void tellNotSaved(const std::string& reason) override;
    void tellNotOpened(const std::string& reason) override;

private:
    [[nodiscard]] QString filter() const;
    /// A box that says that another program has changed the file, with this question.
    [[nodiscard]] Modal<PlainBox> conflictBox(const QString& question);
    void refuse(int title, int text, const std::string& reason);

    QWidget& window_;
    const SetupSession& session_;
    Texts texts_;
};

} // namespace ko

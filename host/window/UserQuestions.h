#pragma once

#include "host/recording_view/RecordQuestions.h"
#include "host/setup/SetupSession.h"
#include "widgets/support/Convert.h"
#include "widgets/support/Modal.h"
#include "widgets/support/PlainText.h"

#include <QDateTime>

namespace ko {

/// The user's decision about unsaved changes of a program that has ended without asking.
enum class Recovery { Restore, Discard, Later };

/// The frame window's questions to the user.
class UserQuestions : public SessionQuestions {
public:
    /// Asks for a file to open; returns an empty path if the user cancels.
    virtual std::string fileToOpen() = 0;
    /// Asks for a file to write the set-up sheet to; returns an empty path if the user cancels.
    virtual std::string fileForSheet() = 0;
    /// Returns whether to remove a recent file that cannot be found from the list.
    virtual bool forget(const std::string& file) = 0;
    /// See `askPastStart`, `askFileToRecord` and `askToStop`.
    virtual PastStart pastStart(const QString& time, const QString& tomorrow) = 0;
    virtual std::string fileToRecord(const RecordOffer& offer) = 0;
    virtual bool stopRecording() = 0;
    virtual void tellNotRecorded(const std::string& reason) = 0;
    /// Asks whether to restore the unsaved changes to a set-up that were kept at this time.
    virtual Recovery restoreCopy(const std::string& setup, const QDateTime& time) = 0;
    /// Names a copy of unsaved changes that cannot be read, and the reason.
    virtual void tellDamagedCopy(const std::string& file, const std::string& reason) = 0;
};

/// Asks by message boxes and file dialogs. A box or dialog that is destroyed together with the window and this object
/// counts as cancelled.
class BoxQuestions : public UserQuestions {
public:
    /// All references must outlive this object.
    BoxQuestions(QWidget& window, const SetupSession& session, Texts texts, const Locale& locale);

    Unsaved keepChanges() override;
    std::string fileToOpen() override;
    std::string fileForSheet() override;
    bool forget(const std::string& file) override;
    PastStart pastStart(const QString& time, const QString& tomorrow) override;
    std::string fileToRecord(const RecordOffer& offer) override;
    bool stopRecording() override;
    void tellNotRecorded(const std::string& reason) override;
    Recovery restoreCopy(const std::string& setup, const QDateTime& time) override;
    void tellDamagedCopy(const std::string& file, const std::string& reason) override;
    std::string fileToSave() override;
    Conflict settleConflict() override;
    bool reload() override;
    void tellNotSaved(const std::string& reason) override;
    void tellNotOpened(const std::string& reason) override;

private:
    [[nodiscard]] QString filter() const;
    /// Returns a box which says that another program has changed the file, with this question.
    [[nodiscard]] Modal<PlainBox> conflictBox(const QString& question);
    void refuse(int title, int text, const std::string& reason);

    QWidget& window_;
    const SetupSession& session_;
    Texts texts_;
    const Locale& locale_;
};

} // namespace ko

#pragma once

#include "host/recording_view/RecordQuestions.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

namespace ko {

/// Asks for the file of a recording and shows how much space it needs and how much is free in the file's folder. The
/// space is read on another thread, because a disk may not answer.
class RecordDialog : public QDialog {
public:
    /// `locale` must outlive the dialog.
    RecordDialog(QWidget* parent, Texts texts, const Locale& locale, const RecordOffer& offer);

    [[nodiscard]] std::string file() const;

    /// Asks before an existing file is replaced, and refuses a folder that does not exist.
    void accept() override;

private:
    void browse();
    void askForSpace();
    void showSpace(std::optional<double> free);
    void say(const QString& text, bool isProblem);

    Texts texts_;
    const Locale& locale_;
    double bytes_;
    QLineEdit* file_;
    QLabel* sign_;
    QLabel* space_;
    QPushButton* record_ = nullptr;
};

} // namespace ko

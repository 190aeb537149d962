#pragma once

#include "host/recording_view/RunTexts.h"

#include <QDockWidget>

class QBoxLayout;
class QLabel;
class QProgressBar;
class QTableWidget;
class QPushButton;

namespace ko {

/// A dock with the recording in progress: its state in words and as progress. After the end it shows a summary: the
/// file, and for each instrument what was promised beside what the file holds.
class RecordingView : public QDockWidget {
public:
    /// `locale` must outlive the dock.
    RecordingView(Texts texts, const Locale& locale, QWidget* parent);

    /// Shows a recording in progress. A change of the state is announced to screen readers.
    void showRun(const RunText& text);
    /// Shows how a recording ended; `reason` says what has failed, if anything.
    void showEnd(const std::string& file, const HeldRecording& held, const QString& reason);
    /// Shows one line in place of a recording, for example the reason why there is none.
    void showNote(const QString& text);

    /// Adds a widget below the progress.
    void add(QWidget& widget);

    [[nodiscard]] QString stateText() const;
    [[nodiscard]] const QTableWidget& summary() const { return *summary_; }

private:
    void makeLayout();
    void fillSummary(const HeldRecording& held);
    void announce(const QString& text);
    void showFolder() const;

    Texts texts_;
    const Locale& locale_;
    QLabel* state_;
    QLabel* details_;
    QProgressBar* progress_;
    QLabel* file_;
    QPushButton* folder_;
    QTableWidget* summary_;
    QBoxLayout* column_ = nullptr;
    QString path_; ///< of the file shown
};

} // namespace ko

#pragma once

#include "FrameTest.h"
#include "host/docks/Reports.h"

#include <QTemporaryDir>

namespace ko::test {

inline const char* const fileBench =
    R"({"clock": "11/21/2026 9:30:00 AM", "drivers": [{"name": "A", "timebase": {"duration": 5,
  "samplePeriod": {"value": 0.001}}, "groups": [{"name": "G", "channels": [{"address": "0:1", "name": "First"}]}]}]})";

/// A window on a set-up with an unsaved change.
class ChangedWindow {
public:
    explicit ChangedWindow(const std::filesystem::path& folder, const std::string& setup = "set-up.json",
                           const char* memory = nullptr)
        : frame_("", memory ? (folder / memory).string() : std::string())
    {
        const std::string file = (setup.starts_with('/') ? std::filesystem::path(setup)
                                                         : std::filesystem::path(fromQt(own_.filePath(toQt(setup)))))
                                     .string();
        if (!std::filesystem::exists(file))
            std::ofstream(file) << fileBench;
        user.conflict = Conflict::Overwrite;
        frame_.files().setQuestions(std::make_unique<DecidedQuestions>(user));
        frame_.open(file);
        frame_.show();
        frame_.autosave().setDelay(0);
        change();
        // Confirms each message box.
        QObject::connect(&boxes_, &QTimer::timeout, [this] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                user.told += fromQt(box->text() + u'\n' + box->informativeText());
                box->accept();
            }
        });
        boxes_.start(0);
    }
    FrameWindow& operator*() { return frame_; }
    FrameWindow* operator->() { return &frame_; }
    void change() { test::change(frame_); }
    /// Returns the texts of the reports.
    std::string reports()
    {
        std::string texts;
        const auto& list = *frame_.docks().reports().findChild<QTreeWidget*>();
        for (int i = 0; i < list.topLevelItemCount(); ++i)
            texts += fromQt(list.topLevelItem(i)->text(2));
        return texts;
    }

    Decided user;

private:
    QTemporaryDir own_;
    FrameWindow frame_;
    QTimer boxes_;
};

} // namespace ko::test

#pragma once

#include "fakes/Folder.h"
#include "host/docks/InstrumentsView.h"
#include "host/setup/SetupSaving.h"
#include "host/setup/SetupWriter.h"
#include "host/support/HostTexts.h"
#include "host/window/FrameWindow.h"
#include "widgets/InDialog.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QToolButton>
#include <QTreeView>
#include <QTreeWidget>

namespace ko::test {

/// A set-up.
inline const char* const oneInstrument = R"({"drivers": [{"name": "A", "timebase": {}}]})";

/// Changes the set-up, as a click of the user.
inline void change(FrameWindow& window)
{
    Page& page = window.document().page();
    window.page().view().act(
        [&] { (page.optImmediate.value() ? page.optStartTime : page.optImmediate).userClicked(); });
}

/// Predefined answers of the user, and the messages shown.
struct Decided {
    Unsaved unsaved = Unsaved::Cancel;
    int asked = 0; ///< number of questions about unsaved changes
    Conflict conflict = Conflict::Cancel;
    bool reload = false;
    int reloads = 0; ///< number of offers to reload the file
    std::string open, saveAs, sheet;
    bool forget = false;
    Recovery recovery = Recovery::Later;
    std::string offeredCopy;
    std::string told;
    std::string record; ///< the file to record; empty: cancels
    RecordOffer offered;
    PastStart pastStart = PastStart::Cancel;
    bool stops = false;
    int askedToStop = 0;
};

class DecidedQuestions : public UserQuestions {
public:
    explicit DecidedQuestions(Decided& user) : user_(user) {}

    Unsaved keepChanges() override
    {
        ++user_.asked;
        return user_.unsaved;
    }
    std::string fileToOpen() override { return user_.open; }
    std::string fileForSheet() override { return user_.sheet; }
    bool forget(const std::string& file) override
    {
        user_.told = file;
        return user_.forget;
    }
    Recovery restoreCopy(const std::string& setup, const QDateTime&) override
    {
        user_.offeredCopy = setup;
        return user_.recovery;
    }
    void tellDamagedCopy(const std::string& file, const std::string&) override { user_.told = file; }
    std::string fileToSave() override { return user_.saveAs; }
    Conflict settleConflict() override { return user_.conflict; }
    bool reload() override
    {
        ++user_.reloads;
        return user_.reload;
    }
    PastStart pastStart(const QString& time, const QString& tomorrow) override
    {
        user_.told = fromQt(time + u'|' + tomorrow);
        return user_.pastStart;
    }
    std::string fileToRecord(const RecordOffer& offer) override
    {
        user_.offered = offer;
        return user_.record;
    }
    bool stopRecording() override
    {
        ++user_.askedToStop;
        return user_.stops;
    }
    void tellNotRecorded(const std::string& reason) override { user_.told = reason; }
    void tellNotSaved(const std::string& reason) override { user_.told = reason; }
    void tellNotOpened(const std::string& reason) override { user_.told = reason; }

private:
    Decided& user_;
};

/// Message boxes and dialogs, but the file to record is known.
class RecordsTo : public BoxQuestions {
public:
    explicit RecordsTo(FrameWindow& window, std::string file = {})
        : BoxQuestions(
              window, window.session(), [&window](int number) { return window.text(number); }, usual),
          file_(std::move(file))
    {
    }
    std::string fileToRecord(const RecordOffer&) override { return file_; }

private:
    inline static const Locale usual;
    std::string file_;
};

/// The frame window, with questions answered by `Decided` instead of message boxes.
class FrameTest : public testing::Test {
protected:
    Decided user;
    FrameWindow window{""};
    const Texts texts = [this](int number) { return window.text(number); };
    const Locale locale;
    const Folder folder;

    FrameTest() { window.files().setQuestions(std::make_unique<DecidedQuestions>(user)); }

    Page& page() { return window.document().page(); }
    QWidget& at(const Control& control) { return *window.page().view().widget(control); }
    QAction& action(int menu, int text)
    {
        for (QAction* bar : window.menuBar()->actions())
            if (bar->text() == window.text(menu))
                for (QAction* entry : bar->menu()->actions())
                    if (entry->text() == window.text(text))
                        return *entry;
        throw std::out_of_range("no such menu entry");
    }
    std::string file(const std::string& name, std::string_view content) { return folder.file(name, content); }
    void open(std::string_view setup) { window.open(file("bench.json", setup)); }
    const HostInstruments& drivers() { return window.session().drivers(); }
    HostInstrument& driver(std::size_t place = 0) { return *drivers().at(place); }
    /// What all instruments hold, as the text of a set-up.
    std::string held() { return setupText(withPresentValues({}, drivers())); }
    /// Presses a key where the focus is.
    void press(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(window.focusWidget() ? window.focusWidget() : &window, static_cast<Qt::Key>(key), modifiers);
    }
    void show()
    {
        window.show();
        activate();
    }
    /// Activates the window, as the desktop does after a dialog has closed.
    void activate()
    {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    /// Confirms the next message box and stores its texts.
    void answer(QString& told)
    {
        answer_.emplace([&told](QMessageBox& box) {
            told = box.text() + u'\n' + box.informativeText();
            box.accept();
        });
    }

private:
    std::optional<InDialog<>> answer_;
};

} // namespace ko::test

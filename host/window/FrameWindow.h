#pragma once

#include "document/ClassFactory.h"
#include "host/instruments/DriverWatch.h"
#include "host/setup/SetupSession.h"
#include "host/sheet/SetupSheet.h"
#include "host/window/FileWatch.h"
#include "host/window/FrameCapture.h"
#include "host/window/FrameSite.h"
#include "host/window/RecentFiles.h"
#include "host/window/UserQuestions.h"
#include "widgets/page/PageWidget.h"
#include "widgets/services/QtServices.h"

#include <QMainWindow>

class QDockWidget;

namespace ko {

class DriverLog;
class FailureStrip;
class HintLine;
class InstrumentsView;
class Reports;

/// The reference host's frame: the component's page in a window with menus, docks, status line and help. It owns the
/// component, its one document and the set-up that is open. It may be destroyed while one of its dialogs or message
/// boxes is open; the action that has opened it ends there.
class FrameWindow : public QMainWindow, private PropertyNotifySink {
public:
    /// `language` as the component takes it; what the component throws at it reaches the caller. The window's place,
    /// its docks and the recent files are kept in `memory`, a file; without any they are forgotten.
    explicit FrameWindow(const std::string& language, const std::string& memory = {});
    ~FrameWindow() override;

    /// Opens a set-up in place of the one that is open, without asking. Fails with an `InputError`, which leaves
    /// everything as it is.
    void open(const std::string& file);

    /// The same after asking the page and the user; a file that is refused is told of.
    void openAsking(const QString& file);

    /// Asks the user this way from now on.
    void setQuestions(std::unique_ptr<UserQuestions> questions) { questions_ = std::move(questions); }
    [[nodiscard]] UserQuestions& questions() { return *questions_; }

    [[nodiscard]] Document& document() { return *document_; }
    [[nodiscard]] PageWidget& page() { return *page_; }
    [[nodiscard]] FrameCapture& capture() { return *capture_; }
    [[nodiscard]] QtServices& services() { return services_; }
    [[nodiscard]] SetupSession& session() { return session_; }
    [[nodiscard]] InstrumentsView& instruments() { return *instruments_; }
    [[nodiscard]] DriverLog& driverLog() { return *log_; }
    [[nodiscard]] DriverHealth& health() { return watch_.health(); }
    [[nodiscard]] QString text(int number) const { return parts_->text(number); }
    /// Prints the page on a printer that the toolkit has made ready, such as that of a preview.
    void printOn(QPrinter& printer);
    /// What a set-up sheet is made from now.
    [[nodiscard]] SheetSource sheet();
    /// Prints that sheet; tells the user when the printer does not take it.
    void printSheetOn(QPrinter& printer);
    /// The window and its docks go where they were the last time; false when that is not known.
    bool restorePlace();

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    /// What the events in progress need until they have returned, with the window or without it.
    struct Parts {
        explicit Parts(QtPrinters::Surfaces surfaces);
        [[nodiscard]] QString text(int number) const;

        QtServices services;
        QPointer<Reports> reports;
        Platform platform;
        std::unique_ptr<Component> component;
    };

    void OnChanged() override;

    [[nodiscard]] Texts texts() const;
    void makeSite();
    void makeDocks();
    void makeCentre();
    void makeSession();
    void makeStatusBar();

    void makePage();
    void renewPage();
    void makeCapture();
    void makeMenus();
    void makeFileMenu();
    void makeRecentMenu(QMenu& menu);
    void fillRecentMenu(QMenu& menu);
    void makeEditMenu();
    void makeViewMenu();
    void addDock(QMenu& menu, QDockWidget& dock, int label);
    void makeHelpMenu();
    QAction& addEntry(QMenu& menu, int label, const QKeySequence& key, std::function<void()> act);

    /// Shows the instruments of the file that has just been loaded.
    void showLoaded();
    /// Shows the session's instruments on the page anew.
    void handOver();
    void showOnPage(const SimulatedDrivers& drivers);
    /// Has the page read its instruments again; their trigger lines stay. `before` runs first.
    void rebuildPage(const std::function<void()>& before);
    /// Hands the same instruments over again, one of which may have failed before; nothing that is set changes.
    void handOverAgain();
    bool enableChannel(SimulatedDriver& driver, int group, int channel, bool on);
    [[nodiscard]] std::string numberOf(const SimulatedDriver& driver) const;
    void faultChanged(const SimulatedDriver& driver, const std::string& operation, bool fails);
    void showTitle();
    /// The hint of the control that has the focus, behind it what the page says of its range.
    void showHint();
    [[nodiscard]] std::string focusHint();
    /// Asks the page whether it may be left, and has it take a valid entry that is still being typed.
    [[nodiscard]] bool okToLeave();
    /// In a dock, or in the strip below the page.
    [[nodiscard]] bool isInDock(const QWidget* widget) const;
    [[nodiscard]] bool isAvailable(std::int32_t command);
    void sendCommand(std::int32_t command);
    void runCommand(std::int32_t command);
    void chooseSetup();
    void openRecent(const QString& file);
    void save();
    void saveAs();
    void rememberFile();
    /// Asks about a set-up that another program has changed, unless another question is open.
    void offerReload();
    void rememberPlace();
    /// Writes what was printed to a file. Fails with an `InputError`, also for a file that is open as something else.
    void savePdf(const QString& file, const QByteArray& content);
    void print();
    void previewPrint();
    void printSheet();
    void showHelp(std::int32_t topic);
    void showAbout();

    UserActions actions_;
    FrameMemory memory_;
    std::shared_ptr<Parts> parts_;
    QtServices& services_ = parts_->services;
    const Platform& platform_ = parts_->platform;
    std::unique_ptr<Document> document_;
    std::shared_ptr<FrameSite> site_;
    SetupSession session_;
    DriverWatch watch_{[] { return QtClock().now(); }};
    RecentFiles recent_{memory_};
    FileWatch fileWatch_{[this] { offerReload(); }};
    std::unique_ptr<UserQuestions> questions_;
    PageWidget* page_ = nullptr;
    std::unique_ptr<FrameCapture> capture_;
    FailureStrip* failures_ = nullptr;
    Reports* reports_ = nullptr;
    InstrumentsView* instruments_ = nullptr;
    DriverLog* log_ = nullptr;
    HintLine* hint_ = nullptr;
    const Control* hinted_ = nullptr; ///< the control that `rangeHint_` is about
    std::string rangeHint_;
};

} // namespace ko

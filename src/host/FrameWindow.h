#pragma once

#include "document/ClassFactory.h"
#include "host/FrameRecording.h"
#include "host/FrameSite.h"
#include "host/SetupFile.h"
#include "widgets/PageWidget.h"
#include "widgets/QtServices.h"

#include <QMainWindow>

class QLabel;

namespace ko {

class Reports;

/// The reference host's frame: the component's page in a window with menus, status line and help. It owns the
/// component, its one document and the instruments of the set-up that is open.
class FrameWindow : public QMainWindow, private PropertyNotifySink {
public:
    /// `language` as the component takes it; what the component throws at it reaches the caller.
    explicit FrameWindow(const std::string& language);
    ~FrameWindow() override;

    /// Opens a set-up in place of the one that is open. Fails with an `InputError`, which leaves everything as it is.
    void open(const std::string& file);

    /// The same after asking the page, with a message box for a file that is refused.
    void openAsking(const QString& file);
    void refuse(const std::string& reason);

    [[nodiscard]] Document& document() { return *document_; }
    [[nodiscard]] PageWidget& page() { return *page_; }
    [[nodiscard]] FrameRecording& recording() { return *recording_; }
    [[nodiscard]] QtServices& services() { return services_; }
    [[nodiscard]] QString text(int number) const;

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void OnChanged() override { setWindowModified(true); }

    void makeSite();
    void makeMenus();
    void makeFileMenu();
    void makeEditMenu();
    void makeViewMenu();
    void makeHelpMenu();
    void makeStatusBar();

    void makeRecording();
    void handOver(const SimulatedDrivers& drivers);
    void showTitle(const QString& name);
    /// The hint of the control that has the focus, behind it what the page says of its range.
    void showHint();
    [[nodiscard]] std::string focusHint();
    [[nodiscard]] bool okToLeave();
    [[nodiscard]] bool isAvailable(std::int32_t command);
    void runCommand(std::int32_t command);
    void chooseSetup();
    void print();
    void showHelp(std::int32_t topic);
    void showAbout();

    QtServices services_;
    Platform platform_;
    std::unique_ptr<Component> component_;
    std::unique_ptr<Document> document_;
    std::shared_ptr<FrameSite> site_;
    SimulatedDrivers drivers_;
    PageWidget* page_ = nullptr;
    std::unique_ptr<FrameRecording> recording_;
    Reports* reports_ = nullptr;
    QLabel* hint_ = nullptr;
    const Control* hinted_ = nullptr; ///< the control that `rangeHint_` is about
    std::string rangeHint_;
    QString file_;
};

} // namespace ko

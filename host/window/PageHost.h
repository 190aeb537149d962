#pragma once

#include "host/instruments/HostInstrument.h"
#include "host/window/FrameParts.h"
#include "widgets/page/PageWidget.h"
#include "widgets/support/UserActions.h"

class QMainWindow;

namespace ko {

class FrameCapture;
class HintLine;

/// The page in the frame window: owns the component's document and the widget that shows it, and makes the window's
/// calls to the document. Calls that a scenario must repeat are captured first.
class PageHost {
public:
    /// Makes the window's central widget, a column with room for the page at the top, and the hint line. `changes` is
    /// notified of every change that the document accepts. All arguments must outlive this object.
    PageHost(QMainWindow& window, const UserActions& actions, std::shared_ptr<FrameParts> parts, FrameCapture& capture,
             PropertyNotifySink& changes);

    /// Makes the document and its widget, and inserts the page's menu before the last menu of the menu bar.
    void make();
    /// Makes a new document and widget, shown without instruments. Keeps only the read-only mode.
    void renew();
    /// Ends the document and deletes its widget. Nothing but the destructor may be called afterwards.
    void end();

    [[nodiscard]] Document& document() { return *document_; }
    [[nodiscard]] PageWidget& widget() { return *widget_; }
    [[nodiscard]] HintLine& hint() { return *hint_; }

    /// Called after a page has been made.
    std::function<void()> made;
    /// Called before the page is asked whether it may be left.
    std::function<void()> leaving;
    /// Called after each action of the user on the page.
    std::function<void()> actionDone;
    /// Called when the focus of the page may have moved.
    std::function<void()> focusMoved;

    /// Shows these instruments instead of the previous ones.
    void show(const HostInstruments& drivers);
    /// Hands over another list after an edit of the instruments: a visible page clears their trigger lines and is
    /// rebuilt.
    void handOver(const HostInstruments& drivers);
    /// Hands over another list to the page, which is hidden until it is shown again and writes nothing.
    void handOverHidden(const HostInstruments& drivers);
    /// Hands the same instruments over again, after one of them may have failed. Changes no setting.
    void handOverAgain(const HostInstruments& drivers);
    /// Makes the page read its instruments again. Keeps their trigger lines.
    void rebuild();

    /// Returns whether the page may be left; if not, the page has shown the reason to the user. Also makes the page
    /// accept a valid entry that is still being typed. Returns false if the window has been destroyed meanwhile.
    [[nodiscard]] bool okToLeave();
    [[nodiscard]] bool isAvailable(std::int32_t command);
    void sendCommand(std::int32_t command);
    void setReadOnly(bool on);

private:
    class Site;

    void removeWidget();
    /// Shows the hint of the control that has the focus, followed by the hint about its range.
    void showHint();
    void showRange(const std::string& hint);
    [[nodiscard]] std::string focusHint();

    QMainWindow& window_;
    const UserActions& actions_;
    std::shared_ptr<FrameParts> parts_;
    FrameCapture& capture_;
    PropertyNotifySink& changes_;
    std::shared_ptr<Site> site_;
    std::unique_ptr<Document> document_;
    PageWidget* widget_ = nullptr;
    HintLine* hint_;
    const Control* hinted_ = nullptr; ///< the control that `rangeHint_` is about
    std::string rangeHint_;
};

} // namespace ko

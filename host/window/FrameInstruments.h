#pragma once

#include "host/setup/InstrumentEdits.h"
#include "host/window/FrameParts.h"
#include "widgets/support/UserActions.h"

class QMainWindow;

namespace ko {

class FrameCapture;
class FrameDocks;
class FrameHistory;
class PageHost;
class SetupSession;

/// Edits the list of instruments of the frame window: every change of it passes through `edit`, is one step of the
/// history, and is followed by the session, the docks and the page.
class FrameInstruments {
public:
    /// All arguments must outlive this object.
    FrameInstruments(QMainWindow& window, const UserActions& actions, FrameParts& parts, PageHost& page,
                     SetupSession& session, FrameCapture& capture, FrameHistory& history, FrameDocks& docks);

    /// Changes the instruments as one step; see `changedInstruments`. The page first accepts a valid entry that is
    /// still being typed. If the page, the change or an instrument refuses, shows the reason, changes nothing and
    /// returns false; so it does while the page is read-only.
    bool edit(const InstrumentChange& change);
    /// Describes an instrument of the list anew, as one step. As `edit`.
    bool describe(const HostInstrument& driver, const InstrumentSettings& settings);

    /// Puts a button on a new page without instruments.
    void joinPage();

    /// Lets the user choose a kind of instrument and adds one, to a new set-up if none is open.
    void add();

private:
    /// Returns whether the instruments can be edited now; shows the reason if not.
    [[nodiscard]] bool isOpen();
    void handOver(const HostInstruments& drivers, bool isRestored);
    void refuse(const QString& reason);

    QMainWindow& window_;
    const UserActions& actions_;
    FrameParts& parts_;
    PageHost& page_;
    SetupSession& session_;
    FrameCapture& capture_;
    FrameHistory& history_;
    FrameDocks& docks_;
};

} // namespace ko

#pragma once

#include "interfaces/ClientSite.h"
#include "interfaces/IKopDrivers.h"
#include "interfaces/IKopMenu.h"
#include "interfaces/IKopMode.h"
#include "interfaces/IKopPrint.h"
#include "interfaces/IKopState.h"
#include "page/Page.h"
#include "platform/Failure.h"
#include "platform/Services.h"

#include <memory>
#include <string>

namespace ko {

class AdvancedTrig;
class SelectChannel;
class SetDateTime;
class ShowOffers;

/// The document as its host holds it: the five interfaces, the life cycle, and the page for a view or a script to
/// show and drive. Everything on the user-interface thread; nothing ever throws. Destroying it ends the document.
///
/// Every member may be called, and the document ended, from inside any call that the document makes: of a driver, a
/// site, the error reporter, a message box or a dialog. After its end no event of it does anything but put back a value
/// that it has written and that is refused, as it does when the page is hidden or made read-only meanwhile. Its drivers
/// are released once the events in progress have returned. Its page's controls must not be used any more.
class Document {
public:
    virtual ~Document() = default;

    virtual IKopDrivers& drivers() = 0;
    virtual IKopMenu& menu() = 0;
    virtual IKopMode& mode() = 0;
    virtual IKopPrint& print() = 0;
    virtual IKopState& state() = 0;

    /// The host has put the page on the screen, or has taken it off. Keys go to the page's `keyDown`.
    virtual void UserDocument_Show() = 0;
    virtual void UserDocument_Hide() = 0;

    virtual Page& page() = 0;
};

/// The component's dialogs, for a view to show. Their classes' headers name their controls.
struct DialogForms {
    AdvancedTrig& advancedTrig;
    SetDateTime& setDateTime;
    SelectChannel& selectChannel;
    ShowOffers& showOffers;
};

/// The component: makes documents and owns what they share, which are the string table, the error reporter and the
/// dialogs. It outlives its documents.
class Component {
public:
    virtual ~Component() = default;

    /// A new, initialized document. `sink` is told of every accepted change and outlives the document.
    virtual std::unique_ptr<Document> createDocument(PropertyNotifySink& sink) = 0;

    /// The text of this number in the component's language. Failure 326 when there is none.
    virtual std::string text(int number) = 0;

    virtual DialogForms dialogs() = 0;
};

} // namespace ko

/// The component's one exported entry; the caller deletes what it gets. The component keeps a copy of `platform`.
/// `language` is the content of a string file whose entries take the place of the English ones, or empty; a file that
/// cannot be understood is a failure (an exception) that names the line.
extern "C" KO_VISIBLE ko::Component* createKoTimebaseEditor(const ko::Platform& platform, const std::string& language);

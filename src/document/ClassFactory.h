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
#include <string_view>

namespace ko {

class AdvancedTrig;
class SelectChannel;
class SetDateTime;
class ShowOffers;

/// The host's handle to a document: the five interfaces, the life cycle, and the page for a view or a script. All calls
/// are made on the user-interface thread; none throws. Destroying the handle ends the document.
///
/// Every member may be called, and the document ended, from inside any call that the document makes to a driver, a
/// site, the error reporter, a message box or a dialog. After the end, an event in progress only restores a value that
/// it wrote and that is refused, as it also does when the page is hidden or made read-only in the meantime. The drivers
/// are released once the events in progress have returned. The page's controls must not be used after the end.
class Document {
public:
    virtual ~Document() = default;

    virtual IKopDrivers& drivers() = 0;
    virtual IKopMenu& menu() = 0;
    virtual IKopMode& mode() = 0;
    virtual IKopPrint& print() = 0;
    virtual IKopState& state() = 0;

    /// Called by the host when it shows or hides the page. Key presses go to the page's `keyDown`.
    virtual void UserDocument_Show() = 0;
    virtual void UserDocument_Hide() = 0;

    virtual Page& page() = 0;

    /// The user sets a quantity ("sample-rate") of all drivers, as in the comparison of the drivers. Inert for an
    /// unknown quantity and for one that the user cannot edit at present.
    virtual Outcome setAll(std::string_view quantity, const std::string& value) = 0;
};

/// The component's dialogs, for views. The headers of their classes declare their controls.
struct DialogForms {
    AdvancedTrig& advancedTrig;
    SetDateTime& setDateTime;
    SelectChannel& selectChannel;
    ShowOffers& showOffers;
};

/// The component: creates documents and owns the string table, the error reporter and the dialogs that they share. It
/// must outlive its documents.
class Component {
public:
    virtual ~Component() = default;

    /// Creates and initializes a document. `sink` is notified of every accepted change and must outlive the document.
    virtual std::unique_ptr<Document> createDocument(PropertyNotifySink& sink) = 0;

    /// The text with this number in the component's language. Failure 326 when there is none.
    virtual std::string text(int number) = 0;

    virtual DialogForms dialogs() = 0;
};

} // namespace ko

/// The only exported symbol of the component. Returns a new component, which the caller deletes and which keeps a copy
/// of `platform`. `language` is the content of a string file whose entries replace the English ones, or empty. Throws a
/// `Failure` that names the line when the file cannot be parsed.
extern "C" KO_VISIBLE ko::Component* createKoTimebaseEditor(const ko::Platform& platform, const std::string& language);

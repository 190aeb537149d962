#include "host/window/FrameInstruments.h"

#include "host/docks/InstrumentGallery.h"
#include "host/docks/InstrumentsView.h"
#include "host/setup/SetupChanges.h"
#include "host/setup/SetupSession.h"
#include "host/setup/SetupTemplates.h"
#include "host/support/HostTexts.h"
#include "host/support/InputError.h"
#include "host/window/FrameCapture.h"
#include "host/window/FrameDocks.h"
#include "host/window/FrameHistory.h"
#include "host/window/PageHost.h"
#include "host/window/PlusButton.h"
#include "widgets/bindings/NoInstrumentPicture.h"
#include "widgets/support/Modal.h"
#include "widgets/support/PlainText.h"

#include <QMainWindow>
#include <QPointer>
#include <algorithm>

namespace ko {

namespace {

bool haveSameParts(const InstrumentSettings& one, const InstrumentSettings& other)
{
    const auto isSameChannel = [](const ChannelSettings& a, const ChannelSettings& b) {
        return a.address == b.address;
    };
    const auto isSameGroup = [&](const GroupSettings& a, const GroupSettings& b) {
        return a.name == b.name &&
               std::equal(a.channels.begin(), a.channels.end(), b.channels.begin(), b.channels.end(), isSameChannel);
    };
    return std::equal(one.groups.begin(), one.groups.end(), other.groups.begin(), other.groups.end(), isSameGroup);
}

/// Throws an `InputError` if an instrument whose device is open is to have other groups or channels than the device.
void refuseOtherParts(const HeldState& to)
{
    for (std::size_t i = 0; i < to.drivers.size(); ++i) {
        const InstrumentSettings& settings = *to.settings[i];
        const bool isOpenDevice = !settings.module.empty() && to.drivers[i]->trouble().empty();
        if (isOpenDevice && !haveSameParts(to.drivers[i]->held(), settings))
            throw InputError(settings.name + ": has the groups and channels of its device, which cannot be changed");
    }
}

} // namespace

FrameInstruments::FrameInstruments(QMainWindow& window, const UserActions& actions, FrameParts& parts, PageHost& page,
                                   SetupSession& session, FrameCapture& capture, FrameHistory& history,
                                   FrameDocks& docks)
    : window_(window), actions_(actions), parts_(parts), page_(page), session_(session), capture_(capture),
      history_(history), docks_(docks)
{
    history.restored = [this] { docks_.follow(session_.drivers()); };
    history.handOver = [this](const HostInstruments& drivers, History::HandOver how) {
        handOver(drivers, how == History::HandOver::Restored);
    };
    page.leaving = [this] { docks_.instruments().finishRename(); };
    InstrumentEditing& editing = docks.instruments().editing();
    editing.edit = [this](const InstrumentChange& change) { return edit(change); };
    editing.add = [this] { add(); };
    InstrumentDescribing& describing = docks.instruments().describing();
    describing.describe = [this](const HostInstrument& driver, const InstrumentSettings& settings) {
        return describe(driver, settings);
    };
    describing.isLocked = [this] { return history_.isLocked(); };
}

void FrameInstruments::joinPage()
{
    NoInstrumentPicture& picture = page_.widget().noInstruments();
    auto* const plus = new PlusButton(picture, withoutMnemonic(parts_.text(textNumber::instrumentEdit::galleryTitle)));
    // An action of the page, too, which keeps the button while a document that ends takes the page away.
    onSignal(plus, &QToolButton::clicked, &picture, [this] { page_.widget().view().act([this] { add(); }); });
}

void FrameInstruments::handOver(const HostInstruments& drivers, bool isRestored)
{
    session_.setDrivers(drivers);
    docks_.follow(drivers);
    if (isRestored)
        page_.handOverHidden(drivers);
    else
        docks_.rebuildBy([&] { page_.handOver(drivers); });
}

bool FrameInstruments::isOpen()
{
    const bool isLocked = history_.isLocked();
    // The window may be destroyed meanwhile.
    if (isLocked)
        refuse(parts_.text(textNumber::instrumentEdit::readOnly));
    return !isLocked;
}

bool FrameInstruments::edit(const InstrumentChange& change)
{
    const UserActions::Action action(actions_);
    // Another set-up may have been opened while the page showed a message.
    const HostInstruments shown = session_.drivers();
    if (!isOpen() || !page_.okToLeave() || session_.drivers() != shown)
        return false;
    const QPointer<QWidget> focused = window_.focusWidget();
    try {
        const HeldState to = changedInstruments(shown, change, session_.devices);
        refuseOtherParts(to);
        capture_.instruments(to);
        const bool isChanged = !action.isOver() && session_.drivers() == shown && history_.edit(to);
        // The page takes the focus while it is rebuilt.
        if (!action.isOver() && focused && !page_.widget().isAncestorOf(focused))
            focused->setFocus();
        return isChanged;
    } catch (const std::exception& error) {
        refuse(toQt(error.what()));
        return false;
    }
}

bool FrameInstruments::describe(const HostInstrument& driver, const InstrumentSettings& settings)
{
    const HostInstruments& drivers = session_.drivers();
    const auto found = std::find_if(drivers.begin(), drivers.end(), [&](const auto& d) { return d.get() == &driver; });
    const auto index = static_cast<std::size_t>(found - drivers.begin());
    return found != drivers.end() && edit([&](Setup& setup) { describeInstrument(setup, index, settings); });
}

void FrameInstruments::add()
{
    const UserActions::Action action(actions_);
    if (!isOpen())
        return;
    InstrumentSettings chosen;
    {
        Modal<InstrumentGallery> gallery(parts_.texts(), instrumentKinds(), session_.devices, &window_);
        if (!gallery.isAccepted() || action.isOver())
            return;
        chosen = gallery->chosen();
    }
    if (!session_.hasSetup())
        session_.begin("empty");
    if (edit([&](Setup& setup) { addInstrument(setup, chosen); }) && !action.isOver())
        docks_.instruments().select(session_.drivers().size() - 1);
}

void FrameInstruments::refuse(const QString& reason)
{
    Modal<PlainBox>(QMessageBox::Warning, parts_.text(hostText::product),
                    parts_.text(textNumber::instrumentEdit::refused), reason, QMessageBox::Ok, &window_)
        .wait();
}

} // namespace ko

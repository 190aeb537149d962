#include "host/window/FrameWindow.h"

#include "host/chart/ChartPanel.h"
#include "host/docks/InstrumentsView.h"
#include "host/docks/Reports.h"
#include "host/instruments/KeptInstrument.h"
#include "host/recording_view/RecordingView.h"
#include "host/setup/PlacedChanges.h"
#include "host/toolkit/DockRoom.h"
#include "host/toolkit/Later.h"
#include "widgets/support/ShownText.h"

#include <QLayout>
#include <QSignalBlocker>
#include <algorithm>

namespace ko {

namespace {

/// The place where a recorded channel is now, in the instrument of that name or, if there is none, of that place; none
/// if the channel has gone.
std::optional<SetupPlace> presentPlace(const ChartChannel& recorded, const HostInstruments& drivers)
{
    const auto isNamed = [&](const auto& driver) { return driver->name() == recorded.instrumentName; };
    std::size_t index = recorded.instrument;
    if (index >= drivers.size() || !isNamed(drivers[index]))
        if (const auto found = std::find_if(drivers.begin(), drivers.end(), isNamed); found != drivers.end())
            index = static_cast<std::size_t>(found - drivers.begin());
    std::optional<SetupPlace> place;
    if (index < drivers.size())
        forEachChannel(drivers[index]->held(), [&](const ChannelSettings& channel, std::int32_t g, std::int32_t c) {
            if (channel.address == recorded.channel.address)
                place = SetupPlace{index, g, c};
        });
    return place;
}

} // namespace

// What the parts of the frame window call in each other.

CaptureFrame FrameWindow::captureFrame()
{
    CaptureFrame frame{*this, actions_, *parts_, session(), {}, {}, {}, {}};
    frame.document = [this]() -> Document& { return document(); };
    frame.mayLeave = [this] { return recording_.mayLeave() && page_.okToLeave(); };
    frame.renewPage = [this] {
        history_.end();
        page_.renew();
    };
    frame.showAgain = [this] { handOverAsIs(); };
    return frame;
}

ReplayFrame FrameWindow::replayFrame()
{
    ReplayFrame frame{*this, actions_, parts_, files_, page_, docks_, history_, {}, {}};
    frame.setupLoaded = [this] {
        lockOpenedRecording();
        docks_.show(session().drivers());
        recording_.showOpened();
        space_->refreshLater();
        showPageOrStart();
    };
    frame.showReadOnly = [this] {
        const QSignalBlocker silent(readOnly_);
        readOnly_->setChecked(document().page().readOnly);
    };
    return frame;
}

void FrameWindow::joinFiles()
{
    session().mayLeavePage = [this] { return page_.okToLeave(); };
    session().checkFree = [this](const std::string& file) {
        memory_.refuseOwn(file);
        capture_.refuseOwn(file);
        recording_.refuseOwn(file);
        autosave_.refuseOwn(file);
    };
    parts_->refuseOwn = [this](const std::string& file) {
        session().refuseOwn(file);
        session().checkFree(file);
    };
    files_.showInstruments = [this] {
        capture_.setup(session().source());
        handOverAsIs();
    };
}

void FrameWindow::joinHistory()
{
    history_.rebuild = [this] { docks_.rebuildBy([this] { document().UserDocument_Show(); }); };
    session().saved = [this] {
        history_.saved();
        later(*this, [this] { unlockSavedSetup(); });
    };
    actions_.whenDone([this] { page_.actionDone(); });
}

void FrameWindow::joinSpace()
{
    centralWidget()->layout()->addWidget(space_);
    space_->figures = [this] { return document().page().figures; };
    space_->file = [this] { return session().file(); };
    files_.changed = [this] {
        space_->refreshLater();
        // What is being typed is no step of the history yet, but the instruments hold it.
        autosave_.changed();
    };
}

void FrameWindow::joinRecording()
{
    session().setupInside = [this](const std::string& file) { return recording_.setupIn(file); };
    session().mayReplace = [this] { return recording_.mayLeave(); };
    instruments().selectionChanged = [this] { chooseCharted(); };
    docks_.locked = [this] { return recording_.isActive(); };
    docks_.include(recording_.view());
    addAction(&recording_.chart().marking());
    docks_.recordingFailures = [this] { return recording_.failures(); };
    recording_.failed = [this] { docks_.showRecordingFailures(); };
    recording_.setReadOnly = [this](bool on) {
        history_.hostCall([&] { docks_.health().rebuild([&] { page_.setReadOnly(on); }); });
    };
    recording_.hostCall = [this](const std::function<void()>& call) { history_.hostCall(call); };
    recording_.openDevices = [this] { docks_.openDevices(); };
    recording_.devicesOpened = [this] { docks_.showPageAgain(); };
    recording_.reveal = [this] {
        if (recording_.view().isHidden())
            makeRoom(*this, recording_.view(), page().sizeHint());
        recording_.view().show();
        recording_.view().raise();
    };
}

/// Without a selection the chart shows all channels.
void FrameWindow::chooseCharted()
{
    recording_.chart().chart().choose([this](const ChartChannel& it) {
        const auto at = presentPlace(it, session().drivers());
        return at && instruments().isSelected(at->instrument, at->group, at->channel);
    });
}

void FrameWindow::joinStart()
{
    static_cast<QBoxLayout*>(centralWidget()->layout())->insertWidget(0, start_, 1);
    start_->begin = [this](const std::string& name) { files_.beginNew(name); };
    start_->open = [this] { files_.chooseAndOpen(); };
    start_->openRecent = [this](const QString& file) { files_.openRecent(file); };
    files_.recent().changed = [this] { start_->showRecent(files_.recent().files()); };
    start_->showRecent(files_.recent().files());
}

void FrameWindow::joinAutosave()
{
    history_.changed = [this] {
        autosave_.changed();
        showPageOrStart();
    };
    autosave_.failed = [this](const std::string& reason) {
        docks_.reports().add(text(textNumber::autosave::name), toShown(reason));
    };
}

} // namespace ko

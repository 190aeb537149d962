#include "host/window/FrameWindow.h"

#include "host/chart/ChartPanel.h"
#include "host/docks/DriverLog.h"
#include "host/docks/InstrumentsView.h"
#include "host/docks/Reports.h"
#include "host/recording_view/RecordingView.h"
#include "host/support/HostTexts.h"
#include "host/toolkit/DockRoom.h"
#include "host/toolkit/HintLine.h"
#include "host/toolkit/Later.h"
#include "widgets/support/Modal.h"
#include "widgets/support/PlainText.h"
#include "widgets/support/ShownText.h"

#include <QKeyEvent>
#include <QLayout>
#include <QSignalBlocker>
#include <QStatusBar>
#include <QToolButton>

namespace ko {

FrameWindow::FrameWindow(const std::string& language, const std::string& memory)
    : memory_(memory), parts_(std::make_shared<FrameParts>(*this, language))
{
    actions_.keep(parts_);
    joinFiles();
    joinHistory();
    joinSpace();
    joinRecording();
    joinStart();
    joinAutosave();
    statusBar()->addWidget(&page_.hint(), 1);
    statusBar()->addPermanentWidget(&docks_.reports().button());
    statusBar()->addPermanentWidget(&capture_.sign());
    makeMenus();
    page_.made = [this] { list_.joinPage(); };
    page_.make();
    setAcceptDrops(true);
    handOver();
}

FrameWindow::~FrameWindow()
{
    capture_.stop();
    recording_.close();
    docks_.stop();
    space_->stop();
    files_.changed = nullptr;
    files_.recent().changed = history_.changed = nullptr;
    page_.end();
    if (!actions_.end(*this))
        docks_.remove();
}

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

/// A file that has changed on disk, and changes that are no steps, are read again.
void FrameWindow::revertToSaved()
{
    if (!session().isOpen() || recording_.isActive() || (!session().hasChangedOnDisk() && history_.revertToSaved()))
        return;
    Modal<PlainBox> box(QMessageBox::Question, text(hostText::product), text(textNumber::history::revertQuestion),
                        QString(), QMessageBox::Discard | QMessageBox::Cancel, this);
    const UserActions::Action action(actions_);
    if (box.wait() == QMessageBox::Discard && !action.isOver())
        session().reload(files_.questions());
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
        return instruments().isSelected(it.instrument, it.channel.group, it.channel.channel);
    });
}

void FrameWindow::lockOpenedRecording()
{
    recording_.followSetup();
    const bool isWanted = recording_.isOpened() && !readOnly_->isChecked();
    if (!isWanted && (recording_.isOpened() || !std::exchange(isLockedForRecording_, false)))
        return;
    isLockedForRecording_ = isWanted;
    const QSignalBlocker silent(readOnly_);
    readOnly_->setChecked(isWanted);
    page_.setReadOnly(isWanted);
}

/// The set-up of a recording that has been saved to a file of its own can be edited.
void FrameWindow::unlockSavedSetup()
{
    recording_.followSetup();
    if (isLockedForRecording_ && !recording_.isOpened())
        readOnly_->setChecked(false);
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

void FrameWindow::showPageOrStart()
{
    const bool hasSetup = session().hasSetup();
    if (!hasSetup)
        start_->setSizeHint(page().sizeHint());
    start_->setVisible(!hasSetup);
    page().setVisible(hasSetup);
}

void FrameWindow::handOver(bool isSaved)
{
    lockOpenedRecording();
    docks_.show(session().drivers());
    page_.show(session().drivers());
    history_.begin(isSaved);
    recording_.showOpened();
    space_->refreshLater();
    showPageOrStart();
    if (session().hasSetup())
        page().view().focus().follow();
    else
        start_->setFocus();
}

void FrameWindow::handOverAsIs()
{
    handOver(!session().isChanged());
}

bool FrameWindow::isAvailable(std::int32_t command)
{
    const QWidget* const focused = focusWidget();
    if (command != command::help && docks_.contains(focused))
        return command == command::copy && driverLog().isAncestorOf(focused);
    return page_.isAvailable(command);
}

void FrameWindow::runCommand(std::int32_t command)
{
    if (!isAvailable(command))
        return;
    if (command != command::help && driverLog().isAncestorOf(focusWidget()))
        driverLog().copy();
    else
        page_.sendCommand(command);
}

void FrameWindow::keyPressEvent(QKeyEvent* event)
{
    const bool isHelp = event->key() == Qt::Key_F1 && event->modifiers() == Qt::NoModifier;
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!docks_.contains(focusWidget()))
            page_.sendCommand(command::acceptEntry);
        break;
    default: isHelp ? runCommand(command::help) : QMainWindow::keyPressEvent(event);
    }
}

void FrameWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    // Repeats an offer that an open dialog has suppressed, and finds changes that the file system does not report.
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        later(*this, [this] { files_.offerReload(); });
}

void FrameWindow::closeEvent(QCloseEvent* event)
{
    const UserActions::Action action(actions_);
    // Events are accepted by default, but a failure below must not close the window.
    event->ignore();
    event->setAccepted(files_.mayLeave());
    if (!event->isAccepted())
        return;
    rememberPlace();
    autosave_.end();
}

void FrameWindow::dragEnterEvent(QDragEnterEvent* event)
{
    FrameFiles::acceptDrag(*event);
}

void FrameWindow::dropEvent(QDropEvent* event)
{
    files_.openDropped(*event);
}

bool FrameWindow::restorePlace()
{
    return restoreGeometry(memory_.content().geometry) && restoreState(memory_.content().docks);
}

void FrameWindow::rememberPlace()
{
    memory_.change([this](FrameMemory::Content& content) {
        content.geometry = saveGeometry();
        content.docks = saveState();
    });
}

} // namespace ko

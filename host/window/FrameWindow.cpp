#include "host/window/FrameWindow.h"

#include "host/docks/DriverLog.h"
#include "host/docks/Reports.h"
#include "host/support/HostTexts.h"
#include "host/toolkit/HintLine.h"
#include "host/toolkit/Later.h"
#include "widgets/support/Modal.h"
#include "widgets/support/PlainText.h"

#include <QApplication>
#include <QKeyEvent>
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

/// A file that has changed on disk, and changes that are no steps, are read again.
void FrameWindow::revertToSaved()
{
    if (!session().hasChangedOnDisk() && history_.revertToSaved())
        return;
    Modal<PlainBox> box(QMessageBox::Question, text(hostText::product), text(textNumber::history::revertQuestion),
                        QString(), QMessageBox::Discard | QMessageBox::Cancel, this);
    const UserActions::Action action(actions_);
    if (box.wait() == QMessageBox::Discard && !action.isOver())
        session().reload(files_.questions());
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

/// A dock that floats is a window of its own, whose keys reach the menus of this one.
const QWidget* FrameWindow::focused() const
{
    const QWidget* const anywhere = QApplication::focusWidget();
    return docks_.contains(anywhere) ? anywhere : focusWidget();
}

bool FrameWindow::isAvailable(std::int32_t command)
{
    if (command != command::help && docks_.contains(focused()))
        return command == command::copy && driverLog().isAncestorOf(focused());
    return page_.isAvailable(command);
}

void FrameWindow::runCommand(std::int32_t command)
{
    if (!isAvailable(command))
        return;
    if (command != command::help && driverLog().isAncestorOf(focused()))
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

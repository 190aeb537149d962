#include "host/support/HostTexts.h"
#include "host/window/FrameWindow.h"
#include "host/window/Later.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/PlainText.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

namespace ko {

namespace {

/// The one local file that is dragged; empty for anything else.
QString draggedFile(const QDropEvent& event)
{
    const QList<QUrl> urls = event.mimeData()->urls();
    return urls.size() == 1 ? urls.front().toLocalFile() : QString();
}

} // namespace

void FrameWindow::makeSession()
{
    questions_ = std::make_unique<BoxQuestions>(*this, session_, texts());
    session_.mayLeavePage = [this] { return okToLeave(); };
    session_.checkFree = [this](const std::string& file) { capture_->refuseOwn(file); };
    session_.loaded = [this] { showLoaded(); };
    session_.titleChanged = [this] { showTitle(); };
}

void FrameWindow::open(const std::string& file)
{
    session_.load(file);
}

void FrameWindow::showLoaded()
{
    services_.clock.standAt(session_.clock());
    capture_->setup(session_.file());
    handOver();
    session_.setChanged(false);
    rememberFile();
}

void FrameWindow::openAsking(const QString& file)
{
    const UserActions::Action action(actions_);
    guarded([&] { session_.open(fromQt(file), *questions_); }, file);
}

void FrameWindow::chooseSetup()
{
    const std::string file = questions_->fileToOpen();
    if (!file.empty())
        openAsking(toQt(file));
}

void FrameWindow::openRecent(const QString& file)
{
    const UserActions::Action action(actions_);
    openAsking(file);
    if (!action.isOver() && !QFileInfo::exists(file))
        recent_.remove(file);
}

void FrameWindow::save()
{
    if (session_.save(*questions_))
        rememberFile();
}

void FrameWindow::saveAs()
{
    if (session_.saveAs(*questions_))
        rememberFile();
}

void FrameWindow::rememberFile()
{
    fileWatch_.watch(session_.file());
    // A list of texts cannot keep any other name.
    if (const QString name = toQt(session_.file()); fromQt(name) == session_.file())
        recent_.add(name);
}

void FrameWindow::offerReload()
{
    const UserActions::Action action(actions_);
    if (isVisible() && !QApplication::activeModalWidget())
        session_.offerReload(*questions_);
}

void FrameWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    // What a question has kept waiting, or a file system does not say.
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        later(*this, [this] { offerReload(); });
}

void FrameWindow::showTitle()
{
    const QString name = session_.isOpen() ? plainTitle(toQt(session_.name())) : text(hostText::noSetup);
    setWindowTitle(QStringLiteral("%1[*] - %2").arg(name, text(hostText::product)));
    setWindowModified(session_.isChanged());
}

void FrameWindow::OnChanged()
{
    if (!session_.isChanged())
        session_.setChanged(true);
}

void FrameWindow::closeEvent(QCloseEvent* event)
{
    const UserActions::Action action(actions_);
    // An event starts accepted, and a failure must not close the window.
    event->ignore();
    event->setAccepted(session_.mayLeave(*questions_));
    if (event->isAccepted())
        rememberPlace();
}

void FrameWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!draggedFile(*event).isEmpty())
        event->acceptProposedAction();
}

void FrameWindow::dropEvent(QDropEvent* event)
{
    const QString file = draggedFile(*event);
    event->acceptProposedAction();
    // Whoever drags waits for the drop to end, a message box or not.
    later(*this, [this, file] { openAsking(file); });
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

#include "host/FrameWindow.h"
#include "host/HostTexts.h"
#include "host/Later.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

namespace ko {

namespace {

const QString geometryKey = QStringLiteral("window/geometry");
const QString docksKey = QStringLiteral("window/docks");

/// The one local file that is dragged; empty for anything else.
QString draggedFile(const QDropEvent& event)
{
    const QList<QUrl> urls = event.mimeData()->urls();
    return urls.size() == 1 ? urls.front().toLocalFile() : QString();
}

} // namespace

void FrameWindow::makeSession()
{
    questions_ = std::make_unique<BoxQuestions>(*this, session_, [this](int number) { return text(number); });
    session_.mayLeavePage = [this] { return okToLeave(); };
    session_.titleChanged = [this] { showTitle(); };
}

void FrameWindow::open(const std::string& file)
{
    session_.load(file);
    showLoaded();
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
    if (session_.open(fromQt(file), *questions_))
        showLoaded();
}

void FrameWindow::chooseSetup()
{
    const std::string file = questions_->fileToOpen();
    if (!file.empty())
        openAsking(toQt(file));
}

void FrameWindow::openRecent(const QString& file)
{
    openAsking(file);
    if (!QFileInfo::exists(file))
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
    recent_.add(toQt(session_.file()));
}

void FrameWindow::showTitle()
{
    const QString name = session_.isOpen() ? toQt(session_.name()) : text(hostText::noSetup);
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
    return settings_ && restoreGeometry(settings_->value(geometryKey).toByteArray()) &&
           restoreState(settings_->value(docksKey).toByteArray());
}

void FrameWindow::rememberPlace()
{
    if (!settings_)
        return;
    settings_->setValue(geometryKey, saveGeometry());
    settings_->setValue(docksKey, saveState());
}

} // namespace ko

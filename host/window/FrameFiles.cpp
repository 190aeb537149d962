#include "host/window/FrameFiles.h"

#include "host/support/HostTexts.h"
#include "host/toolkit/Later.h"

#include <QApplication>
#include <QDropEvent>
#include <QFileInfo>
#include <QMainWindow>
#include <QMimeData>
#include <QUrl>

namespace ko {

namespace {

/// Returns the dragged local file; empty unless it is exactly one.
QString draggedFile(const QDropEvent& event)
{
    const QList<QUrl> urls = event.mimeData()->urls();
    return urls.size() == 1 ? urls.front().toLocalFile() : QString();
}

/// After a move the program at the other end of the drag may remove the file.
void acceptCopy(QDropEvent& event)
{
    event.setDropAction(Qt::CopyAction);
    event.accept();
}

} // namespace

FrameFiles::FrameFiles(QMainWindow& window, const UserActions& actions, FrameParts& parts, FrameMemory& memory)
    : window_(window), actions_(actions), parts_(parts), recent_(memory),
      questions_(std::make_unique<BoxQuestions>(window, session_, parts.texts(), parts.platform.locale))
{
    session_.loaded = [this] { showLoaded(); };
    session_.titleChanged = [this] { showTitle(); };
    showTitle();
}

void FrameFiles::showLoaded()
{
    const bool isRestored = session_.isChanged();
    parts_.services.clock.standAt(session_.clock());
    showInstruments();
    session_.setChanged(isRestored);
    remember();
}

void FrameFiles::open(const QString& file)
{
    const UserActions::Action action(actions_);
    guarded([&] { session_.open(fromQt(file), *questions_); }, file);
}

void FrameFiles::beginNew(const std::string& templateName)
{
    const UserActions::Action action(actions_);
    session_.beginNew(templateName, *questions_);
}

void FrameFiles::chooseAndOpen()
{
    const std::string file = questions_->fileToOpen();
    if (!file.empty())
        open(toQt(file));
}

void FrameFiles::openRecent(const QString& file)
{
    const UserActions::Action action(actions_);
    if (QFileInfo::exists(file))
        return open(file);
    const bool isForgotten = questions_->forget(fromQt(file));
    if (isForgotten && !action.isOver())
        recent_.remove(file);
}

void FrameFiles::acceptDrag(QDragEnterEvent& event)
{
    if (!draggedFile(event).isEmpty())
        acceptCopy(event);
}

void FrameFiles::openDropped(QDropEvent& event)
{
    acceptCopy(event);
    // The program at the other end of the drag waits until this event has returned, so no message box is shown here.
    later(window_, [this, file = draggedFile(event)] { open(file); });
}

void FrameFiles::close()
{
    const UserActions::Action action(actions_);
    session_.close(*questions_);
}

void FrameFiles::save()
{
    if (session_.save(*questions_))
        remember();
}

void FrameFiles::saveAs()
{
    if (session_.saveAs(*questions_))
        remember();
}

void FrameFiles::remember()
{
    watch_.watch(session_.file());
    const std::string file = session_.opened();
    // The list of recent files can keep only names in UTF-8.
    if (const QString name = toQt(file); !file.empty() && fromQt(name) == file)
        recent_.add(name);
}

void FrameFiles::offerReload()
{
    const UserActions::Action action(actions_);
    if (window_.isVisible() && !QApplication::activeModalWidget())
        session_.offerReload(*questions_);
}

void FrameFiles::showTitle()
{
    const std::string named = session_.name();
    const QString name = named.empty() ? parts_.text(hostText::noSetup) : plainTitle(toQt(named));
    window_.setWindowTitle(QStringLiteral("%1[*] - %2").arg(name, parts_.text(hostText::product)));
    window_.setWindowModified(session_.isChanged());
}

void FrameFiles::OnChanged()
{
    if (!session_.isChanged())
        session_.setChanged(true);
    if (changed)
        changed();
}

} // namespace ko

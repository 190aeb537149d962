#include "host/window/FrameAutosave.h"

#include "host/setup/SetupSession.h"
#include "host/support/FileWriter.h"
#include "host/support/InputError.h"
#include "host/window/UserQuestions.h"

namespace ko {

namespace {

/// Returns the reason if it fails.
std::string writeCopy(const std::string& file, const UnsavedSetup& unsaved)
{
    try {
        writeWhole(file, copyText(unsaved), Readers::OwnerOnly);
        return {};
    } catch (const InputError& error) {
        return error.what();
    } catch (const std::exception& error) {
        return file + ": " + error.what();
    }
}

} // namespace

FrameAutosave::FrameAutosave(const UserActions& actions, SetupSession& session, std::string folder)
    : actions_(actions), session_(session), folder_(std::move(folder))
{
    timer_.setInterval(usualDelay);
    onSignal(&timer_, &QTimer::timeout, this, [this] { write(); });
    looking_.setInterval(20);
    onSignal(&looking_, &QTimer::timeout, this, [this] { written(); });
}

FrameAutosave::~FrameAutosave() = default;

void FrameAutosave::changed()
{
    if (!session_.isChanged())
        drop();
    else if (!folder_.empty() && !timer_.isActive())
        timer_.start();
}

void FrameAutosave::write()
{
    if (writing_.valid() || !attempt([this] { beginWriting(); }))
        timer_.start();
}

void FrameAutosave::beginWriting()
{
    const auto now = std::make_shared<const UnsavedSetup>(session_.unsaved());
    if (copy_ && kept_ && *now == *kept_)
        return;
    if (!copy_ || !copy_->keepLocked())
        copy_ = UnsavedCopy::create(folder_);
    writing_ = std::async(std::launch::async, [file = copy_->file(), now] { return writeCopy(file, *now); });
    kept_ = now;
    looking_.start();
}

void FrameAutosave::written()
{
    if (writing_.wait_for(std::chrono::seconds(0)) != std::future_status::ready)
        return;
    looking_.stop();
    const std::string reason = writing_.get();
    removeReplaced();
    if (reason.empty()) {
        hasFailed_ = false;
    } else {
        kept_.reset();
        fail(reason);
        timer_.start();
    }
    if (!session_.isChanged())
        drop();
}

/// A copy that is still being written is removed afterwards.
void FrameAutosave::drop()
{
    timer_.stop();
    if (!copy_ || writing_.valid())
        return;
    attempt([this] {
        copy_->remove();
        copy_.reset();
        kept_.reset();
    });
}

void FrameAutosave::refuseOwn(const std::string& file) const
{
    refuseSame(file, copy_ ? copy_->file() : std::string(), "the copy of the unsaved changes");
}

void FrameAutosave::end()
{
    folder_.clear();
    looking_.stop();
    if (writing_.valid())
        writing_.get();
    removeReplaced();
    drop();
}

bool FrameAutosave::attempt(const std::function<void()>& act)
{
    try {
        act();
        return true;
    } catch (const std::exception& error) {
        fail(error.what());
        return false;
    }
}

void FrameAutosave::fail(const std::string& reason)
{
    if (!std::exchange(hasFailed_, true) && failed)
        failed(reason);
}

void FrameAutosave::offer(UserQuestions& questions)
{
    if (folder_.empty())
        return;
    const UserActions::Action action(actions_);
    for (UnsavedCopy& copy : UnsavedCopy::abandoned(folder_))
        if (offer(copy, questions, action) == Answered::Done)
            return;
}

FrameAutosave::Answered FrameAutosave::offer(UnsavedCopy& copy, UserQuestions& questions,
                                             const UserActions::Action& action)
{
    try {
        const UnsavedSetup unsaved = parseCopy(readFile(copy.file()), copy.file());
        const Recovery recovery = isSaved(unsaved) ? Recovery::Discard : ask(copy, unsaved, questions);
        if (action.isOver() || recovery == Recovery::Later)
            return Answered::Done;
        if (recovery == Recovery::Restore)
            return restore(copy, unsaved, questions, action);
        attempt([&] { copy.remove(); });
    } catch (const InputError& error) {
        questions.tellDamagedCopy(copy.setAside(), error.what());
    }
    return action.isOver() ? Answered::Done : Answered::Next;
}

Recovery FrameAutosave::ask(const UnsavedCopy& copy, const UnsavedSetup& unsaved, UserQuestions& questions)
{
    return questions.restoreCopy(unsaved.file.empty() ? unsaved.templateName : unsaved.file, copy.time());
}

FrameAutosave::Answered FrameAutosave::restore(UnsavedCopy& copy, const UnsavedSetup& unsaved, UserQuestions& questions,
                                               const UserActions::Action& action)
{
    if (!session_.mayLeave(questions) || action.isOver())
        return Answered::Done;
    session_.restore(unsaved);
    if (action.isOver())
        return Answered::Done;
    // It stays until it is written anew or nothing is unsaved; that of the set-up which has been left goes.
    replaced_ = std::exchange(copy_, std::move(copy));
    kept_.reset();
    if (!writing_.valid())
        removeReplaced();
    return Answered::Done;
}

void FrameAutosave::removeReplaced()
{
    if (replaced_)
        attempt([this] { replaced_->remove(); });
    replaced_.reset();
}

} // namespace ko

#include "host/window/FrameHistory.h"

#include "host/setup/SetupSession.h"
#include "host/support/HostTexts.h"
#include "host/window/FrameCapture.h"
#include "host/window/PageHost.h"
#include "platform/Scoped.h"
#include "widgets/support/Convert.h"
#include "widgets/support/Modal.h"
#include "widgets/support/ShownText.h"

#include <QMainWindow>
#include <QMenu>
#include <QUndoView>

namespace ko {

namespace historyText = textNumber::history;

/// A row of the list of steps.
class FrameHistory::Step : public QUndoCommand {
public:
    using QUndoCommand::QUndoCommand;
};

FrameHistory::FrameHistory(QMainWindow& window, const UserActions& actions, FrameParts& parts, PageHost& page,
                           SetupSession& session, FrameCapture& capture)
    : window_(window), actions_(actions), parts_(parts), page_(page), session_(session), capture_(capture),
      history_({[&parts](int number) { return parts.component->text(number); },
                [&parts]() -> const Locale& { return parts.platform.locale; }}),
      dock_(new QDockWidget(withoutMnemonic(parts.text(historyText::history)), &window)), stack_(new QUndoStack(dock_)),
      view_(new QUndoView(stack_, dock_))
{
    dock_->setObjectName(QStringLiteral("historyDock"));
    view_->setEmptyLabel(parts.text(historyText::opened));
    view_->setAccessibleName(dock_->windowTitle());
    dock_->setWidget(view_);
    dock_->setFocusProxy(view_);
    window.addDockWidget(Qt::RightDockWidgetArea, dock_);
    dock_->hide();
    onSignal(stack_, &QUndoStack::indexChanged, this, [this](int index) {
        if (!isShowing_)
            moveTo(static_cast<std::size_t>(index));
    });
    onSignal(&undo_, &QAction::triggered, this, [this] { undo(); });
    onSignal(&redo_, &QAction::triggered, this, [this] { redo(); });
    undo_.setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_Z)});
    redo_.setShortcuts({QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
    page.actionDone = [this] { settle(); };
    page.focusMoved = [this] { history_.focusMoved(); };
    parts.services.modalForms.actionDone = [this] { history_.settle(); };
    history_.changed = [this] { show(); };
    history_.rebuild = [this] { ko::raise(rebuild); };
    history_.restored = [this] { ko::raise(restored); };
    history_.handOver = [this](const HostInstruments& drivers, History::HandOver how) { handOver(drivers, how); };
    history_.refused = [this](const std::string& instrument, const std::string& reason) {
        tellRefused(instrument, reason);
    };
}

FrameHistory::~FrameHistory()
{
    page_.actionDone = page_.focusMoved = parts_.services.modalForms.actionDone = nullptr;
    history_.end();
    // The dock, with the stack, may outlive the window, in an action in progress.
    if (dock_)
        stack_->disconnect(this);
}

void FrameHistory::addEntries(QMenu& menu)
{
    menu.addAction(&undo_);
    menu.addAction(&redo_);
    menu.addSeparator();
    onSignal(&menu, &QMenu::aboutToShow, this, [this] {
        undo_.setEnabled(!isLocked() && (history_.position() > 0 || history_.hasEntryInProgress()));
        redo_.setEnabled(!isLocked() && history_.position() < history_.steps().size());
    });
    // A disabled action would not receive its shortcut.
    onSignal(&menu, &QMenu::aboutToHide, this, [this] {
        undo_.setEnabled(true);
        redo_.setEnabled(true);
    });
}

void FrameHistory::begin(bool isSaved)
{
    history_.begin(session_.drivers(), page_.document().page(), isSaved);
}

/// Actions of the page may be part of one of the window.
void FrameHistory::settle()
{
    if (!actions_.areInProgress() && !page_.widget().view().actions().areInProgress())
        history_.settle();
}

void FrameHistory::edit(const std::function<void()>& change)
{
    const UserActions::Action action(actions_);
    if (finishAnd(change))
        history_.finish();
}

bool FrameHistory::edit(const HeldState& to)
{
    const UserActions::Action action(actions_);
    const bool isChanged = history_.edit(to);
    if (!action.isOver())
        show();
    return isChanged;
}

void FrameHistory::hostCall(const std::function<void()>& call)
{
    // An action that ends inside the call would make a step.
    const UserActions::Action action(actions_);
    std::exception_ptr failure;
    const bool isAlive = finishAnd([&] {
        try {
            call();
        } catch (...) {
            failure = std::current_exception();
        }
    });
    if (isAlive)
        history_.absorb();
    if (failure)
        std::rethrow_exception(failure);
}

bool FrameHistory::finishAnd(const std::function<void()>& call)
{
    history_.finish();
    const std::weak_ptr<int> life = life_;
    call();
    return !life.expired();
}

bool FrameHistory::isLocked() const
{
    return page_.document().page().readOnly;
}

void FrameHistory::undo()
{
    if (isLocked())
        return;
    if (history_.hasEntryInProgress()) {
        auto* const box = dynamic_cast<TextBox*>(page_.document().page().activeControl());
        page_.widget().view().act([box] { box->userUndid(); });
    } else if (history_.position() > 0) {
        moveTo(history_.position() - 1);
    }
}

void FrameHistory::redo()
{
    if (!isLocked() && history_.position() < history_.steps().size())
        moveTo(history_.position() + 1);
}

/// Returns whether what is being typed has become a step.
bool FrameHistory::endEntry()
{
    const bool isStep = history_.finish();
    // Nothing is left to redo; in a replay the step ends there, too.
    if (isStep)
        capture_.host({"redo"});
    return isStep;
}

void FrameHistory::saved()
{
    endEntry();
    history_.setClean();
}

void FrameHistory::moveTo(std::size_t position)
{
    const UserActions::Action action(actions_);
    const std::size_t before = history_.position();
    // What was being typed is a step now, so that the position means another one.
    if (endEntry() || isLocked())
        return show();
    const bool isUndo = position < before;
    const std::size_t count = isUndo ? before - position : position - before;
    // All at once, because an instrument that refuses one of the steps refuses all.
    ScenarioWriter::Words words{isUndo ? "undo" : "redo"};
    if (count > 1)
        words.push_back(std::to_string(count));
    if (count > 0)
        capture_.host(words);
    const QPointer<QWidget> focused = window_.focusWidget();
    history_.moveTo(position);
    if (action.isOver())
        return;
    show();
    // The page takes the focus back while it is rebuilt.
    if (focused && !page_.widget().isAncestorOf(focused))
        focused->setFocus();
}

bool FrameHistory::revertToSaved()
{
    history_.finish();
    const auto clean = history_.cleanPosition();
    if (!clean || isLocked())
        return false;
    moveTo(*clean);
    return true;
}

void FrameHistory::show()
{
    const bool isChanged = !history_.isClean();
    if (session_.isChanged() != isChanged)
        session_.setChanged(isChanged);
    ko::raise(changed);
    const Scoped showing(isShowing_, true);
    showSteps();
    stack_->setIndex(static_cast<int>(history_.position()));
    showEntries();
}

/// A new step replaces the rows beyond the present one; anything else fills the list anew.
void FrameHistory::showSteps()
{
    const auto& steps = history_.steps();
    const auto count = static_cast<int>(steps.size());
    const auto textAt = [&](int i) { return toLine(steps[static_cast<std::size_t>(i)]); };
    int same = 0;
    while (same < std::min(stack_->count(), count) && stack_->text(same) == textAt(same))
        ++same;
    if (same == count && stack_->count() == count)
        return;
    if (same + 1 != count) {
        stack_->clear();
        same = 0;
    }
    stack_->setIndex(same);
    for (int i = same; i < count; ++i)
        stack_->push(new Step(textAt(i)));
}

void FrameHistory::showEntries()
{
    const auto& steps = history_.steps();
    const std::size_t at = history_.position();
    const auto entry = [&](bool any, std::size_t step, int named, int alone) {
        return any ? parts_.text(named).arg(toLine(steps[step]).replace(u'&', QStringLiteral("&&")))
                   : parts_.text(alone);
    };
    undo_.setText(entry(at > 0, at - 1, historyText::undoStep, historyText::undo));
    redo_.setText(entry(at < steps.size(), at, historyText::redoStep, historyText::redo));
    for (QAction* const action : {&undo_, &redo_})
        action->setToolTip(plainTip(withoutMnemonic(action->text())));
    view_->setEnabled(!isLocked());
}

void FrameHistory::tellRefused(const std::string& instrument, const std::string& reason)
{
    Modal<PlainBox>(QMessageBox::Warning, parts_.text(hostText::product),
                    parts_.text(historyText::notRestored).arg(toShown(instrument)), toShown(reason), QMessageBox::Ok,
                    &window_)
        .wait();
}

} // namespace ko

#include "widgets/support/UserActions.h"

#include <QDialog>
#include <QTimer>

namespace ko {

namespace {

/// Closes a question of a dialog. Returns whether there is one; the dialog must then be kept, because the questions of
/// the toolkit's own dialogs are on the stack.
bool dismissesQuestion(const QWidget& dialog)
{
    bool isAsking = false;
    for (QDialog* question : dialog.findChildren<QDialog*>()) {
        isAsking = isAsking || question->isVisible();
        question->hide();
    }
    return isAsking;
}

class Remains : public QWidget {
public:
    Remains(QWidget& surface, std::shared_ptr<void> kept) : kept_(std::move(kept))
    {
        // Dialogs are not kept, so that code that waits in one can return.
        for (QWidget* child : surface.findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
            if (!dynamic_cast<QDialog*>(child) || dismissesQuestion(*child))
                child->setParent(this, child->windowFlags());
        // What the surface has put off is not done any more, because it would use the surface.
        for (QTimer* timer : findChildren<QTimer*>())
            timer->stop();
    }
    /// Destroys the widgets before the objects that they show.
    ~Remains() override { qDeleteAll(findChildren<QWidget*>(Qt::FindDirectChildrenOnly)); }

private:
    std::shared_ptr<void> kept_;
};

} // namespace

struct UserActions::State {
    int inProgress = 0;
    bool isOver = false;
    std::function<void()> done;
    std::shared_ptr<void> kept;
    std::unique_ptr<QWidget> remains;
};

UserActions::UserActions() : state_(std::make_shared<State>()) {}

UserActions::~UserActions() = default;

UserActions::Action::Action(const UserActions& actions) : state_(actions.state_)
{
    ++state_->inProgress;
}

UserActions::Action::~Action()
{
    if (--state_->inProgress > 0)
        return;
    // The toolkit uses the widgets until control returns to its event loop.
    if (state_->remains)
        state_->remains.release()->deleteLater();
    else if (state_->done && !state_->isOver)
        guarded(state_->done);
}

bool UserActions::areInProgress() const
{
    return state_->inProgress > 0;
}

void UserActions::whenDone(std::function<void()> done)
{
    state_->done = std::move(done);
}

bool UserActions::Action::isOver() const
{
    return state_->isOver;
}

void UserActions::keep(std::shared_ptr<void> kept)
{
    state_->kept = std::move(kept);
}

bool UserActions::end(QWidget& surface)
{
    state_->isOver = true;
    if (state_->inProgress > 0)
        state_->remains = std::make_unique<Remains>(surface, state_->kept);
    return state_->remains != nullptr;
}

} // namespace ko

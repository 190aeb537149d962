#include "widgets/bindings/TextBoxBinding.h"

#include "platform/Scoped.h"
#include "widgets/bindings/EntryMark.h"
#include "widgets/bindings/FormView.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/PageTexts.h"
#include "widgets/support/PlainText.h"

#include <QDropEvent>
#include <QKeyEvent>

namespace ko {

namespace {

/// The box has no history of its own: undoing in it is Escape, redoing is nothing.
bool isUndo(const QKeyEvent& key)
{
    return key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo);
}

/// The clipboard keys belong to the window's edit commands, if it has any; otherwise the box handles them.
bool isEditCommand(const QKeyEvent& key, bool hasSelection)
{
    return isUndo(key) || key.matches(QKeySequence::Cut) || key.matches(QKeySequence::Copy) ||
           key.matches(QKeySequence::Paste) || (hasSelection && key.matches(QKeySequence::Delete));
}

} // namespace

TextBoxBinding::TextBoxBinding(FormView& view, TextBox& control, QLineEdit& edit)
    : Binding(view, control, edit), box_(control), edit_(edit)
{
    edit.installEventFilter(this);
    onSignal(&edit, &QLineEdit::textEdited, this, [this] { edited(); });
    onSignal(&edit, &QLineEdit::selectionChanged, this, [this] { selected(); });
    onSignal(&edit, &QLineEdit::cursorPositionChanged, this, [this] { selected(); });
    refreshAll();
}

void TextBoxBinding::edited()
{
    if (showing_)
        return;
    const QString text = edit_.text();
    const std::size_t cursor = charactersOf(text, edit_.cursorPosition());
    if (view_.act([&] { box_.userReplaced(fromQt(text), cursor, 0); }))
        showText();
}

void TextBoxBinding::selected()
{
    // During an edit, the selection is sent together with the text.
    if (showing_ || isAway_ || edit_.text() != toQt(box_.text()))
        return;
    const auto [start, length] = selectedCharacters(edit_);
    view_.act([&, start = start, length = length] { box_.userSelected(start, length); });
}

void TextBoxBinding::refresh(Aspect aspect)
{
    switch (aspect) {
    case Aspect::Text: showText(); break;
    case Aspect::Selection: showSelection(); break;
    case Aspect::Mark: showMark(); break;
    case Aspect::Hint:
        refreshHint();
        ko::raise(view_.formChanged);
        break;
    case Aspect::Usability:
        edit_.setReadOnly(box_.locked() || isRead());
        edit_.setPalette(edit_.isReadOnly() ? readPalette() : QPalette());
        Binding::refresh(aspect);
        break;
    default: Binding::refresh(aspect);
    }
}

void TextBoxBinding::showText()
{
    const QString text = toQt(box_.text());
    if (edit_.text() != text) {
        const Scoped guard(showing_, true);
        edit_.setText(text);
    }
    showSelection();
}

void TextBoxBinding::showSelection()
{
    const Scoped guard(showing_, true);
    selectCharacters(edit_, box_.selStart(), box_.selLength());
}

void TextBoxBinding::showMark()
{
    if (!mark_ && !box_.marked())
        return;
    if (!mark_) {
        mark_ = new EntryMark(edit_, view_.text(pageText::notValid));
        onSignal(&edit_, &QLineEdit::textChanged, this, [this] { mark_->place(); });
    }
    mark_->setVisible(box_.marked());
    mark_->place();
    refreshHint();
    ko::raise(view_.formChanged);
}

void TextBoxBinding::refreshHint()
{
    Binding::refreshHint();
    QStringList hints{edit_.statusTip()};
    if (box_.marked()) {
        hints.prepend(view_.text(pageText::invalidEntry));
        edit_.setToolTip(plainTip(hints.front()));
    }
    if (!box_.escapeText().empty())
        hints.append(view_.text(pageText::escapeHint).arg(toQt(box_.escapeText())));
    hints.removeAll(QString());
    edit_.setStatusTip(hints.join(QStringLiteral(". ")));
    edit_.setAccessibleDescription(edit_.statusTip());
}

/// A line edit without the focus clears its displayed selection, but the model keeps it.
void TextBoxBinding::followFocus(bool came)
{
    isAway_ = !came;
    if (came)
        showSelection();
}

/// Returns whether the toolkit may insert the dropped text at the drop position.
bool TextBoxBinding::takesDrop(QDropEvent& drop)
{
    if (box_.hasFocus())
        return true;
    Outcome outcome = Outcome::Inert;
    const bool isTaken = view_.act([&] { outcome = box_.userDropsText(); }) && outcome == Outcome::Done;
    if (!isTaken)
        drop.ignore();
    return isTaken;
}

/// Returns whether the key was Escape, or one for undoing or redoing.
bool TextBoxBinding::reverts(const QKeyEvent& key)
{
    const bool isEscape = key.key() == Qt::Key_Escape || key.matches(QKeySequence::Undo);
    if (isEscape)
        view_.act([&] { box_.userUndid(); });
    return isEscape || key.matches(QKeySequence::Redo);
}

bool TextBoxBinding::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::Drop && !takesDrop(*static_cast<QDropEvent*>(event)))
        return true;
    if (event->type() == QEvent::Resize && mark_)
        mark_->place();
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        followFocus(event->type() == QEvent::FocusIn);
    if (isRead())
        return false;
    if (event->type() == QEvent::ShortcutOverride)
        return isEditCommand(*static_cast<QKeyEvent*>(event), edit_.hasSelectedText());
    if (event->type() == QEvent::KeyPress && box_.undo && reverts(*static_cast<QKeyEvent*>(event)))
        return true;
    if (event->type() != QEvent::MouseButtonDblClick || !box_.doubleClick)
        return false;
    view_.act([&] { box_.userDoubleClicked(); });
    return true;
}

} // namespace ko

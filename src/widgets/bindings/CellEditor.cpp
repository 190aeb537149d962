#include "widgets/bindings/CellEditor.h"

#include "platform/Scoped.h"
#include "widgets/bindings/EntryMark.h"
#include "widgets/bindings/FormView.h"
#include "widgets/support/Convert.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/PageTexts.h"
#include "widgets/support/ShownText.h"

#include <QKeyEvent>

namespace ko {

void CellEditor::follow()
{
    const int row = grid_.editedRow();
    if (box_ && row_ != row)
        close();
    // Check and list cells are edited in their own widgets.
    if (row == 0 || grid_.cell(row, Grid::valueColumn).style.control != CellStyle::Control::edit)
        return;
    if (!box_)
        open();
    showText();
}

void CellEditor::open()
{
    const FocusKeeper::Hold hold(view_.focus());
    row_ = grid_.editedRow();
    box_ = new QLineEdit;
    box_->setFrame(false);
    box_->setAccessibleName(toLine(grid_.cell(row_, Grid::nameColumn).value));
    box_->setAccessibleDescription(toShown(grid_.tag()));
    if (grid_.cell(row_, Grid::valueColumn).style.alignment == CellStyle::Alignment::right)
        box_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    box_->installEventFilter(this);
    onSignal(box_.data(), &QLineEdit::textEdited, this, [this] { typed(); });
    onSignal(box_.data(), &QLineEdit::selectionChanged, this, [this] { selected(); });
    onSignal(box_.data(), &QLineEdit::cursorPositionChanged, this, [this] { selected(); });
    table_.setCurrentCell(row_ - 1, Grid::valueColumn);
    table_.setCellWidget(row_ - 1, Grid::valueColumn, box_);
    // Focus given to the table goes to the open cell.
    table_.setFocusProxy(box_);
    box_->setFocus(Qt::OtherFocusReason);
}

void CellEditor::showMark()
{
    if (!box_ || (!mark_ && !grid_.editorMarked()))
        return;
    if (!mark_) {
        mark_ = new EntryMark(*box_, view_.text(pageText::notValid));
        onSignal(box_.data(), &QLineEdit::textChanged, mark_.data(), [this] { mark_->place(); });
    }
    mark_->setVisible(grid_.editorMarked());
    mark_->place();
    const QString hint = toQt(grid_.tag());
    box_->setAccessibleDescription(
        grid_.editorMarked() ? view_.text(pageText::invalidEntry) + QStringLiteral(". ") + hint : hint);
}

void CellEditor::close()
{
    const FocusKeeper::Hold hold(view_.focus());
    const bool hadFocus = box_->hasFocus();
    box_->disconnect(this);
    table_.setFocusProxy(nullptr);
    if (hadFocus)
        table_.setFocus(Qt::OtherFocusReason);
    table_.removeCellWidget(row_ - 1, Grid::valueColumn);
    box_ = nullptr;
}

void CellEditor::showText()
{
    const Scoped guard(showing_, true);
    const EditText& edit = grid_.editor();
    const QString text = toQt(edit.text());
    if (box_->text() != text)
        box_->setText(text);
    selectCharacters(*box_, edit.selStart(), edit.selLength());
}

void CellEditor::typed()
{
    if (showing_)
        return;
    const QString text = box_->text();
    const std::size_t cursor = charactersOf(text, box_->cursorPosition());
    const bool stays = view_.act([&] { grid_.userTypedInCell(fromQt(text), cursor, 0); });
    if (stays && box_ && grid_.editedRow() == row_)
        showText();
}

void CellEditor::selected()
{
    if (showing_ || isAway_ || grid_.editedRow() == 0 || box_->text() != toQt(grid_.editor().text()))
        return;
    const auto [start, length] = selectedCharacters(*box_);
    view_.act([&, start = start, length = length] { grid_.userSelectedInCell(start, length); });
}

bool CellEditor::eventFilter(QObject*, QEvent* event)
{
    // A line edit without the focus clears its displayed selection, but the model keeps it.
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        isAway_ = event->type() == QEvent::FocusOut;
        if (!isAway_ && grid_.editedRow() > 0)
            showText();
    }
    if (event->type() != QEvent::KeyPress)
        return false;
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: {
        // A message box shown by the check takes the focus and returns it.
        const FocusKeeper::Hold hold(view_.focus());
        view_.act([&] { grid_.userEndedEdit(); });
        return true;
    }
    case Qt::Key_Escape: view_.act([&] { grid_.userDroppedEdit(); }); return true;
    default: return false;
    }
}

} // namespace ko

#include "ViewTest.h"
#include "widgets/bindings/EntryMark.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QHeaderView>

namespace ko::test {
namespace {

/// A grid with a number, a check box, a list, a fixed value and a text.
class GridView : public ViewTest {
protected:
    using Kind = CellStyle::Control;
    enum Row { level = 1, slope, mode, fixed, note, rows = note };

    static Grid::Cell cellOf(const char* value, Kind kind = Kind::edit, bool readOnly = false)
    {
        Grid::Cell cell{value, {}};
        cell.style.control = kind;
        cell.style.readOnly = readOnly;
        if (kind == Kind::list)
            cell.style.choices = {"Rising", "Falling", "Either"};
        return cell;
    }
    void SetUp() override
    {
        ViewTest::SetUp();
        form.grid.setTag("The parameters");
        form.grid.lockDrawing(true);
        form.grid.setRowCount(rows);
        form.grid.setCell(0, 0, {"Name", {}});
        form.grid.setCell(0, 1, {"Value", {}});
        const char* names[] = {"Level", "Slope", "Mode", "Fixed", "Note"};
        for (int row = level; row <= rows; ++row)
            form.grid.setCell(row, 0, {names[row - 1], {}});
        Grid::Cell number = cellOf("0.5");
        number.style.alignment = CellStyle::Alignment::right;
        form.grid.setCell(level, 1, number);
        form.grid.setCell(slope, 1, cellOf("True", Kind::check));
        form.grid.setCell(mode, 1, cellOf("Falling", Kind::list));
        form.grid.setCell(fixed, 1, cellOf("7", Kind::edit, true));
        form.grid.setCell(note, 1, cellOf("text"));
        form.grid.lockDrawing(false);
        form.grid.cellEdited = [this](const CellEvent& edit) { form.grid.setValue(edit.row, edit.text); };
        window.resize(400, 500);
        QApplication::processEvents();
    }
    std::string value(int row) { return form.grid.cell(row, 1).value; }
    QWidget* inCell(int row) { return grid.cellWidget(row - 1, 1); }
    QCheckBox& check(int row) { return *inCell(row)->findChild<QCheckBox*>(); }
    QComboBox& choices(int row) { return dynamic_cast<QComboBox&>(*inCell(row)); }
    QLineEdit* editor() { return dynamic_cast<QLineEdit*>(inCell(form.grid.editedRow())); }
    void clickCell(int row, int column)
    {
        const QRect place = grid.visualItemRect(grid.item(row - 1, column));
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, place.center());
    }
    static void key(Qt::Key key, Qt::KeyboardModifiers held = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, held);
    }
    void select(int row)
    {
        ASSERT_TRUE(form.moveFocus(&form.grid));
        grid.setCurrentCell(row - 1, 1);
    }
};

TEST_F(GridView, EachCellIsShownInItsOwnWay)
{
    const auto alignment = [&](int row) { return grid.item(row - 1, 1)->textAlignment(); };
    EXPECT_EQ(alignment(level), static_cast<int>(Qt::AlignRight | Qt::AlignVCenter));
    EXPECT_EQ(alignment(note), static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter));
    EXPECT_NE(grid.item(fixed - 1, 1)->background(), grid.item(note - 1, 1)->background());
    EXPECT_TRUE(check(slope).isChecked() && check(slope).isEnabled());
    EXPECT_EQ(check(slope).accessibleName(), "Slope");
    EXPECT_EQ(choices(mode).currentText(), "Falling");
    EXPECT_EQ(choices(mode).count(), 3);
    EXPECT_EQ(choices(mode).accessibleName(), "Mode");
    EXPECT_FALSE(grid.verticalHeader()->isVisible());
    EXPECT_EQ(grid.horizontalHeaderItem(0)->text(), "Name");

    form.grid.setValue(mode, "Unknown");
    form.grid.setValue(slope, "False");
    EXPECT_EQ(choices(mode).currentIndex(), -1);
    EXPECT_EQ(choices(mode).placeholderText(), "Unknown");
    EXPECT_FALSE(check(slope).isChecked());
    form.grid.setCell(slope, 1, cellOf("plain"));
    form.grid.setCell(mode, 1, cellOf("True", Kind::check));
    form.grid.setCell(note, 1, cellOf("Either", Kind::list));
    EXPECT_EQ(inCell(slope), nullptr);
    EXPECT_TRUE(check(mode).isChecked());
    EXPECT_EQ(choices(note).currentIndex(), 2);
    form.grid.setRowCount(2);
    EXPECT_EQ(grid.rowCount(), 2);

    CellStyle bold;
    bold.font.bold = true;
    form.grid.setColHeaderStyle(bold);
    EXPECT_TRUE(grid.horizontalHeaderItem(0)->font().bold());
    EXPECT_FALSE(grid.horizontalHeaderItem(0)->font().italic());
}

TEST_F(GridView, TheNamesTakeTheWidthThatIsWantedUpToThreeQuartersOrHalfOfTheGrid)
{
    const int inner = grid.viewport()->width();
    EXPECT_EQ(grid.columnWidth(0), inner / 2);
    for (const int wanted : {inner / 3, inner * 2}) {
        form.grid.setColumnWidth(0, toTwips(grid, wanted));
        EXPECT_NEAR(grid.columnWidth(0), std::min(wanted, inner * 3 / 4), 1);
    }
    window.resize(600, 500);
    QApplication::processEvents();
    const int wider = grid.viewport()->width();
    EXPECT_GT(wider, inner);
    EXPECT_EQ(grid.columnWidth(0), wider * 3 / 4);
    EXPECT_EQ(grid.columnWidth(0) + grid.columnWidth(1), wider);
    EXPECT_EQ(form.grid.innerWidth(), toTwips(grid, wider));
    EXPECT_EQ(form.grid.visibleRows(), grid.viewport()->height() / grid.rowHeight(0));
}

TEST_F(GridView, KeysOpenTheCurrentCellOfAnyKind)
{
    for (const Qt::Key opens : {Qt::Key_F2, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        select(level);
        key(opens);
        ASSERT_EQ(form.grid.editedRow(), level);
        EXPECT_EQ(editor()->selectedText(), "0.5");
        EXPECT_TRUE(editor()->hasFocus());
        key(Qt::Key_Escape);
        EXPECT_EQ(form.grid.editedRow(), 0);
        EXPECT_TRUE(grid.hasFocus());
        select(slope);
        const std::string before = value(slope);
        key(opens);
        EXPECT_NE(value(slope), before);
        EXPECT_EQ(check(slope).isChecked(), value(slope) == "True");
        select(mode);
        key(opens);
        EXPECT_TRUE(choices(mode).view()->isVisible());
        choices(mode).hidePopup();
        select(fixed);
        key(opens);
        EXPECT_EQ(form.grid.editedRow(), 0);
    }
    select(mode);
    key(Qt::Key_A);
    select(slope);
    key(Qt::Key_A);
    select(level);
    key(Qt::Key_A, Qt::ControlModifier);
    key(Qt::Key_A, Qt::AltModifier);
    EXPECT_EQ(form.grid.editedRow(), 0);
    key(Qt::Key_7);
    EXPECT_EQ(editor()->text(), "7") << "what is typed replaces the value";
    key(Qt::Key_Space);
    EXPECT_EQ(editor()->text(), "7 ") << "in the editor the keys are text";
    key(Qt::Key_Backspace);
    key(Qt::Key_Return);
    EXPECT_EQ(value(level), "7");
    EXPECT_TRUE(grid.hasFocus());
    key(Qt::Key_Down);
    EXPECT_EQ(grid.currentRow(), slope - 1);
}

TEST_F(GridView, TheMouseOpensValuesAndChoosesFromLists)
{
    clickCell(note, 0);
    clickCell(fixed, 1);
    EXPECT_EQ(form.grid.editedRow(), 0);
    clickCell(note, 1);
    EXPECT_EQ(form.grid.editedRow(), note);
    QTest::mouseClick(&check(slope), Qt::LeftButton, {}, QPoint(5, check(slope).height() / 2));
    EXPECT_EQ(value(slope), "False");
    EXPECT_FALSE(check(slope).isChecked());
    EXPECT_EQ(form.grid.editedRow(), 0);
    emit choices(mode).activated(2);
    EXPECT_EQ(value(mode), "Falling") << "the list still handles the choice";
    QApplication::processEvents();
    EXPECT_EQ(value(mode), "Either");
    EXPECT_EQ(choices(mode).currentText(), "Either");
    QWheelEvent wheel({5, 5}, choices(mode).mapToGlobal(QPointF(5, 5)), {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&choices(mode), &wheel);
    EXPECT_EQ(value(mode), "Either");
}

TEST_F(GridView, WhatIsRefusedIsShownAsBefore)
{
    form.grid.cellEdited = [](CellEvent& edit) { edit.Value = false; };
    QTest::mouseClick(&check(slope), Qt::LeftButton, {}, QPoint(5, check(slope).height() / 2));
    EXPECT_TRUE(check(slope).isChecked());
    emit choices(mode).activated(0);
    QApplication::processEvents();
    EXPECT_EQ(choices(mode).currentText(), "Falling");
}

TEST_F(GridView, AnEditIsTypedSelectedRefusedCorrectedAndDropped)
{
    std::vector<std::string> typed;
    form.grid.editorTyped = [&] {
        typed.push_back(form.grid.editor().text());
        form.grid.setEditorMarked(form.grid.editor().text() == "12");
    };
    form.grid.OnValidateCell = [](CellEvent& edit) { edit.Value = edit.text != "12"; };
    clickCell(level, 1);
    QTest::keyClicks(editor(), "12");
    EXPECT_EQ(typed, (std::vector<std::string>{"1", "12"}));
    EXPECT_EQ(editor()->accessibleName(), "Level");
    EXPECT_TRUE((editor()->alignment() & Qt::AlignRight) != 0);
    const QWidget* mark = editor()->findChild<EntryMark*>();
    ASSERT_NE(mark, nullptr);
    EXPECT_TRUE(mark->isVisible());
    EXPECT_EQ(editor()->accessibleDescription(), "3009. The parameters");

    for (const Qt::Key ends : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Tab}) {
        key(ends);
        EXPECT_EQ(form.grid.editedRow(), level);
        EXPECT_TRUE(editor()->hasFocus());
        EXPECT_EQ(editor()->text(), "12");
    }
    key(Qt::Key_Home);
    key(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(form.grid.selText(), "1");
    EXPECT_EQ(form.grid.editor().selStart(), 0U);
    form.grid.setSelText("3");
    EXPECT_EQ(editor()->text(), "32");
    EXPECT_EQ(editor()->cursorPosition(), 1);
    EXPECT_FALSE(mark->isVisible());
    EXPECT_EQ(editor()->accessibleDescription(), "The parameters");
    QApplication::focusWidget()->clearFocus();
    editor()->setFocus();
    EXPECT_EQ(editor()->text(), "32");

    clickCell(note, 1);
    EXPECT_EQ(value(level), "32") << "opening another cell ends the edit";
    ASSERT_EQ(form.grid.editedRow(), note);
    EXPECT_EQ(inCell(level), nullptr);
    EXPECT_EQ(inCell(note), editor());
    EXPECT_FALSE((editor()->alignment() & Qt::AlignRight) != 0);
    QTest::keyClicks(editor(), "dropped");
    key(Qt::Key_Escape);
    EXPECT_EQ(value(note), "text");
    EXPECT_EQ(editor(), nullptr);
}

TEST_F(GridView, TheCurrentCellIsSelectedWhileTheGridHasTheFocus)
{
    ASSERT_TRUE(form.moveFocus(&form.grid));
    EXPECT_EQ(grid.currentRow(), 0);
    EXPECT_EQ(grid.currentColumn(), 1);
    EXPECT_EQ(grid.selectedItems().size(), 1);
    QFocusEvent popup(QEvent::FocusOut, Qt::PopupFocusReason);
    QApplication::sendEvent(&grid, &popup);
    EXPECT_EQ(grid.selectedItems().size(), 1) << "a menu leaves it";
    key(Qt::Key_Down);
    key(Qt::Key_Tab);
    EXPECT_TRUE(grid.selectedItems().isEmpty());
    ASSERT_TRUE(form.moveFocus(&form.grid));
    EXPECT_EQ(grid.currentRow(), 1);
    EXPECT_EQ(grid.selectedItems().size(), 1);
}

TEST_F(GridView, WhileItIsOnlyReadValuesStayReadableAndCannotBeChanged)
{
    form.setForReading(true);
    form.frame.setEnabled(false);
    EXPECT_TRUE(grid.isEnabled());
    EXPECT_EQ(inCell(mode), nullptr);
    EXPECT_EQ(grid.item(mode - 1, 1)->text(), "Falling");
    EXPECT_TRUE(check(slope).isEnabled());
    QTest::mouseClick(&check(slope), Qt::LeftButton, {}, QPoint(5, check(slope).height() / 2));
    EXPECT_TRUE(check(slope).isChecked());
    EXPECT_EQ(value(slope), "True");
    clickCell(level, 1);
    EXPECT_EQ(form.grid.editedRow(), 0);
    form.setForReading(false);
    EXPECT_FALSE(grid.isEnabled() || check(slope).isEnabled());
    form.frame.setEnabled(true);
    EXPECT_EQ(choices(mode).currentText(), "Falling");
    EXPECT_TRUE(choices(mode).isEnabled());
    form.grid.setCell(mode, 1, cellOf("Rising", Kind::list, true));
    EXPECT_FALSE(choices(mode).isEnabled());
}

} // namespace
} // namespace ko::test

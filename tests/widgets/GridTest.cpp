#include "ViewTest.h"
#include "look/Look.h"
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
        Grid::Cell number = cellOf("0.5");
        number.style.alignment = CellStyle::Alignment::right;
        int row = 0;
        for (const auto& [name, cell] :
             {std::pair("Level", number), std::pair("Slope", cellOf("True", Kind::check)),
              std::pair("Mode", cellOf("Falling", Kind::list)), std::pair("Fixed", cellOf("7", Kind::edit, true)),
              std::pair("Note", cellOf("text"))}) {
            form.grid.setCell(++row, 0, {name, {}});
            form.grid.setCell(row, 1, cell);
        }
        form.grid.lockDrawing(false);
        form.grid.cellEdited = [this](const CellEvent& edit) {
            form.grid.setValue(edit.row, edit.text);
            ++edits;
        };
        window.resize(400, 500);
        QApplication::processEvents();
    }
    int edits = 0;
    std::string value(int row) { return form.grid.cell(row, 1).value; }
    QWidget* inCell(int row) { return grid.cellWidget(row - 1, 1); }
    QCheckBox& check(int row) { return *inCell(row)->findChild<QCheckBox*>(); }
    QComboBox& choices(int row) { return dynamic_cast<QComboBox&>(*inCell(row)); }
    QLineEdit* editor() { return dynamic_cast<QLineEdit*>(inCell(form.grid.editedRow())); }
    /// What the user sees of each value: {list}, [check], (open editor); "-" before one that is disabled.
    std::string shown()
    {
        QStringList all;
        for (int row = level; row <= grid.rowCount(); ++row) {
            const QWidget* cell = inCell(row);
            const auto* tick = cell ? cell->findChild<QCheckBox*>() : nullptr;
            const auto* combo = dynamic_cast<const QComboBox*>(cell);
            const auto* edit = dynamic_cast<const QLineEdit*>(cell);
            const bool isOff = (tick && !tick->isEnabled()) || (combo && !combo->isEnabled());
            const QString item = grid.item(row - 1, 1)->text();
            all << QString(isOff ? "-" : "") + (tick    ? (tick->isChecked() ? "[x]" : "[]")
                                                : combo ? '{' + combo->currentText() + '}'
                                                : edit  ? '(' + edit->text() + ')'
                                                        : item);
        }
        return all.join(' ').toStdString();
    }
    void clickCell(int row, int column)
    {
        const QRect place = grid.visualItemRect(grid.item(row - 1, column));
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, place.center());
    }
    static void key(Qt::Key key, Qt::KeyboardModifiers held = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, held);
    }
    static void press(QCheckBox& box) { QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(5, box.height() / 2)); }
    void select(int row)
    {
        ASSERT_TRUE(form.moveFocus(&form.grid));
        grid.setCurrentCell(row - 1, 1);
    }
};

TEST_F(GridView, EachCellIsShownInItsOwnWay)
{
    EXPECT_EQ(shown(), "0.5 [x] {Falling} 7 text");
    form.grid.setValue(mode, "Unknown");
    form.grid.setValue(slope, "False");
    EXPECT_EQ(shown(), "0.5 [] {} 7 text");
    EXPECT_EQ(choices(mode).placeholderText(), "Unknown");
    EXPECT_EQ(choices(mode).count(), 3);
    form.grid.setCell(slope, 1, cellOf("plain"));
    form.grid.setCell(mode, 1, cellOf("True", Kind::check));
    form.grid.setCell(note, 1, cellOf("Either", Kind::list, true));
    EXPECT_EQ(shown(), "0.5 plain [x] 7 -{Either}");
    form.grid.setRowCount(2);
    EXPECT_EQ(shown(), "0.5 plain");
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
    EXPECT_EQ(grid.columnWidth(0), wider * 3 / 4);
    EXPECT_EQ(grid.columnWidth(0) + grid.columnWidth(1), wider);
    EXPECT_EQ(form.grid.innerWidth(), toTwips(grid, wider));
    EXPECT_EQ(form.grid.visibleRows(), grid.viewport()->height() / grid.rowHeight(0));
    grid.setFixedHeight(80);
    QApplication::processEvents();
    EXPECT_EQ(form.grid.innerWidth(), toTwips(grid, wider)) << "the scroll bar counts, too";
}

TEST_F(GridView, KeysOpenTheCurrentCellOfAnyKind)
{
    for (const Qt::Key opens : {Qt::Key_F2, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        select(level);
        key(opens);
        EXPECT_TRUE(editor() && editor()->hasFocus() && editor()->selectedText() == "0.5") << opens;
        key(Qt::Key_Escape);
        EXPECT_TRUE(form.grid.editedRow() == 0 && grid.hasFocus()) << opens;
        select(slope);
        const bool before = check(slope).isChecked();
        key(opens);
        EXPECT_NE(check(slope).isChecked(), before) << opens;
        EXPECT_EQ(check(slope).isChecked(), value(slope) == "True");
        select(mode);
        key(opens);
        EXPECT_TRUE(choices(mode).view()->isVisible()) << opens;
        choices(mode).hidePopup();
        select(fixed);
        key(opens);
        EXPECT_EQ(form.grid.editedRow(), 0);
    }
    for (const Row row : {mode, slope}) {
        select(row);
        key(Qt::Key_A);
    }
    select(level);
    key(Qt::Key_A, Qt::ControlModifier);
    key(Qt::Key_A, Qt::AltModifier);
    EXPECT_EQ(shown(), "0.5 [x] {Falling} 7 text");
    key(Qt::Key_7);
    key(Qt::Key_Space);
    EXPECT_EQ(shown(), "(7 ) [x] {Falling} 7 text") << "what is typed replaces the value";
    key(Qt::Key_Backspace);
    key(Qt::Key_Return);
    EXPECT_EQ(value(level), "7");
    EXPECT_TRUE(grid.hasFocus());
    key(Qt::Key_Down);
    EXPECT_EQ(grid.currentRow(), slope - 1);
    select(level);
    key(Qt::Key_8);
    key(Qt::Key_Tab);
    EXPECT_EQ(value(level), "8");
    EXPECT_NE(form.activeControl(), &form.grid);
}

TEST_F(GridView, TheMouseOpensValuesAndChoosesFromListsAndWhatIsRefusedIsShownAsBefore)
{
    clickCell(note, 0);
    clickCell(fixed, 1);
    EXPECT_EQ(shown(), "0.5 [x] {Falling} 7 text");
    form.grid.userOpenedCell(note);
    EXPECT_EQ(grid.currentRow(), note - 1);
    key(Qt::Key_Escape);
    clickCell(note, 1);
    EXPECT_EQ(shown(), "0.5 [x] {Falling} 7 (text)");
    press(check(slope));
    Q_EMIT choices(mode).activated(2);
    EXPECT_EQ(value(mode), "Falling") << "the list still handles the choice";
    QApplication::processEvents();
    EXPECT_EQ(value(slope) + value(mode), "FalseEither");
    EXPECT_EQ(edits, 2);
    EXPECT_EQ(shown(), "0.5 [] {Either} 7 text");
    QWheelEvent wheel({5, 5}, choices(mode).mapToGlobal(QPointF(5, 5)), {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&choices(mode), &wheel);
    form.grid.cellEdited = [](CellEvent& edit) { edit.Value = false; };
    press(check(slope));
    Q_EMIT choices(mode).activated(0);
    QApplication::processEvents();
    EXPECT_EQ(shown(), "0.5 [] {Either} 7 text");
}

TEST_F(GridView, AnEditIsTypedSelectedRefusedCorrectedAndDropped)
{
    QStringList typed;
    form.grid.editorTyped = [&] {
        typed << toQt(form.grid.editor().text());
        form.grid.setEditorMarked(form.grid.editor().text() == "12");
    };
    form.grid.OnValidateCell = [](CellEvent& edit) { edit.Value = edit.text != "12"; };
    clickCell(level, 1);
    QTest::keyClicks(editor(), "12");
    EXPECT_EQ(typed, (QStringList{"1", "12"}));
    EXPECT_EQ(editor()->accessibleName(), "Level");
    EXPECT_TRUE(editor()->alignment().testFlag(Qt::AlignRight));
    const QWidget* mark = editor()->findChild<EntryMark*>();
    ASSERT_TRUE(mark && mark->isVisible());
    EXPECT_EQ(editor()->accessibleDescription(), "3009. The parameters");
    for (const Qt::Key ends : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Tab}) {
        key(ends);
        EXPECT_EQ(shown(), "(12) [x] {Falling} 7 text");
        EXPECT_TRUE(editor()->hasFocus());
    }
    key(Qt::Key_Home);
    key(Qt::Key_Right, Qt::ShiftModifier);
    for (const QEvent::Type way : {QEvent::FocusOut, QEvent::FocusIn}) {
        QFocusEvent focus(way, Qt::OtherFocusReason);
        QApplication::sendEvent(editor(), &focus);
        EXPECT_EQ(form.grid.selText(), "1") << "kept while the focus is away";
    }
    EXPECT_EQ(editor()->selectedText(), "1");
    form.grid.setSelText("3");
    EXPECT_TRUE(editor()->text() == "32" && editor()->cursorPosition() == 1 && !mark->isVisible());
    QTest::keyClicks(editor(), "45");
    EXPECT_EQ(editor()->accessibleDescription(), "The parameters");
    clickCell(note, 1);
    EXPECT_EQ(shown(), "3452 [x] {Falling} 7 (text)") << "opening another cell ends the edit";
    QTest::keyClicks(editor(), "dropped");
    key(Qt::Key_Escape);
    EXPECT_EQ(shown(), "3452 [x] {Falling} 7 text");
}

TEST_F(GridView, AFrameOfACheckBoxIsSeenOnADarkField)
{
    const auto seen = [&] { return check(slope).palette().color(QPalette::Window); };
    QPalette dark = window.palette();
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::yellow);
    window.setPalette(dark);
    EXPECT_EQ(seen(), QColor(Qt::yellow));
    window.setPalette({});
    EXPECT_NE(seen(), QColor(Qt::yellow));
}

TEST_F(GridView, TheCurrentCellIsSelectedWhileTheGridHasTheFocus)
{
    const auto selectedRow = [&] { return grid.selectedItems().isEmpty() ? -1 : grid.selectedItems()[0]->row(); };
    ASSERT_TRUE(form.moveFocus(&form.grid));
    EXPECT_TRUE(selectedRow() == 0 && grid.currentColumn() == 1);
    QFocusEvent popup(QEvent::FocusOut, Qt::PopupFocusReason);
    QApplication::sendEvent(&grid, &popup);
    EXPECT_EQ(selectedRow(), 0) << "a menu leaves it";
    key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(grid.selectedItems().size(), 1);
    key(Qt::Key_Tab);
    EXPECT_EQ(selectedRow(), -1);
    ASSERT_TRUE(form.moveFocus(&form.grid));
    EXPECT_EQ(selectedRow(), 1);
}

TEST_F(GridView, WhileItIsOnlyReadValuesStayReadableAndCannotBeChanged)
{
    form.setForReading(true);
    form.frame.setEnabled(false);
    EXPECT_TRUE(grid.isEnabled() && check(slope).testAttribute(Qt::WA_TransparentForMouseEvents));
    press(check(slope));
    clickCell(level, 1);
    EXPECT_EQ(shown(), "0.5 [x] Falling 7 text");
    form.setForReading(false);
    EXPECT_EQ(shown(), "0.5 -[x] -{Falling} 7 text");
    form.frame.setEnabled(true);
    EXPECT_EQ(shown(), "0.5 [x] {Falling} 7 text");
    EXPECT_FALSE(check(slope).testAttribute(Qt::WA_TransparentForMouseEvents));
}

TEST_F(GridView, LooksAsKept)
{
    Look look;
    look.take(grid);
    CellStyle bold;
    bold.font.bold = true;
    form.grid.setColHeaderStyle(bold);
    form.grid.userOpenedCell(note);
    window.resize(500, 400);
    look.take(grid);
    look.compare("grid");
}

} // namespace
} // namespace ko::test

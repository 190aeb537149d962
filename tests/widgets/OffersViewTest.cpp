#include "DialogTest.h"
#include "widgets/dialogs/OffersDialog.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableWidget>

namespace ko::test {
namespace {

class OffersViewTest : public DialogsTest {
protected:
    ShowOffers form{support};
    ShowOffers::Content content;
    std::vector<ShowOffers::Settable> settable{{"Rate", "1000"}, {"Block", "64"}};
    std::vector<std::pair<std::size_t, std::string>> set;

    OffersViewTest()
    {
        addOffersDialog(modalForms, form, texts());
        content.common = "All share <b>one</b>";
        content.columns = {"Rate", "A header of two words", "Why", "Says", "More"};
        content.row = 1;
        const auto row = [](const char* name, const char* value) {
            Table::Row made{name, {}};
            for (const char* text :
                 {value, "2", "A sentence of several words, one after the other, so that there are three lines", "b",
                  "c"})
                made.cells.push_back({text, "", Table::Emphasis::none});
            return made;
        };
        content.rows = {row("First", "1000000000000000000000"), row("Second", "5")};
    }
    template <class User> void ask(User user)
    {
        inDialog(
            [this] {
                form.Display("Title",
                             {[this] { return content; }, [this] { return settable; },
                              [this](std::size_t which, const std::string& value) { set.emplace_back(which, value); }},
                             1);
            },
            [&] {
                settle();
                user();
                click("btnClose");
            });
    }
};

TEST_F(OffersViewTest, LooksAsKept)
{
    ask([&] {
        expectLook(dialog(), "offers");
        EXPECT_EQ(dialog().windowTitle(), "Title");
        const QWidget& view = part<QWidget>("ShowOffers");
        EXPECT_EQ(form.bounds().width, toTwips(view, view.width()));
    });
}

TEST_F(OffersViewTest, ColumnsOfValuesHaveRoomForThemWhenTheyChange)
{
    ask([&] {
        const auto& table = part<QTableWidget>("tblOffers");
        content.rows[1].cells[0].text = "much longer than before, in one cell";
        form.tblOffers.setContent(content.columns, content.rows);
        settle();
        QFont bold = table.font();
        bold.setBold(true);
        EXPECT_GT(table.columnWidth(0), QFontMetrics(bold).horizontalAdvance("much longer than before, in one cell"));
    });
}

TEST_F(OffersViewTest, OpensAtTheCurrentCellAndShowsAsMuchAfterItAsThereIsRoomFor)
{
    content.columns = {"A", "B", "C", "D", "E", "Why", "Says", "More"};
    const Table::Cell wide{std::string(60, 'x'), "", Table::Emphasis::none};
    content.rows = std::vector(60, Table::Row{"Name", std::vector(8, wide)});
    content.row = 50;
    content.column = 4;
    ask([&] {
        const auto& table = part<QTableWidget>("tblOffers");
        const QPoint cell = table.visualItemRect(table.currentItem()).topLeft();
        EXPECT_TRUE(table.viewport()->rect().contains(cell) && cell.x() < 2) << "not all after it have room";
        table.horizontalScrollBar()->setValue(0);
        dialog().resize(dialog().size() + QSize(10, 0));
        settle();
        EXPECT_EQ(table.horizontalScrollBar()->value(), 0) << "where the user has scrolled to";
    });
}

TEST_F(OffersViewTest, AQuantityIsSetByItsButtonAndByEnterInItsBox)
{
    ask([&] {
        EXPECT_EQ(part<QComboBox>("cmbQuantity").currentText(), "Block");
        auto& value = part<QLineEdit>("txtValue");
        EXPECT_EQ(value.text(), "64");
        QTest::mouseClick(&value, Qt::LeftButton);
        EXPECT_EQ(value.selectedText(), "64");
        QTest::keyClicks(&value, "128");
        QTest::keyClick(&value, Qt::Key_Return);
        QTest::mouseClick(&value, Qt::LeftButton);
        QTest::keyClick(&value, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&value, "256");
        QTest::keyClick(&value, Qt::Key_Enter);
        click("cmdSetAll");
        EXPECT_EQ(set, (std::vector<std::pair<std::size_t, std::string>>{{1, "128"}, {1, "256"}, {1, "64"}}));
        EXPECT_EQ(value.text(), "64") << "what the drivers hold is shown again";
        EXPECT_TRUE(dialog().isVisible());
    });
    settable.clear();
    ask([&] {
        for (const char* name : {"cmbQuantity", "txtValue", "cmdSetAll"})
            EXPECT_FALSE(part<QWidget>(name).isEnabled()) << name;
    });
}

} // namespace
} // namespace ko::test

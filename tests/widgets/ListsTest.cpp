#include "fakes/FakeDriver.h"
#include "look/Look.h"
#include "platform/ChannelSelector.h"
#include "platform/TabControl.h"
#include "platform/Table.h"
#include "widgets/bindings/ChannelBrowser.h"
#include "widgets/bindings/FormView.h"

#include <QApplication>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTableWidget>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace ko::test {
namespace {

struct ListForm : Form {
    ListForm() : Form("Lists") {}

    TextBox box{*this, "box"};
    ChannelSelector channels{*this, "channels"};
    Table table{*this, "table"};
    Frame left{*this, "left"};
    Frame right{*this, "right"};
    TabControl tabs{*this, "tabs", {&left, &right}};
    CommandButton inLeft{*this, "inLeft", &left};
    CommandButton inRight{*this, "inRight", &right};
};

/// A form with a browser of channels, a table and tabs in an active window, with the focus in a box.
class Lists : public testing::Test {
protected:
    using Lines = ChannelSelector::Lines;
    /// The lines of the tree.
    enum Line : std::size_t { digitizer, inputs, crank, cam, more, oil, scanner, slow, air };

    ListForm form;
    QWidget window;
    FormView view{form, [](int number) { return QString::number(number); }, &window};
    QLineEdit& box = view.textBox(form.box);
    ChannelBrowser& channels = view.channelBrowser(form.channels);
    QTreeWidget& tree = *channels.tree;
    QTableWidget& table = view.table(form.table);

    void SetUp() override
    {
        form.tabs.setTabCaption(0, "&Start");
        form.tabs.setTabCaption(1, "Scan");
        auto* layout = new QVBoxLayout(&view);
        layout->addWidget(&box);
        layout->addWidget(&channels);
        layout->addWidget(&table);
        for (auto [frame, button] : {std::pair(&form.left, &form.inLeft), std::pair(&form.right, &form.inRight)})
            (new QVBoxLayout(&view.frame(*frame)))->addWidget(&view.button(*button));
        layout->addWidget(&view.tabs(form.tabs));
        (new QVBoxLayout(&window))->addWidget(&view);
        auto first = std::make_shared<FakeDriver>();
        first->name = "Digitizer";
        first->groups = {{"Inputs", {{.address = "0:1", .name = "Crank"}, {.address = "0:2", .name = "Cam"}}},
                         {"More", {{.address = "1:1", .name = "Oil"}}}};
        auto second = std::make_shared<FakeDriver>();
        second->name = "Scanner";
        second->groups = {{"Slow", {{.address = "0:7", .name = "Air"}}}};
        form.channels.driverList().setNumberOfDrivers(2);
        form.channels.driverList().setDrivers({first, second});
        window.resize(500, 700);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        ASSERT_TRUE(form.moveFocus(&form.box));
    }
    QTabWidget& tabs() { return dynamic_cast<QTabWidget&>(*view.widget(form.tabs)); }
    /// The tree's lines from the top, indented, without those that are hidden.
    QStringList shown()
    {
        QStringList lines;
        for (QTreeWidgetItemIterator at(&tree, QTreeWidgetItemIterator::NotHidden); *at; ++at) {
            int depth = 0;
            for (const QTreeWidgetItem* above = (*at)->parent(); above; above = above->parent())
                ++depth;
            lines << QString(depth, ' ') + (*at)->text(0);
        }
        return lines;
    }
    QTreeWidgetItem& item(const char* text)
    {
        return *tree.findItems(QString::fromLatin1(text), Qt::MatchStartsWith | Qt::MatchRecursive).at(0);
    }
    void press(const char* text, Qt::KeyboardModifiers held = {}, bool twice = false)
    {
        const QPoint at = tree.visualItemRect(&item(text)).center();
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, held, at);
        if (twice)
            QTest::mouseDClick(tree.viewport(), Qt::LeftButton, held, at);
    }
    static void key(Qt::Key key, Qt::KeyboardModifiers held = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, held);
    }
};

TEST_F(Lists, TheBrowserShowsTheTreeOfChannelsExpandedWithNotesBelow)
{
    const QStringList all{"Digitizer",   " Inputs", "  Crank (0:1)", "  Cam (0:2)", " More",
                          "  Oil (1:1)", "Scanner", " Slow",         "  Air (0:7)"};
    EXPECT_EQ(shown(), all);
    for (const char* above : {"Digitizer", "Inputs", "Scanner", "Slow"})
        EXPECT_TRUE(item(above).isExpanded()) << above;
    form.channels.userPicked({cam});
    form.channels.setNotes({"Not\nlisted"});
    EXPECT_EQ(shown(), all + QStringList{"Not listed"});
    EXPECT_FALSE(item("Not").flags().testFlag(Qt::ItemIsSelectable));
    EXPECT_TRUE(item("Cam").isSelected()) << "kept with the list filled anew";
}

TEST_F(Lists, LinesArePickedUpToTheLimit)
{
    press("Cam");
    EXPECT_EQ(form.channels.selected(), Lines{cam});
    EXPECT_EQ(form.activeControl(), &form.channels);
    press("Oil", Qt::ControlModifier);
    EXPECT_EQ(form.channels.selected(), Lines{oil}) << "one by default";
    key(Qt::Key_Up);
    EXPECT_EQ(form.channels.selected(), Lines{more});

    form.channels.setMultipleSelection(true);
    form.channels.setSelectionLimit(2);
    form.channels.setCanTrigger(true); // lists anew
    press("Cam");
    press("Air", Qt::ControlModifier);
    EXPECT_EQ(form.channels.selected(), (Lines{cam, air}));
    press("Oil", Qt::ControlModifier);
    EXPECT_EQ(form.channels.selected().size(), 2U);
    EXPECT_EQ(tree.selectedItems().size(), 2);
    form.channels.reset();
    EXPECT_TRUE(tree.selectedItems().isEmpty());
    form.channels.userPicked({crank});
    EXPECT_EQ(tree.currentItem(), &item("Crank"));
    tree.setFixedHeight(60);
    form.channels.userPicked({slow, air});
    EXPECT_TRUE(tree.viewport()->rect().contains(tree.visualItemRect(&item("Air")).center())) << "scrolled to";
}

TEST_F(Lists, TheFilterShowsWhatContainsItsTextAndMovesAHiddenSelection)
{
    struct Case {
        const char* filter;
        QStringList shown;
        Lines selected;
    };
    const QStringList all = shown();
    form.channels.userPicked({cam});
    for (const Case& it :
         {Case{"c", {"Digitizer", " Inputs", "  Crank (0:1)", "  Cam (0:2)", "Scanner", " Slow", "  Air (0:7)"}, {cam}},
          Case{" CRANK ", {"Digitizer", " Inputs", "  Crank (0:1)"}, {crank}},
          Case{"more", {"Digitizer", " More", "  Oil (1:1)"}, {oil}},
          Case{"scan", {"Scanner", " Slow", "  Air (0:7)"}, {air}}, Case{"none such", {}, {}}, Case{"", all, {}}}) {
        channels.filter->setText(QString::fromLatin1(it.filter));
        EXPECT_EQ(shown(), it.shown) << it.filter;
        EXPECT_EQ(form.channels.selected(), it.selected) << it.filter;
    }
    channels.filter->setText("oil");
    form.channels.setCanTrigger(true);
    EXPECT_EQ(shown(), (QStringList{"Digitizer", " More", "  Oil (1:1)"})) << "a new list is filtered, too";
}

TEST_F(Lists, ADoubleClickOnAChannelActivatesIt)
{
    int activations = 0;
    form.channels.activated = [&] { ++activations; };
    press("Inputs", {}, true);
    EXPECT_EQ(activations, 0);
    EXPECT_FALSE(item("Inputs").isExpanded());
    press("Oil", {}, true);
    EXPECT_EQ(activations, 1);
    EXPECT_EQ(form.channels.selected(), Lines{oil});
}

TEST_F(Lists, TheKeyboardReachesFilterAndTreeAndTheBoxBeforeMayRefuse)
{
    key(Qt::Key_Tab);
    EXPECT_EQ(form.activeControl(), &form.channels);
    EXPECT_TRUE(tree.hasFocus());
    key(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_TRUE(channels.filter->hasFocus());
    EXPECT_EQ(form.activeControl(), &form.channels);
    key(Qt::Key_A);
    EXPECT_EQ(channels.filter->text(), "a");
    key(Qt::Key_Down);
    EXPECT_TRUE(tree.hasFocus());
    channels.filter->setFocus();
    key(Qt::Key_Tab);
    EXPECT_TRUE(tree.hasFocus());
    key(Qt::Key_Tab);
    EXPECT_EQ(form.activeControl(), &form.table);
    ASSERT_TRUE(form.moveFocus(&form.box));
    form.box.validate = [] { return false; };
    channels.filter->setFocus();
    EXPECT_EQ(form.activeControl(), &form.box);
    EXPECT_TRUE(box.hasFocus());
}

Table::Cell cellOf(const char* text, const char* meaning = "", Table::Emphasis emphasis = Table::Emphasis::none)
{
    return {text, meaning, emphasis};
}

TEST_F(Lists, ATableShowsItsCellsWithMeaningAndEmphasisAndItsColumnsNeverGetNarrower)
{
    using Emphasis = Table::Emphasis;
    form.table.setContent({"One", "Two"},
                          {{"First", {cellOf("a", "A is first", Emphasis::strong), cellOf("b\nc")}},
                           {"Second", {cellOf("d", "<b>", Emphasis::weak), cellOf("the words of a sentence")}}});
    ASSERT_EQ(table.columnCount(), 2);
    ASSERT_EQ(table.rowCount(), 2);
    const QTableWidgetItem &strong = *table.item(0, 0), &weak = *table.item(1, 0), &plain = *table.item(1, 1);
    Look look;
    look.take(table);
    for (const auto& said :
         {strong.toolTip(), strong.statusTip(), strong.data(Qt::AccessibleDescriptionRole).toString()})
        EXPECT_EQ(said, "A is first");
    EXPECT_TRUE(weak.toolTip().contains("&lt;")) << "shown as it is";
    EXPECT_EQ(table.verticalHeaderItem(1)->toolTip(), "Second");
    EXPECT_TRUE(table.currentRow() == 0 && table.selectedItems().isEmpty());
    form.table.show(1, 1);
    EXPECT_EQ(table.currentItem(), &plain);
    ASSERT_TRUE(form.moveFocus(&form.table));
    key(Qt::Key_Left);
    key(Qt::Key_F2);
    EXPECT_EQ(table.findChild<QLineEdit*>(), nullptr);
    EXPECT_EQ(table.currentItem(), &weak);
    key(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(table.selectedItems(), QList<QTableWidgetItem*>{table.item(1, 1)}) << "one cell at a time";
    key(Qt::Key_Left);
    form.table.setContent({"One", "Two"},
                          {{"First", {cellOf("a"), cellOf("b")}}, {"Second", {cellOf("d"), cellOf("e")}}});
    EXPECT_EQ(table.currentItem(), table.item(1, 0)) << "the user's place";
    key(Qt::Key_Tab);
    EXPECT_EQ(form.activeControl(), &form.tabs);
    form.table.setContent(
        std::vector<std::string>(20, "a"),
        std::vector<Table::Row>(100, {"A row with a name of many letters", std::vector<Table::Cell>(20, cellOf("b"))}));
    look.take(table);
    look.compare("lists");
}

TEST_F(Lists, TabsAreChosenByTheUserUnlessDisabledAndHideTheirControls)
{
    QTabBar& bar = *tabs().tabBar();
    EXPECT_EQ(tabs().tabText(0), "&Start");
    EXPECT_EQ(view.widget(form.left)->accessibleName(), "Start");
    const auto clickTab = [&](int index) {
        QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(index).center());
        QApplication::processEvents();
    };
    clickTab(1);
    EXPECT_EQ(form.tabs.tab(), 1);
    EXPECT_TRUE(view.widget(form.inRight)->isVisible());
    ASSERT_TRUE(form.moveFocus(&form.tabs));
    key(Qt::Key_Tab);
    EXPECT_EQ(form.activeControl(), &form.inRight) << "what is on a hidden tab is passed over";
    form.tabs.setTab(0);
    EXPECT_EQ(tabs().currentIndex(), 0);
    form.tabs.setTabEnabled(1, false);
    EXPECT_FALSE(tabs().isTabEnabled(1));
    EXPECT_TRUE(tabs().isTabEnabled(0));
    clickTab(1);
    EXPECT_EQ(form.tabs.tab(), 0);
    tabs().setCurrentIndex(1);
    EXPECT_EQ(tabs().currentIndex(), 0) << "shows the tab that the form has";
    form.setCaption("Dialog");
    form.tabs.setTabCaption(1, "Sync");
    EXPECT_EQ(tabs().tabText(1), "Sync");
    EXPECT_EQ(bar.accessibleName(), "Dialog");
}

} // namespace
} // namespace ko::test

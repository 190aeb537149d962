#include "ViewTest.h"
#include "widgets/bindings/EntryMark.h"

#include <QAbstractItemView>
#include <QInputMethodEvent>

namespace ko::test {
namespace {

using Bindings = ViewTest;

TEST_F(Bindings, WhatIsTypedReachesTheControlCharacterByCharacterAndWhatTheControlMakesOfItIsShown)
{
    std::vector<std::string> seen;
    form.box.change = [&] {
        seen.push_back(form.box.text());
        if (form.box.text() == "abc")
            form.box.setText("rounded");
    };
    click(box);
    QTest::keyClicks(&box, "abc");
    EXPECT_EQ(seen, (std::vector<std::string>{"a", "ab", "abc", "rounded"}));
    EXPECT_EQ(box.text(), "rounded");
    EXPECT_EQ(box.cursorPosition(), 0);
}

TEST_F(Bindings, SelectionsCountCharactersOnBothSidesWhateverTheirWidth)
{
    click(box);
    QInputMethodEvent input;
    input.setCommitString(QStringLiteral("a\U0001F600\u00e9z"));
    QApplication::sendEvent(&box, &input);
    ASSERT_EQ(form.box.text(), "a\U0001F600\u00e9z");
    EXPECT_EQ(form.box.selStart(), 4U);

    QTest::keyClick(&box, Qt::Key_Left, Qt::ShiftModifier);
    QTest::keyClick(&box, Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(form.box.selText(), "\u00e9z");
    EXPECT_EQ(form.box.selStart(), 2U);

    form.box.select(1, 1);
    EXPECT_EQ(box.selectedText(), QStringLiteral("\U0001F600"));
    QTest::keyClick(&box, Qt::Key_X);
    EXPECT_EQ(form.box.text(), "ax\u00e9z");
    EXPECT_EQ(form.box.selStart(), 2U);
}

TEST_F(Bindings, ALockedBoxCanBeSelectedAndCopiedButNotTypedIn)
{
    form.box.setText("locked");
    form.box.setLocked(true);
    click(box);
    QTest::keyClicks(&box, "x");
    EXPECT_EQ(form.box.text(), "locked");
    box.selectAll();
    EXPECT_EQ(form.box.selText(), "locked");
}

TEST_F(Bindings, AMarkedBoxIsShownAndAnnouncedAsMarked)
{
    form.box.setTag("A number");
    form.box.setMarked(true);
    const QWidget* mark = box.findChild<EntryMark*>();
    ASSERT_NE(mark, nullptr);
    EXPECT_TRUE(mark->isVisible());
    EXPECT_EQ(box.accessibleDescription(), "3009. A number");
    EXPECT_EQ(box.statusTip(), box.accessibleDescription());
    form.box.setMarked(false);
    EXPECT_FALSE(mark->isVisible());
    EXPECT_EQ(box.accessibleDescription(), "A number");
    EXPECT_EQ(box.textMargins(), QMargins());
}

TEST_F(Bindings, OnlyAChoiceOfTheUserClicksAListAndARefusedOneIsTakenBack)
{
    std::vector<std::int32_t> clicks;
    form.list.click = [&] {
        clicks.push_back(form.list.index());
        if (form.list.index() == 1)
            form.list.select(0);
    };
    form.list.select(2);
    EXPECT_EQ(list.currentText(), "30");
    EXPECT_TRUE(clicks.empty());
    click(list);
    list.hidePopup();
    QTest::keyClick(&list, Qt::Key_Up);
    EXPECT_EQ(clicks, std::vector<std::int32_t>{1});
    EXPECT_EQ(list.currentText(), "10");

    QWheelEvent wheel({5, 5}, list.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&list, &wheel);
    EXPECT_EQ(clicks, (std::vector<std::int32_t>{1, 1})) << "the wheel turns the list that has the focus";
    click(box);
    QApplication::sendEvent(&list, &wheel);
    EXPECT_TRUE(clicks.size() == 2 && !wheel.isAccepted()) << "and else scrolls what is around it";

    form.list.setItems(std::vector<ComboBox::Item>(40));
    list.showPopup();
    EXPECT_EQ(list.view()->viewport()->height() / list.view()->sizeHintForRow(0), 15) << "below the box, not over it";
    form.list.setItems({{"7", 0}});
    EXPECT_FALSE(list.view()->isVisible()) << "its entries are others now";
    EXPECT_EQ(list.count(), 1);
    EXPECT_EQ(list.currentIndex(), -1);
}

TEST_F(Bindings, OptionsFollowTheControlsAndTheArrowKeysSelectTheNextOneThatCanBeUsed)
{
    int clicks = 0;
    form.two.click = [&] { ++clicks; };
    click(one);
    EXPECT_TRUE(form.one.value() && one.isChecked());
    click(one);
    EXPECT_TRUE(form.one.value() && one.isChecked());
    QTest::keyClick(&one, Qt::Key_Down);
    EXPECT_TRUE(form.two.value() && two.isChecked() && !one.isChecked() && two.hasFocus());
    EXPECT_EQ(clicks, 1);
    for (const Qt::Key next : {Qt::Key_Right, Qt::Key_Left, Qt::Key_Up, Qt::Key_Down}) {
        QWidget* const from = QApplication::focusWidget();
        QTest::keyPress(from, next);
        EXPECT_NE(QApplication::focusWidget(), from) << next;
        QTest::keyRelease(QApplication::focusWidget(), next);
        EXPECT_EQ(form.two.value(), two.hasFocus());
    }
    form.two.deselect();
    EXPECT_FALSE(two.isChecked() || one.isChecked());
    form.one.setEnabled(false);
    QTest::keyClick(&two, Qt::Key_Down);
    EXPECT_FALSE(form.two.value()) << "there is no other";
    QTest::keyClick(&two, Qt::Key_Space);
    EXPECT_TRUE(form.two.value()) << "with none selected, from the option with the focus";
    form.one.showSelected();
    EXPECT_TRUE(one.isChecked() && !two.isChecked());
}

TEST_F(Bindings, WhatAHandlerThrowsStaysOutOfTheEventLoop)
{
    int clicks = 0;
    form.go.click = [&] {
        ++clicks;
        throw std::runtime_error("thrown by a handler");
    };
    form.box.change = [] { throw 1; };
    click(go);
    QTest::keyClick(&go, Qt::Key_Space);
    click(box);
    QTest::keyClicks(&box, "a");
    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(form.box.text(), "a");
}

} // namespace
} // namespace ko::test

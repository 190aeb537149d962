#include "ViewTest.h"

#include <QMenu>
#include <set>

namespace ko::test {
namespace {

class Focus : public ViewTest {
protected:
    int validations = 0;
    int clicks = 0;
    bool accepted = false;

    void SetUp() override
    {
        ViewTest::SetUp();
        form.box.validate = [this] {
            ++validations;
            return accepted;
        };
        form.go.click = form.one.click = form.list.click = [this] { ++clicks; };
        ASSERT_TRUE(form.moveFocus(&form.box));
    }
    void settle() { QApplication::processEvents(); }
};

TEST_F(Focus, EveryWayOfLeavingABoxValidatesItOnceAndClicksNothingIfThatFails)
{
    std::vector<std::function<void()>> ways{[&] { QTest::keyClick(&box, Qt::Key_Tab); },
                                            [&] { QTest::keyClick(&box, Qt::Key_Tab, Qt::ShiftModifier); },
                                            [&] { second.setFocus(); }};
    for (QWidget* other : std::initializer_list<QWidget*>{&go, &one, &second, &list, grid.viewport()})
        ways.emplace_back([other] { click(*other); });
    for (const Qt::Key letter : {Qt::Key_S, Qt::Key_O, Qt::Key_G})
        ways.emplace_back([this, letter] { QTest::keyClick(&window, letter, Qt::AltModifier); });
    for (const auto& leave : ways)
        for (const bool isAccepted : {false, true}) {
            SCOPED_TRACE(testing::Message() << &leave - ways.data() << isAccepted);
            accepted = isAccepted;
            validations = 0;
            leave();
            settle();
            EXPECT_EQ(validations, 1);
            EXPECT_EQ(form.activeControl() == &form.box, !isAccepted);
            ASSERT_NE(form.activeControl(), nullptr);
            EXPECT_EQ(window.focusWidget(), view.widget(*form.activeControl()));
            if (!isAccepted) {
                EXPECT_EQ(clicks, 0);
                EXPECT_FALSE(form.one.value() || one.isChecked() || go.isDown());
                EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
            }
            list.hidePopup();
            form.one.deselect();
            clicks = 0;
            ASSERT_TRUE(form.moveFocus(&form.box));
        }
}

TEST_F(Focus, MenusPopupsAndOtherWindowsLeaveTheFormsFocusAlone)
{
    QMenu menu(&window);
    menu.addAction("Entry");
    menu.popup(window.mapToGlobal(QPoint(0, 0)));
    settle();
    menu.close();
    QWidget other;
    QLineEdit otherBox(&other);
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    otherBox.setFocus();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_EQ(validations, 0);
    EXPECT_EQ(form.activeControl(), &form.box);
    EXPECT_TRUE(box.hasFocus());
}

TEST_F(Focus, AControlThatCannotBeUsedAnyMoreLosesTheFocusWithoutValidationAndWithoutASuccessor)
{
    for (Control* gone : std::initializer_list<Control*>{&form.box, &form.frame})
        for (const bool hide : {false, true}) {
            ASSERT_TRUE(form.moveFocus(&form.box));
            hide ? gone->setVisible(false) : gone->setEnabled(false);
            settle();
            EXPECT_EQ(form.activeControl(), nullptr) << gone->name() << hide;
            EXPECT_TRUE(view.hasFocus()) << gone->name() << hide;
            EXPECT_FALSE(hide ? box.isVisible() : box.isEnabled()) << gone->name();
            EXPECT_TRUE(hide ? box.isEnabled() : box.isVisible()) << gone->name();
            hide ? gone->setVisible(true) : gone->setEnabled(true);
        }
    EXPECT_EQ(validations, 0);
}

TEST_F(Focus, TabStopsOnceInAGroupOfOptionsAndComesRound)
{
    accepted = true;
    form.two.showSelected();
    std::vector<std::string> visited;
    for (int i = 0; i < 6; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        visited.push_back(form.activeControl()->name());
    }
    EXPECT_EQ(visited, (std::vector<std::string>{"second", "list", "two", "go", "grid", "box"}));
}

TEST_F(Focus, TabLeavesTheFormForTheWidgetsAroundItAndComesBack)
{
    accepted = true;
    QLineEdit before(&window), off(&window), after(&window), clickedOnly(&window);
    off.setEnabled(false);
    clickedOnly.setFocusPolicy(Qt::ClickFocus);
    for (QWidget* outside : std::initializer_list<QWidget*>{&before, &off, &after, &clickedOnly})
        outside->show();
    const auto tab = [](Qt::KeyboardModifiers held = {}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, held);
        return QApplication::focusWidget();
    };
    ASSERT_TRUE(form.moveFocus(&form.grid));
    EXPECT_EQ(tab(), &before);
    EXPECT_EQ(form.activeControl(), &form.grid) << "the form keeps its own";
    EXPECT_EQ(tab(), &after);
    ASSERT_TRUE(form.moveFocus(&form.box));
    box.setFocus();
    EXPECT_EQ(tab(Qt::ShiftModifier), &after);
}

TEST_F(Focus, ALetterThatTwoControlsShareLeadsToEachInTurnWithoutAClick)
{
    accepted = true;
    form.one.setCaption("&Go");
    std::vector<Control*> led;
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(&window, Qt::Key_G, Qt::AltModifier);
        led.push_back(form.activeControl());
    }
    EXPECT_EQ(std::set<Control*>(led.begin(), led.end()), (std::set<Control*>{&form.one, &form.go}));
    EXPECT_EQ(led[0], led[2]);
    EXPECT_EQ(clicks, 0);
}

TEST_F(Focus, TheEditKeysBelongToTheWindowAndUndoIsTheForms)
{
    int undone = 0;
    form.box.undo = [&] { ++undone; };
    const auto isOwn = [this](Qt::Key key, Qt::KeyboardModifiers held) {
        QKeyEvent asked(QEvent::ShortcutOverride, key, held);
        asked.ignore();
        QApplication::sendEvent(&box, &asked);
        return asked.isAccepted();
    };
    box.setText("text");
    box.deselect();
    for (const Qt::Key key : {Qt::Key_Z, Qt::Key_X, Qt::Key_C, Qt::Key_V})
        EXPECT_FALSE(isOwn(key, Qt::ControlModifier)) << key;
    EXPECT_TRUE(isOwn(Qt::Key_A, Qt::ControlModifier) && isOwn(Qt::Key_Delete, {}));
    box.selectAll();
    EXPECT_FALSE(isOwn(Qt::Key_Delete, {})) << "deletes the selection";
    QTest::keyClick(&box, Qt::Key_Escape);
    QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(undone, 2);
    int opened = 0;
    form.box.doubleClick = [&] { ++opened; };
    QTest::mouseDClick(&box, Qt::LeftButton);
    EXPECT_EQ(opened, 1);
}

TEST_F(Focus, TheFormSeesEachKeyFirstAndCanSwallowIt)
{
    std::vector<std::pair<int, int>> keys;
    form.keyDown = [&](KeyPress& press) {
        keys.emplace_back(press.keyCode, press.shift);
        if (press.keyCode == key::f1 || press.keyCode == 'B')
            press.keyCode = 0;
    };
    QTest::keyClick(&box, Qt::Key_F1);
    QTest::keyClick(&box, Qt::Key_F1, Qt::ShiftModifier | Qt::ControlModifier);
    QTest::keyClick(&box, Qt::Key_F2, Qt::MetaModifier);
    QTest::keyClick(&box, Qt::Key_A);
    QTest::keyClick(&box, Qt::Key_B);
    accepted = true;
    ASSERT_TRUE(form.moveFocus(nullptr));
    settle();
    ASSERT_TRUE(view.hasFocus());
    QTest::keyClick(&view, Qt::Key_F1);
    EXPECT_EQ(keys, (std::vector<std::pair<int, int>>{{112, 0}, {112, 3}, {65, 0}, {66, 0}, {112, 0}}));
    EXPECT_EQ(form.box.text(), "a");
}

} // namespace
} // namespace ko::test

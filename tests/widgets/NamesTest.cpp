#include "ViewTest.h"
#include "look/Painted.h"
#include "platform/PictureBox.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMenu>
#include <QProgressBar>
#include <QStatusTipEvent>

namespace ko::test {
namespace {

struct NamedForm : SampleForm {
    Label both{*this, "both", &frame};
    Label size{*this, "size"};
    LimitedLabel bytes{*this, "bytes"};
    Label plan{*this, "plan"};
    Menu tools{*this, "tools"};
    Menu item{*this, "item", &tools};
    PictureBox clock{*this, "clock"};
};

/// Captions, hints, letters for the Alt key and names for assistive technology.
class Names : public testing::Test {
protected:
    NamedForm form;
    FormView view{form, [](int number) { return QStringLiteral("text%1").arg(number); }};
    QLineEdit& box = view.textBox(form.box);
    QComboBox& list = view.comboBox(form.list);

    QLabel& labelled(const char* caption)
    {
        form.both.setCaption(caption);
        return view.label(form.both, {&form.list, &form.box});
    }
    void show()
    {
        view.show();
        view.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    }
};

TEST_F(Names, ALabelNamesItsFieldsAndLeadsToTheOneThatIsShown)
{
    form.box.setTag("The box");
    form.list.setTag("The list");
    QLabel& label = labelled("&Rate");
    EXPECT_EQ(label.text(), "&Rate");
    for (const QWidget* named :
         {static_cast<QWidget*>(&box), static_cast<QWidget*>(&list), static_cast<QWidget*>(&label)})
        EXPECT_EQ(named->accessibleName(), "Rate");
    show();
    EXPECT_EQ(label.buddy(), &list);
    EXPECT_EQ(label.statusTip(), "The list");
    QTest::keyClick(&view, Qt::Key_R, Qt::AltModifier);
    EXPECT_EQ(form.activeControl(), &form.list);
    form.list.setVisible(false);
    EXPECT_EQ(label.buddy(), &box);
    EXPECT_EQ(label.statusTip(), "The box");
    QTest::keyClick(&view, Qt::Key_R, Qt::AltModifier);
    EXPECT_EQ(form.activeControl(), &form.box);
    form.both.setCaption("Period");
    EXPECT_EQ(box.accessibleName(), "Period");
    form.box.setVisible(false);
    EXPECT_EQ(label.buddy(), &list) << "none is shown";

    form.label.setCaption("&Alone");
    EXPECT_EQ(view.label(form.label).text(), "Alone") << "a letter would lead nowhere";
    EXPECT_EQ(view.label(form.label).buddy(), nullptr);
}

TEST_F(Names, ALetterIsFoundForEachCaption)
{
    struct Case {
        const char *caption, *marked;
    };
    form.go.setCaption("&Go");
    form.one.setCaption("A && &B");
    form.item.setCaption("&Menu item");
    view.reserveMnemonics({"&File"});
    for (const auto& [caption, marked] : {Case{"&Kept", "&Kept"}, Case{"Good fit", "G&ood fit"}, // G and F are taken
                                          Case{"Menu", "&Menu"},         // the item's letter is its own
                                          Case{"Big Room", "Big &Room"}, // the beginning of a word comes first
                                          Case{"Bring", "Br&ing"}, Case{"12 %", "12 %"}, Case{"&&", "&&"},
                                          Case{"\u00c4hre", "\u00c4&hre"}, // only letters of each keyboard
                                          Case{"\u671f\u9593 (s):", "\u671f\u9593(&S) (s):"},
                                          Case{"\u671f\u9593:", "\u671f\u9593(&A):"}, Case{"\u0416", "\u0416"}})
        EXPECT_EQ(view.withMnemonic(QString::fromUtf8(caption)).toStdString(), marked);
    EXPECT_EQ(view.withMnemonic("\u671f").toStdString(), "\u671f(&C)") << "A, B are taken";
    for (int letter = 'A'; letter <= 'Z'; ++letter)
        view.withMnemonic(QString(QChar(letter)));
    EXPECT_EQ(view.withMnemonic("\u671f").toStdString(), "\u671f") << "no letter is left";
}

TEST_F(Names, AHintIsTheToolTipOrTheTagUnlessItIsTheNumberOfAText)
{
    struct Case {
        const char *tag, *tip, *hint;
    };
    for (const auto& [tag, tip, hint] : {Case{"Hint", "", "Hint"}, Case{"42", "", ""}, Case{"Hint", "Tip", "Tip"},
                                         Case{"42", "<b>Tip</b>", "<b>Tip</b>"}}) {
        form.list.setTag(tag);
        form.list.setToolTipText(tip);
        EXPECT_EQ(list.statusTip(), hint);
        EXPECT_EQ(list.accessibleDescription(), hint);
        EXPECT_EQ(list.toolTip().isEmpty(), QString(tip).isEmpty());
        EXPECT_EQ(list.toolTip().contains("&lt;"), QString(tip).contains("<"));
    }
    form.box.setTag("Hint");
    form.box.setEscapeText("7");
    EXPECT_TRUE(box.statusTip().startsWith("Hint. text"));
    form.box.setMarked(true);
    EXPECT_FALSE(box.toolTip().isEmpty());
}

TEST_F(Names, AValueIsReadWithItsTitleAndItsShareOfALimit)
{
    form.label.setCaption("&Bytes");
    form.bytes.setShare(0.75);
    QProgressBar bar;
    QLabel& value = view.limitedValue(form.bytes, form.label, bar);
    EXPECT_EQ(bar.value(), 75);
    struct Case {
        const char* caption;
        double share;
        const char* spoken;
        int shown;
        const char* percent;
    };
    for (const auto& [caption, share, spoken, shown, percent] :
         {Case{"1 GB", 0.5, "Bytes: 1 GB", 50, "50.0 %"}, Case{"text1152", 0.0, "Bytes: text3041", 0, "text3041"},
          Case{"2 GB", 1.0, "Bytes: 2 GB", 100, "100.0 %"}, Case{"3 MB", 0.006, "Bytes: 3 MB", 1, "0.6 %"}}) {
        form.bytes.setShare(share);
        form.bytes.setCaption(caption);
        EXPECT_EQ(value.text(), caption);
        EXPECT_EQ(value.accessibleName(), spoken);
        EXPECT_EQ(bar.value(), shown) << caption;
        EXPECT_EQ(bar.accessibleDescription(), percent);
        EXPECT_EQ(bar.toolTip(), QStringLiteral("text3030: ") + QString::fromLatin1(percent));
    }
    EXPECT_EQ(bar.accessibleName(), "Bytes: text3030");
    EXPECT_EQ(value.focusPolicy(), Qt::NoFocus);
    form.size.setCaption("7 m");
    EXPECT_EQ(view.value(form.size, form.label).text(), "7 m");
    form.bytes.setShare(0.25);
    EXPECT_EQ(bar.value(), 25) << "the share alone has changed";
}

TEST_F(Names, ASentenceIsShownAtOnceReadAfterAPauseAndCopiedByItsOwnKey)
{
    form.plan.setCaption("First");
    QLabel& plan = view.sentence(form.plan);
    EXPECT_EQ(plan.accessibleName(), "First");
    form.plan.setCaption("Second");
    form.plan.setCaption("Third");
    EXPECT_EQ(plan.text(), "Third");
    EXPECT_EQ(plan.accessibleName(), "First");
    EXPECT_TRUE(QTest::qWaitFor([&] { return plan.accessibleName() == "Third"; }));
    for (const auto& [key, own] : {std::pair(Qt::Key_C, true), std::pair(Qt::Key_V, false)}) {
        QKeyEvent override(QEvent::ShortcutOverride, key, Qt::ControlModifier);
        override.ignore();
        QApplication::sendEvent(&plan, &override);
        EXPECT_EQ(override.isAccepted(), own);
    }
}

TEST_F(Names, AMenuFollowsItsControlsAndPassesItsClicks)
{
    form.tools.setCaption("&Tools");
    form.item.setCaption("Lines");
    const QMenu& menu = view.menu(form.tools, {&form.item});
    QAction& action = *menu.actions().at(0);
    EXPECT_EQ(menu.title() + action.text(), "&ToolsLines");
    int clicks = 0;
    form.item.click = [&] { ++clicks; };
    action.trigger();
    form.item.setEnabled(false);
    action.trigger();
    EXPECT_EQ(clicks, 1);
    form.item.setVisible(false);
    EXPECT_FALSE(action.isEnabled() || action.isVisible());
    {
        FormView other(form, [](int) { return QString(); });
        other.menu(form.tools, {&form.item});
        other.label(form.label);
    }
    for (const Control* control : {static_cast<Control*>(&form.tools), static_cast<Control*>(&form.label)})
        EXPECT_FALSE(control->view) << "of a view that is gone";
}

TEST_F(Names, APictureIsDrawnAsItsFormDrawsItAndEmptyWhenThatFails)
{
    QWidget& clock = view.picture(form.clock);
    clock.resize(60, 40);
    form.clock.paint = [](double width, double height) {
        return Drawing{{{{width / 2, height / 2}, 10.0}}, {{{1, 2}, {3, 4}, 5}, {{5, 6}, {7, 9}, 1}}};
    };
    const Painted drawn = paintedBy(clock);
    ASSERT_EQ(drawn.ellipses.size(), 1U);
    EXPECT_EQ(drawn.ellipses[0].box, QRectF(20, 10, 20, 20));
    ASSERT_EQ(drawn.lines.size(), 2U);
    EXPECT_EQ(drawn.lines[1].box, QRectF(5, 6, 2, 3));
    EXPECT_EQ(drawn.lines[0].pen.width(), 5);
    const QColor ink = drawn.lines[0].pen.color();
    clock.setEnabled(false);
    EXPECT_NE(paintedBy(clock).lines[0].pen.color(), ink);
    form.clock.paint = [](double, double) -> Drawing { throw 1; };
    EXPECT_TRUE(paintedBy(clock).lines.empty());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&clock)->role(), QAccessible::Graphic);
}

TEST_F(Names, AnOptionIsAnnouncedAndPressedAsARadioButton)
{
    form.one.setCaption("&One");
    QRadioButton& one = view.option(form.one);
    show();
    QAccessibleInterface& spoken = *QAccessible::queryAccessibleInterface(&one);
    EXPECT_EQ(spoken.role(), QAccessible::RadioButton);
    EXPECT_EQ(spoken.text(QAccessible::Name), "One");
    EXPECT_EQ(spoken.text(QAccessible::Accelerator), "Alt+O");
    EXPECT_TRUE(spoken.state().checkable && !spoken.state().checked);
    QAccessibleActionInterface& actions = *spoken.actionInterface();
    EXPECT_EQ(actions.actionNames().front(), QAccessibleActionInterface::toggleAction());
    actions.doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(form.one.value() && spoken.state().checked);
}

TEST_F(Names, AFrameIsNamedByItsTitleOrItsHeading)
{
    QLabel heading;
    form.frame.setCaption("&Start");
    QGroupBox& frame = view.frame(form.frame, &heading);
    EXPECT_EQ(heading.text() + frame.accessibleName() + frame.title(), "StartStart");
    form.frame.setEnabled(false);
    EXPECT_FALSE(heading.isEnabled());
    form.setForReading(true);
    EXPECT_TRUE(heading.isEnabled());
    EXPECT_EQ(view.frame(form.frame).title(), "&Start");
    form.go.setCaption("&Why");
    form.label.setCaption("&Rate");
    EXPECT_EQ(view.button(form.go, &form.label).accessibleName(), "Rate: Why");
}

} // namespace
} // namespace ko::test

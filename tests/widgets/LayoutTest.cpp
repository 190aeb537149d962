#include "fakes/DocumentTest.h"
#include "look/Look.h"
#include "page/Quantities.h"
#include "widgets/page/PageWidget.h"

#include <QApplication>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

namespace ko::test {
namespace {

/// The page with all its controls shown, each list in place of its box, at the size that it asks for.
class LayoutTest : public DocumentTest {
protected:
    PageWidget widget{page(), [](int number) { return QStringLiteral("text %1").arg(number); }, nullptr, {"&File"}};
    QScrollArea& area = *widget.findChild<QScrollArea*>();

    void SetUp() override
    {
        addDriver().sampleChoices = {0.001, 0.002};
        addDriver(2).scanChoices = {0.1, 0.2};
        open();
        for (Control* control : page().controls())
            control->setVisible(true);
        for (const Quantity& quantity : quantities)
            (page().*quantity.box).setVisible(false);
        for (Control* other :
             std::initializer_list<Control*>{&page().imgNoInst, &page().lblChooseChannel, &page().lblWhatFits,
                                             &page().cmdTakeDuration, &page().cmdTakeRate})
            other->setVisible(false);
        page().minutePassed = nullptr; // which would show the plan of the clock
        widget.resize(widget.sizeHint());
        widget.show();
        widget.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&widget));
    }
    void show(QSize size)
    {
        widget.resize(size);
        for (int i = 0; i < 3; ++i)
            QApplication::processEvents();
    }
    QWidget& at(const Control& control) { return *widget.view().widget(control); }
    QRect place(const Control& control) { return placeOf(at(control)); }
    void showAnswers()
    {
        for (Control* answer :
             std::initializer_list<Control*>{&page().lblWhatFits, &page().cmdTakeDuration, &page().cmdTakeRate})
            answer->setVisible(true);
        QApplication::processEvents();
    }
};

TEST_F(LayoutTest, LooksAsKept)
{
    using Kind = Timeline::Stretch::Kind;
    page().tmlPlan.setPoints({{{"Now", "", ""}, {Kind::uncertain, "waiting"}},
                              {{"Start", "9:30", "in 2 min", true}, {Kind::recording, "a text that is far too long"}},
                              {{"Stop", "9:31", "in 3 min"}, {}}});
    for (Control* control : page().controls())
        if (auto* label = dynamic_cast<Label*>(control); label && label->caption().empty())
            label->setCaption("text");
    widget.setObjectName("window");
    Look look;
    look.take(widget);
    page().lblChooseChannel.setVisible(true);
    for (const Quantity& quantity : quantities) {
        (page().*quantity.list).setVisible(false);
        (page().*quantity.box).setVisible(true);
        (page().*quantity.mark).setCaption("text 0 in 2 of 3");
    }
    look.take(widget);
    for (TextBox* box : {&page().txtSampleRate, &page().txtDuration})
        box->setMarked(true);
    for (LimitedLabel* label : {&page().lblNumDynamicBytesValue, &page().lblNumStaticBytesValue})
        label->setShare(0.5);
    show(QSize(480, 1100));
    look.take(widget);
    showAnswers();
    page().setForReading(true);
    for (Frame* frame : {&page().frmDynamic, &page().frmStatic, &page().frmStart, &page().frmStop})
        frame->setEnabled(false);
    QFont large = widget.font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    widget.view().setFont(large);
    widget.setFont(large);
    show(QSize(1800, 1200));
    look.take(widget);
    look.compare("page");
}

TEST_F(LayoutTest, NothingOverlapsAnythingElse)
{
    const auto isOnItsOwn = [](const Control& control) {
        return control.isShown() && control.typeName() != "Menu" && control.typeName() != "Frame";
    };
    for (const QSize size : {widget.sizeHint(), widget.sizeHint() * 1.5, QSize(480, 400)}) {
        show(size);
        for (const Control* one : page().controls())
            for (const Control* other : page().controls()) {
                const bool areApart = one < other && isOnItsOwn(*one) && isOnItsOwn(*other);
                EXPECT_FALSE(areApart && place(*one).intersects(place(*other))) << one->name() << ' ' << other->name();
            }
    }
}

TEST_F(LayoutTest, MoreRoomGoesToTheTriggerParametersOrBelowTheFramesAndTheColumnsStayReadable)
{
    const int table = place(page().grdParam).height(), stop = place(page().frmStop).height();
    show(widget.size() + QSize(0, 150));
    EXPECT_NEAR(place(page().grdParam).height(), table + 150, 1);
    EXPECT_EQ(place(page().frmStop).height(), stop);
    page().grdParam.setVisible(false);
    QApplication::processEvents();
    show(widget.size() + QSize(0, 1));
    const int start = place(page().frmStart).height();
    show(widget.size() + QSize(0, 200));
    EXPECT_EQ(place(page().frmStart).height(), start);

    for (int width = 480; width < 1200; width += 10) {
        show(QSize(width, 900));
        const bool areBeside = place(page().frmStart).left() > place(page().frmDynamic).right();
        EXPECT_FALSE(areBeside && area.horizontalScrollBar()->isVisible()) << width;
        EXPECT_TRUE(areBeside || width < widget.sizeHint().width()) << width;
    }
    show(QSize(480, 300));
    ASSERT_TRUE(page().moveFocus(&page().txtDuration));
    EXPECT_TRUE(widget.rect().contains(at(page().txtDuration).mapTo(&widget, QPoint()))) << "scrolled to";
}

TEST_F(LayoutTest, ALongTextIsWrappedAndDoesNotWidenThePage)
{
    page().lblWhatFits.setVisible(true);
    const int least = widget.minimumSizeHint().width();
    for (CaptionControl* text : std::initializer_list<CaptionControl*>{&page().lblReadOnly, &page().lblNoTriggerLine,
                                                                       &page().lblWhatFits, &page().frmStart})
        text->setCaption(fromQt(QStringLiteral("words ").repeated(100)));
    page().lblPlan.setCaption(std::string(500, 'x'));
    for (const bool isRefused : {true, false}) {
        page().lblWhatFits.setVisible(isRefused);
        show(widget.size());
        EXPECT_FALSE(area.horizontalScrollBar()->isVisible());
        EXPECT_LE(widget.minimumSizeHint().width(), least);
    }
}

TEST_F(LayoutTest, AnswersTakeThePlaceOfThePlanAndAreInTheOrderOfTab)
{
    showAnswers();
    ASSERT_TRUE(page().moveFocus(&page().cmdTakeDuration));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(page().activeControl(), &page().cmdTakeRate);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ShiftModifier);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_NE(page().activeControl(), &page().cmdTakeDuration);
    EXPECT_NE(page().activeControl(), &page().cmdTakeRate);
    page().lblWhatFits.setVisible(false);
    EXPECT_TRUE(at(page().lblPlan).isVisible());
    EXPECT_FALSE(at(page().lblWhatFits).isVisible());
}

} // namespace
} // namespace ko::test

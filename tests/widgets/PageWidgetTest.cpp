#include "widgets/page/PageWidget.h"
#include "fakes/DocumentTest.h"
#include "look/Look.h"
#include "widgets/bindings/PeriodTip.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QToolTip>

namespace ko::test {
namespace {

class PageWidgetTest : public DocumentTest {
protected:
    PageWidget widget{page(), [](int number) { return QStringLiteral("text %1").arg(number); }};

    void SetUp() override
    {
        FakeDriver& dynamic = addDriver();
        dynamic.sampleChoices = {0.001, 0.002};
        dynamic.blockRange = {16, 4096};
        FakeDriver& scanning = addDriver(2);
        scanning.scanRange = {0.01, 10};
        widget.resize(800, 600);
    }
    void openAndShow()
    {
        open();
        widget.show();
        widget.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&widget));
    }
    QWidget& at(const Control& control) { return *widget.view().widget(control); }
};

TEST_F(PageWidgetTest, AWidgetThatIsMadeLaterShowsWhatTheFirstOneShows)
{
    openAndShow();
    const auto seen = [&](PageWidget& of) {
        std::string all;
        for (const Control* control : page().controls())
            if (const QWidget* part = of.view().widget(*control)) {
                QStringList one{toQt(control->name()), part->accessibleDescription()};
                if (control != &page().lblPlan) // whose name follows later
                    one << part->accessibleName();
                for (const char* property : {"text", "currentText", "checked", "enabled", "toolTip", "statusTip"})
                    one << part->property(property).toString();
                all += fromQt(one.join('|')) + (part->isVisibleTo(&of) ? "|visible\n" : "\n");
            }
        return all;
    };
    const std::string first = seen(widget);
    PageWidget later{page(), [](int number) { return QStringLiteral("text %1").arg(number); }};
    EXPECT_EQ(seen(later), first);
    for (Control* control : page().controls())
        for (const bool isShown : {!control->visible(), control->visible()})
            if (const QWidget* part = later.view().widget(*control)) {
                control->setVisible(isShown);
                EXPECT_EQ(part->isHidden(), !isShown) << control->name();
            }
}

TEST_F(PageWidgetTest, WithoutInstrumentsOnlyThePictureIsShownAndAClickOnItExplains)
{
    fakes.clear();
    openAndShow();
    EXPECT_FALSE(at(page().lblWhatFits).parentWidget()->isVisible());
    widget.setObjectName("window");
    Look look;
    look.take(widget);
    look.compare("no instruments");
    QWidget& picture = at(page().imgNoInst);
    QTest::mouseClick(&picture, Qt::RightButton);
    QTest::mouseRelease(&picture, Qt::LeftButton, {}, QPoint(-5, 5));
    EXPECT_TRUE(host.messages.empty());
    QTest::mouseClick(&picture, Qt::LeftButton);
    EXPECT_EQ(host.takeMessages().size(), 1U);
}

/// Whether the element or one below it shows `widget`.
bool isInTree(QAccessibleInterface& tree, const QWidget& widget)
{
    for (int i = 0; i < tree.childCount(); ++i)
        if (tree.child(i)->object() == &widget || isInTree(*tree.child(i), widget))
            return true;
    return false;
}

TEST_F(PageWidgetTest, ThePlanIsShownWholeBelowThePageAndCopiedByKeysAndMouse)
{
    openAndShow();
    auto& plan = dynamic_cast<QLabel&>(at(page().lblPlan));
    const auto& area = *widget.findChild<QScrollArea*>();
    EXPECT_TRUE(isInTree(*QAccessible::queryAccessibleInterface(&widget), plan));
    EXPECT_EQ(plan.text().toStdString(), page().lblPlan.caption());
    const auto isWhole = [&] {
        QApplication::processEvents();
        return widget.rect().contains(plan.geometry()) && plan.y() > area.geometry().bottom() &&
               plan.geometry().bottom() == widget.rect().bottom() && plan.height() >= plan.heightForWidth(plan.width());
    };
    for (const QSize size : {QSize(800, 600), QSize(480, 300), QSize(300, 300)}) {
        widget.resize(size);
        EXPECT_TRUE(isWhole());
    }
    EXPECT_TRUE(area.verticalScrollBar()->isVisible());
    const int before = plan.height();
    page().lblPlan.setCaption(page().lblPlan.caption() + page().lblPlan.caption());
    EXPECT_TRUE(isWhole());
    EXPECT_GT(plan.height(), before);

    const Control* focused = page().activeControl();
    ASSERT_TRUE(focused && at(*focused).hasFocus());
    QTest::mouseDClick(&plan, Qt::LeftButton, {}, plan.contentsRect().topLeft() + QPoint(8, 8));
    QTest::keyClick(&plan, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "Starts");
    EXPECT_EQ(page().activeControl(), focused);
    auto& value = dynamic_cast<QLabel&>(at(page().lblNumSamplesValue));
    QTest::mouseDClick(&value, Qt::LeftButton, {}, value.rect().bottomRight() - QPoint(5, 5));
    EXPECT_TRUE(value.hasSelectedText()) << "so can a value";
    ASSERT_TRUE(page().moveFocus(&page().cmbInterval));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    ASSERT_TRUE(plan.hasFocus());
    QTest::keyClick(&plan, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&plan, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), plan.text());
}

TEST_F(PageWidgetTest, EachMinuteTheTimesFollowTheClockWithoutACallToADriver)
{
    fakes[0]->startMode = startMode::atTime;
    fakes[0]->startTime = toDateTime("9:30:00 AM", {});
    host.time = toDateTime("11/21/2026 9:28:30 AM", {});
    openAndShow();
    const auto& day = dynamic_cast<const QLabel&>(at(page().lblStartDay));
    const QWidget& timeline = at(page().tmlPlan);
    EXPECT_EQ(day.text(), "today, in 1 min");
    const QImage before = at(page().tmlPlan).grab().toImage();
    FaultGate gate;
    for (const auto& driver : fakes)
        driver->gate = &gate;
    host.time = toDateTime("11/21/2026 9:31:00 AM", {});
    auto& minute = *widget.findChild<QTimer*>(QStringLiteral("minute"));
    const auto pass = [&] {
        QTimerEvent passed(minute.timerId());
        QApplication::sendEvent(&minute, &passed);
    };
    QDialog asking(&widget);
    asking.open();
    pass();
    EXPECT_EQ(day.text(), "today, in 1 min") << "not while a dialog is open";
    asking.close();
    pass();
    EXPECT_EQ(day.text(), "tomorrow, in 23 h 59 min");
    EXPECT_TRUE(timeline.accessibleName().contains("tomorrow, 9:30:00 AM, in 23 h 59 min"));
    EXPECT_NE(at(page().tmlPlan).grab().toImage(), before);
    EXPECT_TRUE(page().lblPlan.caption().find("(tomorrow)") != std::string::npos);
    EXPECT_TRUE(minute.isActive());
    EXPECT_EQ(gate.calls, 0);
    for (const auto& driver : fakes)
        driver->gate = nullptr;
}

TEST_F(PageWidgetTest, TheTipOfAPeriodHasItInEngineeringUnits)
{
    const std::pair<double, const char*> cases[] = {{3.90625e-5, "39.06 \xC2\xB5s"},
                                                    {0.0001, "100 \xC2\xB5s"},
                                                    {0.00099999999, "1 ms"},
                                                    {0.5, "500 ms"},
                                                    {1.0, "1 s"},
                                                    {86400.0, "86400 s"},
                                                    {1.25e-8, "12.5 ns"},
                                                    {0.0, ""}};
    for (const auto& [seconds, text] : cases)
        EXPECT_EQ(periodText(seconds).toStdString(), text);
    fakes[0]->samplePeriod = 3.90625e-5;
    fakes[0]->sampleChoices = {3.90625e-5, 0.001};
    openAndShow();
    QWidget& list = at(page().cmbSamplePeriod);
    const QString hint = list.statusTip();
    list.setToolTip(QStringLiteral("own"));
    QHelpEvent asked(QEvent::ToolTip, QPoint(5, 5), list.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&list, &asked);
    EXPECT_EQ(QToolTip::text().toStdString(), hint.toStdString() + "\n39.06 \xC2\xB5s");
    EXPECT_EQ(list.statusTip(), hint);
    EXPECT_EQ(page().cmbSamplePeriod.text(), "3.90625E-05");
}

} // namespace
} // namespace ko::test

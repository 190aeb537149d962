#include "fakes/DocumentTest.h"
#include "page/Quantities.h"
#include "widgets/bindings/EntryMark.h"
#include "widgets/page/PageWidget.h"
#include "widgets/support/PageTexts.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

namespace ko::test {
namespace {

/// The page with all its controls shown, each list in place of its box, at the size that it asks for.
class LayoutTest : public DocumentTest {
protected:
    using Row = std::vector<const Control*>;

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
    QRect place(const QWidget& part) const { return {part.mapTo(&widget, QPoint()), part.size()}; }
    QRect place(const Control& control) { return place(at(control)); }
    std::vector<Row> rowsOf(const Frame& frame)
    {
        Page& p = page();
        std::vector<Row> rows;
        for (const Quantity& q : quantities)
            if (&(p.*q.number->frame) == &frame)
                rows.push_back({&(p.*q.label), &(p.*q.list), &(p.*q.mark), &(p.*q.button)});
        const std::vector<Row> others =
            &frame == &p.frmDynamic  ? std::vector<Row>{{&p.lblSpan, &p.lblSpanValue},
                                                        {&p.lblNumSamples, &p.lblNumSamplesValue},
                                                        {&p.lblNumDynamicBytes, &p.lblNumDynamicBytesValue}}
            : &frame == &p.frmStatic ? std::vector<Row>{{&p.lblNumScans, &p.lblNumScansValue},
                                                        {&p.lblNumStaticBytes, &p.lblNumStaticBytesValue}}
            : &frame == &p.frmStart  ? std::vector<Row>{{&p.optImmediate},
                                                        {&p.optOnTrigger},
                                                        {&p.lblChannel, &p.txtChannel, &p.cmdChannel},
                                                        {&p.grdParam},
                                                        {&p.lblNoTriggerLine},
                                                        {&p.optStartTime, &p.txtStartTime, &p.cmdStartTime},
                                                        {&p.lblStartPast, &p.lblStartDay}}
                                     : std::vector<Row>{{&p.optAfter, &p.txtDuration, &p.cmbInterval},
                                                        {&p.optStopTime, &p.txtStopTime, &p.cmdStopTime},
                                                        {&p.lblStopDay},
                                                        {&p.lblDuration, &p.lblDurationValue},
                                                        {&p.lblStopTime, &p.lblStopTimeValue}};
        rows.insert(rows.end(), others.begin(), others.end());
        return rows;
    }
    std::vector<const Frame*> frames()
    {
        return {&page().frmDynamic, &page().frmStatic, &page().frmStart, &page().frmStop};
    }
};

TEST_F(LayoutTest, TheRowsOfEachFrameAreInOrderWithLabelsFieldsAndButtonsInColumns)
{
    std::map<const Frame*, int> fields;
    for (const Frame* frame : frames()) {
        SCOPED_TRACE(frame->name());
        const QRect whole = place(*frame);
        int above = whole.top();
        for (const Row& row : rowsOf(*frame)) {
            SCOPED_TRACE(row.front()->name());
            const QRect first = place(*row.front());
            const QRect last = place(*row.back());
            EXPECT_GT(first.center().y(), above) << "below the row above";
            above = first.center().y();
            int before = whole.left();
            for (const Control* control : row) {
                const QRect it = place(*control);
                EXPECT_GE(it.left(), before) << control->name();
                before = it.right();
                EXPECT_TRUE(whole.contains(it)) << control->name();
                EXPECT_NEAR(it.center().y(), first.center().y(), 8) << control->name();
            }
            const bool isDay = row.back() == &page().lblStartDay || row.back() == &page().lblStopDay;
            EXPECT_NEAR(last.right(), place(*rowsOf(*frame).back().back()).right(), 1) << "one right edge";
            const int left = place(*rowsOf(*frame).front().front()).left();
            EXPECT_TRUE(isDay || std::abs(first.left() - left) <= 1) << "one left edge";
            if (row.size() < 2 && !isDay)
                continue;
            const QRect field = place(*row[isDay ? 0 : 1]);
            const auto [it, isNew] = fields.try_emplace(frame, field.left());
            const bool hasBar = dynamic_cast<const LimitedLabel*>(row.back()) != nullptr;
            EXPECT_TRUE(hasBar || std::abs(field.left() - it->second) <= 1) << "one column of fields";
        }
        const QLabel& heading = *at(*frame).findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
        EXPECT_TRUE(heading.font().bold());
        EXPECT_LT(place(heading).bottom(), place(*rowsOf(*frame)[0][0]).center().y());
    }
    EXPECT_EQ(fields[&page().frmDynamic], fields[&page().frmStatic]) << "the same in both frames of a column";
    EXPECT_EQ(fields[&page().frmStart], fields[&page().frmStop]);
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

TEST_F(LayoutTest, AtTheSizeThatItAsksForTheColumnsAreBesideEachOtherWithoutAScrollBar)
{
    const auto isWhole = [&] {
        QApplication::processEvents();
        return !area.verticalScrollBar()->isVisible() && !area.horizontalScrollBar()->isVisible() &&
               place(page().frmDynamic).top() == place(page().frmStart).top();
    };
    EXPECT_TRUE(isWhole());
    for (const Quantity& quantity : quantities)
        (page().*quantity.mark).setCaption("text 0 in 2 of 3");
    EXPECT_TRUE(isWhole());
    const QRect dynamic = place(page().frmDynamic), fixed = place(page().frmStatic), start = place(page().frmStart),
                stop = place(page().frmStop), plan = place(page().lblPlan), times = place(page().tmlPlan);
    EXPECT_EQ(dynamic.left(), fixed.left());
    EXPECT_EQ(dynamic.width(), fixed.width());
    EXPECT_EQ(start.left(), stop.left());
    EXPECT_EQ(start.width(), stop.width());
    EXPECT_NEAR(start.width(), dynamic.width(), start.width() / 4);
    EXPECT_GT(start.left(), dynamic.right());
    EXPECT_GT(fixed.top(), dynamic.bottom());
    EXPECT_GT(stop.top(), start.bottom());
    EXPECT_GT(times.top(), std::max(stop.bottom(), fixed.bottom()));
    EXPECT_GT(plan.top(), times.bottom());
    EXPECT_EQ(plan.left(), 0);
    EXPECT_EQ(plan.width(), widget.width());
    EXPECT_LE(place(page().lblReadOnly).bottom(), dynamic.top());
    EXPECT_TRUE(at(page().lblReadOnly).font().bold());
    EXPECT_NEAR(times.left(), dynamic.left(), 1);
    EXPECT_NEAR(times.right(), start.right(), 1);
    const QMargins around = dynamic_cast<QLabel&>(at(page().lblPlan)).contentsMargins();
    EXPECT_NEAR(around.left(), dynamic.left(), 1) << "the plan begins below the frames";
    EXPECT_GE(plan.height(), 2 * at(page().lblPlan).fontMetrics().lineSpacing());
}

TEST_F(LayoutTest, MoreRoomGoesToTheTriggerParametersOrBelowTheFramesAndTheColumnsStayReadable)
{
    const int table = place(page().grdParam).height();
    EXPECT_GE(table, 8 * widget.fontMetrics().height());
    const int stop = place(page().frmStop).height();
    show(widget.size() + QSize(0, 200));
    EXPECT_GT(place(page().grdParam).height(), table + 50);
    EXPECT_EQ(place(page().frmStop).height(), stop);
    page().grdParam.setVisible(false);
    QApplication::processEvents();
    show(widget.size() + QSize(0, 1));
    const int start = place(page().frmStart).height();
    show(widget.size() + QSize(0, 200));
    EXPECT_EQ(place(page().frmStart).height(), start);

    const int most = widget.view().fontMetrics().averageCharWidth() * 180;
    show(QSize(most * 2, 900));
    const QRect left = place(page().frmDynamic), right = place(page().frmStart);
    EXPECT_NEAR(right.right() - left.left() + 1, most, 1);
    EXPECT_NEAR(left.left() + right.right(), widget.width(), 3) << "centred";
    EXPECT_NEAR(place(page().tmlPlan).left(), left.left(), 1);
    EXPECT_NEAR(place(page().tmlPlan).width(), most, 1);
    EXPECT_NEAR(left.width(), right.width(), left.width() / 4) << "the room is shared";

    show(QSize(480, 2500));
    for (const Frame* frame : frames())
        EXPECT_EQ(place(*frame).left(), place(page().frmDynamic).left());
    EXPECT_LT(place(page().frmStart).top() - place(page().frmStatic).bottom(), 60) << "no gap between the columns";
    EXPECT_LT(place(page().frmDynamic).top(), place(page().lblReadOnly).bottom() + 60);
}

TEST_F(LayoutTest, ValuesAreRightAlignedAndButtonsAndFieldsHaveRoomForTheirContents)
{
    for (const Label* value : std::initializer_list<const Label*>{
             &page().lblSpanValue, &page().lblNumSamplesValue, &page().lblNumDynamicBytesValue,
             &page().lblNumScansValue, &page().lblNumStaticBytesValue, &page().lblDurationValue,
             &page().lblStopTimeValue})
        EXPECT_TRUE((dynamic_cast<QLabel&>(at(*value)).alignment() & Qt::AlignRight) != 0) << value->name();
    EXPECT_TRUE((dynamic_cast<QLineEdit&>(at(page().txtDuration)).alignment() & Qt::AlignRight) != 0);
    const int button = place(page().cmdChannel).width();
    const QFontMetrics metrics = widget.view().fontMetrics();
    for (const Quantity& quantity : quantities) {
        EXPECT_EQ(place(page().*quantity.button).width(), button);
        EXPECT_TRUE((dynamic_cast<QLineEdit&>(at(page().*quantity.box)).alignment() & Qt::AlignRight) != 0);
        EXPECT_GE(at(page().*quantity.list).minimumWidth(), metrics.horizontalAdvance("1000000.0"));
        EXPECT_FALSE(dynamic_cast<QPushButton&>(at(page().*quantity.mark)).icon().isNull());
        const QString why = at(page().*quantity.button).accessibleName();
        EXPECT_FALSE(why.isEmpty());
        EXPECT_FALSE(at(page().*quantity.mark).accessibleName().isEmpty());
    }
    EXPECT_EQ(place(page().cmdStartTime).width(), button);
    EXPECT_EQ(place(page().cmdStopTime).width(), button);
    EXPECT_GT(button, metrics.horizontalAdvance("..."));
    for (QProgressBar* bar : widget.findChildren<QProgressBar*>()) {
        EXPECT_LT(bar->height(), metrics.height());
        EXPECT_GT(bar->width(), metrics.averageCharWidth() * 8 - 1);
        EXPECT_GT(bar->height(), metrics.height() / 4);
    }
    EXPECT_GE(place(page().lblNumStaticBytesValue).width(), metrics.horizontalAdvance("1023.99 MB"));
    auto& duration = dynamic_cast<QLineEdit&>(at(page().txtDuration));
    page().txtDuration.setText("0.0001");
    page().txtDuration.setMarked(true);
    const QWidget& mark = *duration.findChild<EntryMark*>();
    EXPECT_GT(mark.width(), mark.height()) << "there is room for its word";
    page().lblChooseChannel.setVisible(true);
    QApplication::processEvents();
    EXPECT_LT((place(page().lblChooseChannel).center() - place(page().grdParam).center()).manhattanLength(), 4);
    EXPECT_GT(dynamic_cast<QLabel&>(at(page().lblChannel)).contentsMargins().left(), metrics.height());
    for (const auto& [control, name] : {std::pair<const Control*, int>{&page().cmbInterval, pageText::durationUnit},
                                        std::pair<const Control*, int>{&page().cmdStartTime, pageText::startTimeButton},
                                        std::pair<const Control*, int>{&page().cmdStopTime, pageText::stopTimeButton},
                                        std::pair<const Control*, int>{&page().grdParam, pageText::parameters}})
        EXPECT_EQ(at(*control).accessibleName(), QStringLiteral("text %1").arg(name)) << control->name();
    EXPECT_EQ(at(page().txtStopTime).accessibleName().toStdString(),
              withoutMnemonic(toQt(page().optStopTime.caption())).toStdString());
}

TEST_F(LayoutTest, ALargerFontMakesRoomForItself)
{
    const int button = place(page().cmdChannel).width();
    const int label = place(page().txtChannel).left();
    const int table = at(page().grdParam).minimumHeight();
    QFont font = widget.font();
    font.setPointSizeF(font.pointSizeF() * 1.5);
    widget.view().setFont(font);
    widget.setFont(font);
    show(widget.sizeHint());
    EXPECT_GT(place(page().cmdChannel).width(), button);
    EXPECT_GT(place(page().txtChannel).left(), label);
    EXPECT_GT(at(page().grdParam).minimumHeight(), table);
}

TEST_F(LayoutTest, AnswersTakeThePlaceOfThePlanAndAreInTheOrderOfTab)
{
    for (Control* answer :
         std::initializer_list<Control*>{&page().lblWhatFits, &page().cmdTakeDuration, &page().cmdTakeRate})
        answer->setVisible(true);
    QApplication::processEvents();
    EXPECT_FALSE(at(page().lblPlan).isVisible());
    const QRect said = place(page().lblWhatFits), first = place(page().cmdTakeDuration),
                second = place(page().cmdTakeRate);
    EXPECT_GE(said.top(), area.geometry().bottom());
    EXPECT_GT(first.top(), said.center().y());
    EXPECT_EQ(first.top(), second.top());
    EXPECT_GT(second.left(), first.right());
    EXPECT_LT(first.left(), widget.width() / 4);
    EXPECT_TRUE(dynamic_cast<QLabel&>(at(page().lblWhatFits)).wordWrap());
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

TEST_F(LayoutTest, TheMinuteOfTheClockIsStartedForTheNextFullMinuteAndWaitsForDialogs)
{
    auto& minute = *widget.findChild<QTimer*>(QStringLiteral("minute"));
    EXPECT_TRUE(minute.isSingleShot());
    const auto left = [] { return 60000 - QTime::currentTime().msecsSinceStartOfDay() % 60000; };
    EXPECT_LE(minute.interval(), 60000);
    EXPECT_GT(minute.interval(), 0);
    int passed = 0;
    page().minutePassed = [&] { ++passed; };
    const auto pass = [&] {
        QTimerEvent event(minute.timerId());
        QApplication::sendEvent(&minute, &event);
        return minute.interval();
    };
    const int before = left();
    const int interval = pass();
    const int after = left();
    EXPECT_TRUE(after > before || (after <= interval && interval <= before));
    EXPECT_EQ(passed, 1);
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    pass();
    EXPECT_EQ(passed, 1);
    EXPECT_TRUE(minute.isActive());
}

} // namespace
} // namespace ko::test

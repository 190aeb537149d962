#include "Look.h"
#include "Rows.h"
#include "fakes/DocumentTest.h"
#include "page/Quantities.h"
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
    static QRect place(const QWidget& part) { return placeOf(part); }
    QRect place(const Control& control) { return place(at(control)); }
    std::vector<const Frame*> frames()
    {
        return {&page().frmDynamic, &page().frmStatic, &page().frmStart, &page().frmStop};
    }
};

TEST_F(LayoutTest, TheRowsOfEachFrameAreInOrderWithLabelsFieldsAndButtonsInColumns)
{
    const char* const rows[] = {
        "lblSampleRate cmbSampleRate cmdSampleRateDiffers cmdSampleRateOffers / "
        "lblSamplePeriod cmbSamplePeriod cmdSamplePeriodDiffers cmdSamplePeriodOffers / "
        "lblBlockSize cmbBlockSize cmdBlockSizeDiffers cmdBlockSizeOffers / lblSpan lblSpanValue / "
        "lblNumSamples lblNumSamplesValue / lblNumDynamicBytes lblNumDynamicBytesValue",
        "lblScanRate cmbScanRate cmdScanRateDiffers cmdScanRateOffers / "
        "lblScanPeriod cmbScanPeriod cmdScanPeriodDiffers cmdScanPeriodOffers / lblNumScans lblNumScansValue / "
        "lblNumStaticBytes lblNumStaticBytesValue",
        "optImmediate / optOnTrigger / lblChannel txtChannel cmdChannel / grdParam / lblNoTriggerLine / "
        "optStartTime txtStartTime cmdStartTime / lblStartPast lblStartDay",
        "optAfter txtDuration cmbInterval / optStopTime txtStopTime cmdStopTime / lblStopDay / "
        "lblDuration lblDurationValue / lblStopTime lblStopTimeValue"};
    std::vector<int> fields;
    for (const Frame* frame : frames()) {
        const auto shown = rowsOf(widget.view(), at(*frame));
        EXPECT_EQ(namesOf(shown), rows[fields.size()]);
        const int left = place(*shown[0][0]).left(), right = place(*shown[0].back()).right();
        const int wide = place(*shown.back().back()).right();
        EXPECT_LE(right, wide);
        int field = 0;
        for (const auto& row : shown) {
            const bool isDay = row.back() == &page().lblStartDay || row.back() == &page().lblStopDay;
            EXPECT_TRUE(isDay || std::abs(place(*row[0]).left() - left) <= 1) << row[0]->name();
            EXPECT_NEAR(place(*row.back()).right(), wide, 1) << row[0]->name();
            if (row.size() < 2 || isDay || dynamic_cast<const LimitedLabel*>(row[1]))
                continue;
            field = field ? field : place(*row[1]).left();
            EXPECT_NEAR(place(*row[1]).left(), field, 1) << row[0]->name();
        }
        fields.push_back(field);
        const QLabel& heading = *at(*frame).findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
        EXPECT_TRUE(heading.font().bold() && place(heading).bottom() < place(*shown[0][0]).center().y());
    }
    EXPECT_EQ(fields[0], fields[1]) << "the same in both frames of a column";
    EXPECT_EQ(fields[2], fields[3]);
    for (const Label* day : {&page().lblStopDay, &page().lblStartPast})
        EXPECT_NEAR(place(*day).left(), fields[2], 1) << "below the time";
}

TEST_F(LayoutTest, LooksAsKept)
{
    Look look;
    look.take(widget);
    page().tmlPlan.setPoints(
        {{{"Now", "", ""}, {Timeline::Stretch::Kind::uncertain, "waiting"}},
         {{"Start", "9:30", "in 2 min", true}, {Timeline::Stretch::Kind::recording, "a text that is far too long"}},
         {{"Stop", "9:31", "in 3 min"}, {}}});
    page().lblChooseChannel.setVisible(true);
    page().grdParam.setRowCount(1);
    page().grdParam.setCell(0, 0, {"Name", {}});
    for (const Quantity& quantity : quantities) {
        (page().*quantity.list).setVisible(false);
        (page().*quantity.box).setVisible(true);
        (page().*quantity.box).setMarked(true);
        (page().*quantity.mark).setCaption("2 of 3");
    }
    for (LimitedLabel* label : {&page().lblNumDynamicBytesValue, &page().lblNumStaticBytesValue})
        label->setShare(0.5);
    page().txtDuration.setMarked(true);
    show(QSize(480, 1100));
    look.take(widget);
    for (Control* answer :
         std::initializer_list<Control*>{&page().lblWhatFits, &page().cmdTakeDuration, &page().cmdTakeRate})
        answer->setVisible(true);
    page().setForReading(true);
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
    EXPECT_TRUE(dynamic.left() == fixed.left() && dynamic.width() == fixed.width() && fixed.top() > dynamic.bottom());
    EXPECT_TRUE(start.left() == stop.left() && start.width() == stop.width() && stop.top() > start.bottom());
    EXPECT_TRUE(start.left() > dynamic.right() && std::abs(start.width() - dynamic.width()) < start.width() / 4);
    EXPECT_TRUE(times.top() > std::max(stop.bottom(), fixed.bottom()) && plan.top() > times.bottom());
    EXPECT_NEAR(times.left(), dynamic.left(), 1);
    EXPECT_NEAR(times.right(), start.right(), 1);
    EXPECT_TRUE(plan.left() == 0 && plan.width() == widget.width());
    EXPECT_LE(place(page().lblReadOnly).bottom(), dynamic.top());
    const QMargins around = dynamic_cast<QLabel&>(at(page().lblPlan)).contentsMargins();
    EXPECT_NEAR(around.left(), dynamic.left(), 1) << "the plan begins below the frames";
    EXPECT_GE(plan.height(), 2 * at(page().lblPlan).fontMetrics().lineSpacing());
}

TEST_F(LayoutTest, MoreRoomGoesToTheTriggerParametersOrBelowTheFramesAndTheColumnsStayReadable)
{
    const int table = place(page().grdParam).height();
    EXPECT_GE(table, 8 * widget.fontMetrics().height());
    const int stop = place(page().frmStop).height(), dynamic = place(page().frmDynamic).height(),
              badge = place(page().lblReadOnly).height();
    show(widget.size() + QSize(0, 150));
    EXPECT_NEAR(place(page().grdParam).height(), table + 150, 1);
    EXPECT_EQ(place(page().frmStop).height(), stop);
    EXPECT_EQ(place(page().frmDynamic).height(), dynamic);
    page().grdParam.setVisible(false);
    QApplication::processEvents();
    show(widget.size() + QSize(0, 1));
    const int start = place(page().frmStart).height();
    show(widget.size() + QSize(0, 200));
    EXPECT_EQ(place(page().frmStart).height(), start);
    show(QSize(widget.width(), 2000));
    EXPECT_EQ(place(page().lblReadOnly).height(), badge);

    const int before = place(page().cmbSampleRate).left() - place(page().frmDynamic).left();
    const int most = widget.view().fontMetrics().averageCharWidth() * 180;
    show(QSize(most * 2, 900));
    const QRect left = place(page().frmDynamic), right = place(page().frmStart);
    EXPECT_NEAR(right.right() - left.left() + 1, most, 1);
    EXPECT_NEAR(left.left() + right.right(), widget.width(), 3) << "centred";
    EXPECT_EQ(place(page().cmbSampleRate).left() - left.left(), before) << "the fields take the room";
    EXPECT_NEAR(place(page().tmlPlan).left(), left.left(), 1);
    EXPECT_NEAR(place(page().tmlPlan).width(), most, 1);
    EXPECT_NEAR(left.width(), right.width(), left.width() / 4.0) << "the room is shared";

    for (int width = 480; width < 1200; width += 10) {
        show(QSize(width, 900));
        const bool areBeside = place(page().frmStart).left() > place(page().frmDynamic).right();
        EXPECT_FALSE(areBeside && area.horizontalScrollBar()->isVisible()) << width;
        EXPECT_TRUE(areBeside || width < widget.sizeHint().width()) << width;
    }
    show(QSize(480, 2500));
    for (const Frame* frame : frames())
        EXPECT_EQ(place(*frame).left(), place(page().frmDynamic).left());
    EXPECT_LT(place(page().frmStart).top() - place(page().frmStatic).bottom(), 60) << "no gap between the columns";
    EXPECT_LT(place(page().frmDynamic).top(), place(page().lblReadOnly).bottom() + 60);
    show(QSize(480, 300));
    ASSERT_TRUE(page().moveFocus(&page().txtDuration));
    EXPECT_TRUE(widget.rect().contains(at(page().txtDuration).mapTo(&widget, QPoint()))) << "scrolled to";
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
        EXPECT_LE(place(page().*quantity.mark).width(), at(page().*quantity.mark).sizeHint().width());
    }
    EXPECT_GT(button, metrics.horizontalAdvance("..."));
    for (QProgressBar* bar : widget.findChildren<QProgressBar*>()) {
        EXPECT_LT(bar->height(), metrics.height());
        EXPECT_GT(bar->width(), metrics.averageCharWidth() * 8 - 1);
        EXPECT_GT(bar->height(), metrics.height() / 4);
    }
    EXPECT_GE(place(page().lblNumStaticBytesValue).width(), metrics.horizontalAdvance("1023.99 MB"));
    page().lblChooseChannel.setVisible(true);
    QApplication::processEvents();
    EXPECT_LT((place(page().lblChooseChannel).center() - place(page().grdParam).center()).manhattanLength(), 4);
    EXPECT_GT(dynamic_cast<QLabel&>(at(page().lblChannel)).contentsMargins().left(), metrics.height());
    const std::pair<const Control*, int> names[] = {{&page().cmbInterval, pageText::durationUnit},
                                                    {&page().cmdStartTime, pageText::startTimeButton},
                                                    {&page().cmdStopTime, pageText::stopTimeButton},
                                                    {&page().grdParam, pageText::parameters}};
    for (const auto& [control, name] : names)
        EXPECT_EQ(at(*control).accessibleName(), QStringLiteral("text %1").arg(name)) << control->name();
    EXPECT_EQ(at(page().txtStopTime).accessibleName(), withoutMnemonic(toQt(page().optStopTime.caption())));
    EXPECT_EQ(at(page().cmdChannel).accessibleName(), at(page().txtChannel).accessibleName());
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
    EXPECT_TRUE(first.top() > said.center().y() && first.top() == second.top());
    EXPECT_TRUE(second.left() > first.right() && first.left() < widget.width() / 4);
    EXPECT_EQ(first.width(), at(page().cmdTakeDuration).sizeHint().width());
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

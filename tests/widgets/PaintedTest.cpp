#include "Painted.h"
#include "platform/Timeline.h"
#include "widgets/bindings/EntryMark.h"
#include "widgets/bindings/FormView.h"
#include "widgets/bindings/NoInstrumentPicture.h"
#include "widgets/bindings/WarningLabel.h"

#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace ko::test {
namespace {

struct PaintedForm : Form {
    PaintedForm() : Form("Painted") {}

    Timeline times{*this, "times"};
    ComboBox list{*this, "list"};
};

class PaintedTest : public testing::Test {
protected:
    PaintedForm form;
    FormView view{form, [](int) { return QStringLiteral("%1 at %2"); }};
    QWidget& times = view.timeline(form.times);
    QComboBox& list = view.numberList(form.list);
    const int lineHeight = times.fontMetrics().height();

    static Timeline::Point point(const char* title, const char* time, const char* distance, const char* after,
                                 Timeline::Stretch::Kind kind)
    {
        return {{title, time, distance, false}, {kind, after}};
    }
};

TEST_F(PaintedTest, ATimelineHasItsMarksInOrderFromTheLeftEdgeToTheRightWithTextsAboveAndBelow)
{
    using Kind = Timeline::Stretch::Kind;
    times.resize(900, times.sizeHint().height());
    form.times.setPoints({point("Now", "", "", "waiting", Kind::uncertain),
                          point("Start", "9:30", "in 2 min", "10 s", Kind::recording),
                          point("Stop", "9:31", "in 3 min", "unseen", Kind::plain)});
    const Painted all = paintedBy(times);
    EXPECT_EQ(all.words(),
              (QStringList{"waiting", "10 s", "Now", "Start at 9:30", "in 2 min", "Stop at 9:31", "in 3 min"}));
    ASSERT_EQ(all.ellipses.size(), 3U);
    ASSERT_EQ(all.lines.size(), 2U);
    for (const std::size_t i : {0U, 1U}) {
        EXPECT_NEAR(all.lines[i].box.left(), all.ellipses[i].box.center().x(), 0.1);
        EXPECT_NEAR(all.lines[i].box.right(), all.ellipses[i + 1].box.center().x(), 0.1);
        EXPECT_NEAR(all.lines[i].box.top(), all.ellipses[i].box.center().y(), 0.1);
    }
    EXPECT_GT(all.lines[0].pen.dashPattern().size(), 0);
    EXPECT_EQ(all.lines[1].pen.style(), Qt::SolidLine);
    EXPECT_GT(all.lines[1].pen.widthF(), 2 * all.lines[0].pen.widthF()) << "the recording is thick";
    EXPECT_NE(all.lines[1].pen.color(), all.lines[0].pen.color());
    const double middle = times.width() / 2.0;
    EXPECT_NEAR(all.ellipses[1].box.center().x(), middle, 0.1);
    EXPECT_NEAR(all.ellipses[0].box.left(), times.width() - all.ellipses[2].box.right(), 0.1);
    EXPECT_GE(all.ellipses[0].box.left(), 0.0);
    EXPECT_LT(all.ellipses[0].box.left(), lineHeight);

    EXPECT_NEAR(all.text("waiting").box.center().x(), all.lines[0].box.center().x(), 2.0);
    EXPECT_LE(all.text("waiting").box.bottom(), all.ellipses[0].box.top() + 1.0);
    EXPECT_NEAR(all.text("Now").box.left(), 0.0, 1.0);
    EXPECT_NEAR(all.text("Start at").box.center().x(), middle, 2.0);
    EXPECT_NEAR(all.text("Stop at").box.right(), times.width(), 2.0);
    EXPECT_GE(all.text("Stop at").box.top(), all.ellipses[2].box.bottom() - 1.0);
    EXPECT_NEAR(all.text("in 3 min").box.top() - all.text("Stop at").box.top(), lineHeight, 1.0);
    EXPECT_LE(all.text("in 3 min").box.bottom(), times.height() + 0.5) << "within the height that it asks for";
    EXPECT_TRUE(all.pictures.empty());
}

TEST_F(PaintedTest, ATimelineCutsWhatHasNoRoomMarksWarningsAndIsEmptyWithoutAStretch)
{
    using Kind = Timeline::Stretch::Kind;
    times.resize(200, times.sizeHint().height());
    const auto points = [&](bool warns) {
        Timeline::Points some{point("A long title", "", "", "a text that is far too long", Kind::plain),
                              point("Middle", "", "", "", Kind::plain), point("End", "", "", "", Kind::plain)};
        some[1].mark.isWarning = warns;
        return some;
    };
    form.times.setPoints(points(false));
    const Painted plain = paintedBy(times);
    EXPECT_TRUE(plain.text("a text").text.endsWith(u'\u2026'));
    EXPECT_LE(plain.text("a text").box.right(), plain.ellipses[1].box.center().x());
    EXPECT_LE(plain.text("A l").box.right(), 200.0 / 3 + 1.0);
    form.times.setPoints(points(true));
    const Painted warning = paintedBy(times);
    ASSERT_EQ(warning.pictures.size(), 1U);
    EXPECT_GE(warning.text("Mid").box.left(), warning.pictures[0].box.right() - 1.0);
    EXPECT_GE(warning.pictures[0].box.top(), warning.ellipses[1].box.bottom() - 1.0);
    EXPECT_NEAR(warning.pictures[0].box.left(), 200.0 / 3, 1.0);
    form.times.setPoints({points(false)[0]});
    EXPECT_TRUE(paintedBy(times).words().isEmpty());
    form.times.setCaption("First <b>this</b>");
    EXPECT_EQ(times.accessibleName(), "First <b>this</b>");
    EXPECT_TRUE(times.toolTip().contains("&lt;b&gt;"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&times)->role(), QAccessible::Graphic);
}

TEST_F(PaintedTest, ANumberIsAtTheRightOfItsListAndCutWhereItHasNoRoom)
{
    form.list.setItems({{"1000", 0}, {"123456789012345678901234567890", 0}});
    list.resize(200, list.sizeHint().height());
    form.list.select(0);
    const Painted number = paintedBy(list);
    EXPECT_EQ(number.words(), QStringList{"1000"});
    const double gap = 200.0 - number.text("1000").box.right();
    EXPECT_GT(gap, 0.0);
    EXPECT_LT(gap, 50.0);
    list.resize(120, list.height());
    form.list.select(1);
    const Painted cut = paintedBy(list);
    EXPECT_TRUE(cut.words()[0].endsWith(u'\u2026'));
    EXPECT_GE(cut.texts[0].box.left(), 0.0);
    EXPECT_LE(cut.texts[0].box.right(), 120.0 - gap + 1.0);
    EXPECT_EQ(list.itemData(0, Qt::TextAlignmentRole).toInt(), static_cast<int>(Qt::AlignRight | Qt::AlignVCenter));
}

TEST_F(PaintedTest, AMarkShowsItsSignAndItsWordWhereThereIsRoomAtTheOtherEndOfTheText)
{
    QLineEdit edit;
    EntryMark mark(edit, "not valid");
    for (const Qt::Alignment side : {Qt::AlignLeft, Qt::AlignRight})
        for (const bool wide : {false, true}) {
            edit.setAlignment(side);
            edit.setText("12");
            const int needed = EntryMark::widthFor(edit, "not valid", "12");
            edit.resize(wide ? needed : needed - 1, 24);
            mark.place();
            const Painted painted = paintedBy(mark);
            EXPECT_EQ(painted.words(), wide ? QStringList{"not valid"} : QStringList{});
            ASSERT_EQ(painted.pictures.size(), 1U);
            const bool atLeft = side == Qt::AlignRight;
            const int free = atLeft ? mark.x() : edit.width() - mark.geometry().right() - 1;
            EXPECT_GT(free, 0);
            EXPECT_LT(free, lineHeight);
            const QMargins margins = edit.textMargins();
            EXPECT_EQ(atLeft ? margins.left() : margins.right(), free + mark.width());
            EXPECT_EQ(atLeft ? margins.right() : margins.left(), 0);
            EXPECT_NEAR(painted.pictures[0].box.center().y(), mark.height() / 2.0, 1.0);
            if (wide) {
                EXPECT_GE(painted.text("not").box.left(), painted.pictures[0].box.right());
                EXPECT_LE(painted.text("not").box.right(), mark.width() + 1.0);
            }
        }
    edit.setEnabled(false);
    mark.place();
    EXPECT_EQ(edit.textMargins(), QMargins());
    EXPECT_EQ(mark.accessibleName(), "not valid");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&mark)->role(), QAccessible::Graphic);
    edit.setEnabled(true);
    const int before = edit.textMargins().right() + mark.width();
    QFont large = mark.font();
    large.setPointSizeF(large.pointSizeF() * 2);
    mark.setFont(large);
    EXPECT_NE(edit.textMargins().left() + edit.textMargins().right() + mark.width(), before) << "follows the font";
}

TEST_F(PaintedTest, AWarningHasRoomForItsSignBeforeTheText)
{
    WarningLabel label(nullptr);
    label.setText("Past");
    for (const double size : {10.0, 20.0}) {
        QFont font = label.font();
        font.setPointSizeF(size);
        label.setFont(font);
        label.resize(label.sizeHint());
        const Painted painted = paintedBy(label);
        ASSERT_EQ(painted.pictures.size(), 1U);
        const QRectF sign = painted.pictures[0].box;
        EXPECT_GE(sign.left(), 0.0);
        EXPECT_LT(sign.right(), painted.text("Past").box.left());
        EXPECT_GT(sign.right() + lineHeight, painted.text("Past").box.left());
        EXPECT_NEAR(sign.center().y(), label.height() / 2.0, 1.0);
        EXPECT_NEAR(sign.height(), label.fontMetrics().height(), 1.0);
    }
}

TEST_F(PaintedTest, WithoutInstrumentsAMainframeWithAFreeSlotAndNumberedStepsAreShown)
{
    NoInstrumentPicture picture([](int number) { return QStringLiteral("text%1").arg(number); }, nullptr);
    picture.setProperty("picture", NoInstrumentPicture::resource);
    picture.resize(picture.sizeHint());
    const Painted all = paintedBy(picture);
    ASSERT_EQ(all.texts.size(), 8U);
    EXPECT_GT(all.texts[0].font.pointSizeF(), all.texts[1].font.pointSizeF()) << "the title";
    const double left = all.texts[0].box.left();
    double y = 0.0;
    for (std::size_t i = 0; i < all.texts.size(); ++i) {
        const bool isStep = i >= 2 && i % 2 == 1;
        EXPECT_NEAR(all.texts[i].box.left(), left + (isStep ? 2.0 * lineHeight : 0.0), 1.0) << i;
        if (i < 2 || !isStep)
            EXPECT_GE(all.texts[i].box.top(), y) << "below the one before, " << i;
        else
            EXPECT_EQ(all.texts[i].box.top(), all.texts[i - 1].box.top()) << "beside its number";
        y = all.texts[i].box.bottom();
        EXPECT_TRUE(QRectF(picture.rect()).contains(all.texts[i].box));
        EXPECT_TRUE(picture.accessibleDescription().contains(all.texts[i].text) || i == 0 || !isStep);
    }
    EXPECT_EQ(all.text("1.").text + all.text("2.").text + all.text("3.").text, "1.2.3.");

    ASSERT_EQ(all.areas.size(), 7U) << "the mainframe and its slots";
    const QRectF frame = all.areas[0].box;
    EXPECT_NEAR(frame.left(), left, 2.0);
    EXPECT_LT(frame.bottom(), all.texts[0].box.top());
    int wanted = 0;
    for (std::size_t i = 1; i < all.areas.size(); ++i) {
        const QRectF slot = all.areas[i].box;
        EXPECT_TRUE(frame.contains(slot));
        EXPECT_NEAR(slot.width(), all.areas[1].box.width(), 0.1);
        EXPECT_TRUE(i == 1 || slot.left() > all.areas[i - 1].box.right());
        wanted += all.areas[i].pen.style() == Qt::DashLine ? static_cast<int>(i) : 0;
    }
    EXPECT_NEAR(all.areas[6].box.right() + all.areas[1].box.left(), frame.left() + frame.right(), 2.0) << "centred";
    ASSERT_EQ(wanted, 3) << "one is free";
    ASSERT_EQ(all.lines.size(), 2U);
    for (const Painted::Part& line : all.lines)
        EXPECT_NEAR((line.box.center() - all.areas[3].box.center()).manhattanLength(), 0.0, 0.5);
    EXPECT_TRUE(all.areas[3].box.contains(QRectF(picture.freeSlot())));

    const double y0 = frame.top();
    picture.resize(picture.width() * 2, picture.height() * 2);
    const Painted large = paintedBy(picture);
    EXPECT_NEAR(large.texts[0].box.left() * 2 + picture.fontMetrics().averageCharWidth() * 62, picture.width(), 2.0);
    EXPECT_GT(large.areas[0].box.top(), y0 + lineHeight);
    EXPECT_LT(large.areas[0].box.top(), picture.height() / 4.0);
    picture.setProperty("picture", 0);
    EXPECT_TRUE(paintedBy(picture).texts.empty());
}

} // namespace
} // namespace ko::test

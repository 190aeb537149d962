#include "Painted.h"
#include "Look.h"
#include "platform/Timeline.h"
#include "widgets/bindings/EntryMark.h"
#include "widgets/bindings/FormView.h"
#include "widgets/bindings/NoInstrumentPicture.h"
#include "widgets/bindings/WarningLabel.h"

#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <gtest/gtest.h>

namespace ko::test {
namespace {

class PaintedTest : public testing::Test {
protected:
    using Kind = Timeline::Stretch::Kind;

    Form form{"Painted"};
    Timeline timeline{form, "times"};
    ComboBox numbers{form, "list"};
    FormView view{form, [](int) { return QStringLiteral("%1 at %2"); }};
    QWidget& times = view.timeline(timeline);
    QComboBox& list = view.numberList(numbers);
    const int line = times.fontMetrics().height();

    static bool isPicture(QWidget& widget)
    {
        return QAccessible::queryAccessibleInterface(&widget)->role() == QAccessible::Graphic;
    }
};

TEST_F(PaintedTest, ATimelineHasItsMarksInOrderFromTheLeftEdgeToTheRightWithTextsAboveAndBelow)
{
    times.resize(900, times.sizeHint().height());
    timeline.setPoints({{{"Now", "", ""}, {Kind::uncertain, "waiting"}},
                        {{"Start", "9:30", "in 2 min"}, {Kind::recording, "10 s"}},
                        {{"Stop", "9:31", "in 3 min"}, {Kind::plain, "unseen"}}});
    const Painted all = paintedBy(times);
    EXPECT_EQ(all.words().join('|'), "waiting|10 s|Now|Start at 9:30|in 2 min|Stop at 9:31|in 3 min");
    ASSERT_EQ(all.ellipses.size(), 3U);
    ASSERT_EQ(all.lines.size(), 2U);
    for (const std::size_t i : {0U, 1U}) {
        const QLineF ends(all.ellipses[i].box.center(), all.ellipses[i + 1].box.center());
        EXPECT_NEAR((all.lines[i].box.topLeft() - ends.p1()).manhattanLength(), 0.0, 0.1);
        EXPECT_NEAR((all.lines[i].box.bottomRight() - ends.p2()).manhattanLength(), 0.0, 0.1);
        EXPECT_EQ(all.lines[i].pen.style(), i == 0 ? Qt::DashLine : Qt::SolidLine);
    }
    EXPECT_GT(all.lines[1].pen.widthF(), 2 * all.lines[0].pen.widthF()) << "the recording is thick";
    EXPECT_NE(all.lines[1].pen.color(), all.lines[0].pen.color());
    EXPECT_NEAR(all.ellipses[1].box.center().x(), 450.0, 0.1);
    EXPECT_NEAR(all.ellipses[0].box.left(), 900.0 - all.ellipses[2].box.right(), 0.1);
    EXPECT_GE(all.ellipses[0].box.left(), 0.0);
    EXPECT_LT(all.ellipses[0].box.left(), line / 2.0);

    const QRectF start = all.text("Start").box, stop = all.text("Stop").box, far = all.text("in 3").box;
    EXPECT_NEAR(all.text("waiting").box.center().x(), all.lines[0].box.center().x(), 2.0);
    EXPECT_LE(all.text("waiting").box.bottom(), all.ellipses[0].box.top() + 1.0);
    EXPECT_NEAR(all.text("Now").box.left(), 0.0, 0.5);
    EXPECT_NEAR(start.center().x(), 450.0, 2.0);
    EXPECT_NEAR(all.text("in 2").box.center().x(), start.center().x(), 0.6);
    EXPECT_NEAR(stop.right(), 900.0, 1.0);
    EXPECT_NEAR(far.right(), stop.right(), 0.5);
    EXPECT_GE(stop.top(), all.ellipses[2].box.bottom() - 1.0);
    EXPECT_NEAR(far.top() - stop.top(), line, 1.0);
    EXPECT_LE(far.bottom(), times.height() + 0.5) << "within the height that it asks for";
}

TEST_F(PaintedTest, ATimelineCutsWhatHasNoRoomMarksWarningsAndIsEmptyWithoutAStretch)
{
    times.resize(200, times.sizeHint().height());
    Timeline::Points points{{{"A long title", "", ""}, {Kind::plain, "a text that is far too long"}},
                            {{"Middle", "", ""}, {}},
                            {{"End", "", ""}, {}}};
    timeline.setPoints(points);
    const Painted plain = paintedBy(times);
    EXPECT_TRUE(plain.text("a text").text.endsWith(u'\u2026') && plain.pictures.empty());
    EXPECT_LE(plain.text("a text").box.right(), plain.ellipses[1].box.center().x());
    EXPECT_LE(plain.text("A l").box.right(), 200.0 / 3 + 1.0);
    points[1].mark.isWarning = true;
    timeline.setPoints(points);
    const Painted warning = paintedBy(times);
    ASSERT_EQ(warning.pictures.size(), 1U);
    const QRectF sign = warning.pictures[0].box;
    EXPECT_GE(warning.text("Mid").box.left(), sign.right() - 1.0);
    EXPECT_GE(sign.top(), warning.ellipses[1].box.bottom() - 1.0);
    EXPECT_NEAR(sign.left(), 200.0 / 3, 1.0);
    timeline.setPoints({points[0], points[2]});
    EXPECT_EQ(paintedBy(times).ellipses.size(), 2U);
    timeline.setPoints({points[0]});
    EXPECT_TRUE(paintedBy(times).words().isEmpty());
    timeline.setCaption("First <b>this</b>");
    EXPECT_EQ(times.accessibleName(), "First <b>this</b>");
    EXPECT_TRUE(times.toolTip().contains("&lt;b&gt;") && isPicture(times));
}

TEST_F(PaintedTest, LooksAsKept)
{
    Timeline::Points points{{{"Now", "", ""}, {Kind::uncertain, "waiting"}},
                            {{"Start", "9:30", "in 2 min"}, {Kind::recording, "10 s, a long text"}},
                            {{"Stop", "9:31", "in 3 min"}, {Kind::plain, "unseen"}}};
    numbers.setItems({{"1000", 0}, {"123456789012345678901234567890", 0}});
    QLineEdit edit(&view);
    EntryMark mark(edit, "not valid");
    WarningLabel warning(&view);
    warning.setText("Past");
    NoInstrumentPicture picture([](int number) { return QStringLiteral("text%1").arg(number); }, &view);
    picture.setProperty("picture", NoInstrumentPicture::resource);
    edit.setObjectName("edit");
    warning.setObjectName("warning");
    picture.setObjectName("picture");
    Look look;
    for (const bool isRoomy : {true, false}) {
        points[1].mark.isWarning = !isRoomy;
        timeline.setPoints(points);
        numbers.select(isRoomy ? 0 : 1);
        edit.setAlignment(isRoomy ? Qt::AlignLeft : Qt::AlignRight);
        edit.setText("12");
        view.resize(900, 900);
        times.setGeometry({{0, 0}, QSize(isRoomy ? 900 : 200, times.sizeHint().height())});
        list.setGeometry({{0, 100}, QSize(isRoomy ? 200 : 120, list.sizeHint().height())});
        edit.setGeometry(0, 150, EntryMark::widthFor(edit, "not valid", "12") - (isRoomy ? 0 : 1), 24);
        warning.setGeometry({{0, 200}, warning.sizeHint()});
        picture.setGeometry({{0, 250}, picture.sizeHint() * (isRoomy ? 1.0 : 1.5)});
        mark.place();
        view.show();
        look.take(view);
    }
    look.compare("painted");
}

TEST_F(PaintedTest, ANumberIsAtTheRightOfItsListAndCutWhereItHasNoRoom)
{
    numbers.setItems({{"1000", 0}, {"123456789012345678901234567890", 0}});
    list.resize(200, list.sizeHint().height());
    numbers.select(0);
    const Painted number = paintedBy(list);
    const double gap = 200.0 - number.text("1000").box.right();
    EXPECT_TRUE(gap > 0.0 && gap < 50.0) << gap;
    list.resize(120, list.height());
    numbers.select(1);
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
    for (const bool atLeft : {false, true})
        for (const bool wide : {false, true}) {
            edit.setAlignment(atLeft ? Qt::AlignRight : Qt::AlignLeft);
            edit.setText("12");
            edit.resize(EntryMark::widthFor(edit, "not valid", "12") - (wide ? 0 : 1), 24);
            mark.place();
            const Painted painted = paintedBy(mark);
            EXPECT_EQ(painted.words(), wide ? QStringList{"not valid"} : QStringList{});
            const int free = atLeft ? mark.x() : edit.width() - mark.geometry().right() - 1;
            EXPECT_TRUE(free > 0 && free < line) << free;
            const int taken = free + mark.width();
            EXPECT_EQ(edit.textMargins(), QMargins(atLeft ? taken : 0, 0, atLeft ? 0 : taken, 0));
            EXPECT_NEAR(painted.pictures.at(0).box.center().y(), mark.height() / 2.0, 1.0);
            EXPECT_TRUE(!wide || painted.text("not").box.left() >= painted.pictures[0].box.right());
            EXPECT_LE(painted.text("not").box.right(), mark.width() + 1.0);
        }
    const int before = edit.textMargins().left();
    QFont large = mark.font();
    large.setPointSizeF(large.pointSizeF() * 2);
    mark.setFont(large);
    EXPECT_NE(edit.textMargins().left(), before) << "follows the font";
    edit.setEnabled(false);
    mark.place();
    EXPECT_EQ(edit.textMargins(), QMargins());
    EXPECT_TRUE(isPicture(mark) && mark.accessibleName() == "not valid");
    EXPECT_TRUE(mark.testAttribute(Qt::WA_TransparentForMouseEvents)) << "a press is for the text";
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
        const QRectF sign = painted.pictures.at(0).box;
        const double text = painted.text("Past").box.left();
        EXPECT_TRUE(sign.left() >= 0.0 && sign.right() < text && sign.right() + line > text);
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
    EXPECT_EQ(all.text("1.").text + all.text("2.").text + all.text("3.").text, "1.2.3.");
    ASSERT_EQ(all.texts.size(), 8U);
    EXPECT_GT(all.texts[0].font.pointSizeF(), all.texts[1].font.pointSizeF()) << "the title";
    const QRectF frame = all.areas.at(0).box;
    double above = frame.bottom();
    for (std::size_t i = 0; i < all.texts.size(); ++i) {
        const bool isStep = i > 2 && i % 2 == 1;
        const QRectF text = all.texts[i].box;
        EXPECT_NEAR(text.left(), all.texts[0].box.left() + (isStep ? 2.0 * line : 0.0), 1.0) << i;
        EXPECT_TRUE(isStep ? text.top() == all.texts[i - 1].box.top() : text.top() >= above) << i;
        EXPECT_TRUE(isStep || text.top() < above + 2 * line) << i;
        EXPECT_TRUE(QRectF(picture.rect()).contains(text)) << i;
        above = text.bottom();
    }
    EXPECT_LT(picture.height() - above, 3 * line) << "no more than it needs";

    ASSERT_EQ(all.areas.size(), 7U) << "the mainframe and its slots";
    ASSERT_EQ(all.lines.size(), 2U) << "a plus";
    for (std::size_t i = 1; i <= 6; ++i) {
        const QRectF slot = all.areas[i].box;
        EXPECT_TRUE(frame.contains(slot) && slot.width() > slot.height() / 10);
        EXPECT_TRUE(i == 1 || slot.left() > all.areas[i - 1].box.right());
        EXPECT_EQ(all.areas[i].pen.style() == Qt::DashLine, i == 3) << "one is free";
    }
    EXPECT_NEAR(all.areas[6].box.right() + all.areas[1].box.left(), frame.left() + frame.right(), 2.0) << "centred";
    const QRectF wanted = all.areas[3].box;
    EXPECT_TRUE(wanted.contains(QRectF(picture.freeSlot())) && picture.freeSlot().width() > wanted.width() / 2);
    EXPECT_NEAR((all.lines[0].box.center() - wanted.center()).manhattanLength(), 0.0, 0.5);
    EXPECT_NEAR((all.lines[1].box.center() - wanted.center()).manhattanLength(), 0.0, 0.5);
    EXPECT_NEAR(all.lines[0].box.width(), all.lines[1].box.height(), 0.5);

    picture.resize(picture.size() * 2);
    const Painted large = paintedBy(picture);
    EXPECT_NEAR(large.areas[0].box.left() - frame.left(), picture.width() / 4.0, 1.0) << "in the middle";
    EXPECT_NEAR(large.areas[0].box.top(), picture.height() / 6.0, 2.0) << "a third of the room above";
    picture.setProperty("picture", 0);
    EXPECT_TRUE(paintedBy(picture).texts.empty());
}

} // namespace
} // namespace ko::test

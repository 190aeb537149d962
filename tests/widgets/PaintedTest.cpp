#include "look/Painted.h"
#include "look/Look.h"
#include "platform/CaptionControls.h"
#include "platform/PictureBox.h"
#include "platform/Timeline.h"
#include "widgets/bindings/EntryMark.h"
#include "widgets/bindings/FormView.h"
#include "widgets/bindings/NoInstrumentPicture.h"
#include "widgets/bindings/WarningLabel.h"

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <gtest/gtest.h>

namespace ko::test {
namespace {

/// The widgets that paint themselves.
class PaintedTest : public testing::Test {
protected:
    using Kind = Timeline::Stretch::Kind;

    Form form{"Painted"};
    Timeline timeline{form, "times"};
    ComboBox numbers{form, "list"};
    Image image{form, "picture"};
    PictureBox clock{form, "clock"};
    FormView view{form, [](int) { return QStringLiteral("%1 at %2"); }};
    QWidget& times = view.timeline(timeline);
    QComboBox& list = view.numberList(numbers);
    QLineEdit edit{&view};
    EntryMark mark{edit, "not valid"};
    WarningLabel warning{&view};
    NoInstrumentPicture picture{[](int number) { return QStringLiteral("text %1 ").arg(number).repeated(9); }, &view};
    Timeline::Points points{{{"Now", "", ""}, {Kind::uncertain, "waiting"}},
                            {{"Start", "9:30", "in 2 min"}, {Kind::recording, "10 s, a long text"}},
                            {{"Stop", "9:31", "in 3 min"}, {Kind::plain, "ends"}},
                            {{"End", "", ""}, {Kind::plain, "unseen"}}};

    void SetUp() override
    {
        numbers.setItems({{"1000", 0}, {"123456789012345678901234567890", 0}});
        edit.setObjectName("edit");
        edit.setText("12");
        warning.setObjectName("warning");
        warning.setText("Past");
        view.image(image, picture);
        image.setPicture(NoInstrumentPicture::resource);
        view.resize(900, 900);
        view.show();
    }
};

TEST_F(PaintedTest, LooksAsKeptWithRoomAndWithoutAndInALargerFont)
{
    Look look;
    for (const int state : {0, 1, 2}) {
        const bool isRoomy = state == 0;
        points[1].mark.isWarning = !isRoomy;
        timeline.setPoints(points);
        numbers.select(isRoomy ? 0 : 1);
        edit.setAlignment(isRoomy ? Qt::AlignLeft : Qt::AlignRight);
        edit.setGeometry(0, 150, EntryMark::widthFor(edit, "not valid", "12") - (isRoomy ? 0 : 1), 24);
        mark.place();
        QFont font = view.font();
        font.setPointSizeF(state == 2 ? 15.0 : 9.0);
        view.setFont(font);
        times.setGeometry({{0, 0}, QSize(isRoomy ? 900 : 300, times.sizeHint().height())});
        list.setGeometry({{0, 100}, QSize(isRoomy ? 200 : 120, list.sizeHint().height())});
        warning.setGeometry({{0, 200}, warning.sizeHint()});
        picture.setGeometry({{0, 250}, picture.sizeHint() * (isRoomy ? 1.0 : 1.5)});
        look.take(view);
    }
    look.compare("painted");
    const QRect plus = picture.freeSlot();
    const Painted all = paintedBy(picture);
    EXPECT_TRUE(all.areas.at(3).box.contains(plus) && plus.contains(all.lines.at(0).box.center().toPoint()));
}

TEST_F(PaintedTest, ATimelineIsEmptyWithoutAStretchAndSaysWhatItShows)
{
    timeline.setPoints({points[0], points[2]});
    EXPECT_EQ(paintedBy(times).ellipses.size(), 2U);
    timeline.setPoints({points[0]});
    EXPECT_TRUE(paintedBy(times).words().isEmpty());
    timeline.setCaption("First <b>this</b>");
    EXPECT_EQ(times.accessibleName(), "First <b>this</b>");
    EXPECT_TRUE(times.toolTip().contains("&lt;b&gt;"));
    image.setPicture(0);
    EXPECT_TRUE(paintedBy(picture).words().isEmpty());
    EXPECT_EQ(list.itemData(0, Qt::TextAlignmentRole).toInt(), static_cast<int>(Qt::AlignRight | Qt::AlignVCenter));
    for (QWidget* drawn : std::initializer_list<QWidget*>{&times, &picture, &mark})
        EXPECT_EQ(QAccessible::queryAccessibleInterface(drawn)->role(), QAccessible::Graphic);
}

TEST_F(PaintedTest, WhatChangesIsPaintedAnew)
{
    int painted = 0;
    view.picture(clock).setGeometry(0, 800, 50, 50);
    picture.move(0, 200);
    clock.paint = [&](double, double) { return ++painted, Drawing(); };
    struct Counter : QObject {
        int paints = 0;
        bool eventFilter(QObject*, QEvent* event) override { return (paints += event->type() == QEvent::Paint) < 0; }
    } counter;
    times.installEventFilter(&counter);
    picture.installEventFilter(&counter);
    const std::function<void()> changes[] = {[&] { timeline.setPoints(points); }, [&] { image.setPicture(0); },
                                             [&] { clock.redraw(); }};
    for (const auto& change : changes) {
        QApplication::processEvents();
        const int before = counter.paints + painted;
        change();
        QApplication::processEvents();
        EXPECT_EQ(counter.paints + painted, before + 1) << &change - changes;
    }
}

TEST_F(PaintedTest, AMarkTakesItsRoomFromTheTextWhileTheBoxIsEnabled)
{
    for (const bool atLeft : {false, true}) {
        edit.setAlignment(atLeft ? Qt::AlignRight : Qt::AlignLeft);
        mark.place();
        const int taken = mark.width() + (atLeft ? mark.x() : edit.width() - mark.geometry().right() - 1);
        EXPECT_EQ(edit.textMargins(), QMargins(atLeft ? taken : 0, 0, atLeft ? 0 : taken, 0));
    }
    edit.setEnabled(false);
    mark.place();
    EXPECT_EQ(edit.textMargins(), QMargins());
    EXPECT_TRUE(mark.testAttribute(Qt::WA_TransparentForMouseEvents)) << "a press is for the text";
}

} // namespace
} // namespace ko::test

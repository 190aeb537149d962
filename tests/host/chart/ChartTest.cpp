#include "Sines.h"
#include "host/chart/ChartPanel.h"
#include "host/chart/ChartRow.h"
#include "host/window/FrameParts.h"
#include "look/Look.h"
#include "look/Painted.h"

#include <QAccessible>
#include <QLineEdit>
#include <QMainWindow>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>
#include <gtest/gtest.h>

namespace ko::test {
namespace {

class ChartTest : public testing::Test {
protected:
    QMainWindow window;
    FrameParts parts{window, ""};
    ChartPanel* panel = new ChartPanel(parts.texts(), parts.platform.locale, &window);
    StripChart& chart = panel->chart();

    ChartTest()
    {
        window.setCentralWidget(panel);
        window.resize(900, 500);
        window.show();
    }
    Painted painted()
    {
        QApplication::processEvents();
        return paintedBy(*chart.viewport());
    }
    /// The place of a time in a chart of ten seconds.
    [[nodiscard]] double place(double seconds) const
    {
        const QRectF plots = ChartLayout(*chart.viewport(), 3).plots();
        return plots.left() + plots.width() * seconds / 10.0;
    }
    /// How many are drawn in this colour at this time.
    [[nodiscard]] std::ptrdiff_t countAt(const std::vector<Painted::Part>& drawn, double seconds, QColor color) const
    {
        return std::count_if(drawn.begin(), drawn.end(), [&](const Painted::Part& part) {
            return part.pen.color() == color && std::abs(part.box.center().x() - place(seconds)) < 4.0;
        });
    }
};

TEST_F(ChartTest, AFrameCostsTheSameAtAnyRateAndIsPaintedOnlyWhileItIsSeen)
{
    std::vector<std::size_t> costs;
    for (const double period : {1e-3, 1e-6}) {
        const auto source = std::make_shared<Sines>(4, period, static_cast<std::int64_t>(60.0 / period));
        chart.show(source, true);
        QApplication::processEvents();
        const QScrollBar& bar = *chart.horizontalScrollBar();
        EXPECT_TRUE(bar.maximum() > 0 && bar.value() == bar.maximum()) << "the last seconds while it runs";
        source->asked = 0;
        chart.viewport()->repaint();
        costs.push_back(source->asked);
    }
    EXPECT_EQ(costs[0], costs[1]);
    EXPECT_GT(costs[0], 1000U);
    EXPECT_LT(costs[0], 4U * 900U * 3U);

    const auto source = std::make_shared<Sines>(1, 1e-3, 1000);
    const auto isFollowed = [&] {
        std::size_t before = source->asked;
        int paintings = 0;
        return QTest::qWaitFor([&] {
            paintings += source->asked != std::exchange(before, source->asked);
            return paintings > 2;
        });
    };
    const auto isLeftAlone = [&] {
        const int before = source->frames;
        QTest::qWait(200);
        return source->frames == before;
    };
    chart.show(source, true);
    EXPECT_TRUE(isFollowed());
    panel->hide();
    EXPECT_TRUE(isLeftAlone());
    panel->show();
    EXPECT_TRUE(isFollowed());
    chart.setEnded();
    EXPECT_TRUE(isLeftAlone());
}

TEST_F(ChartTest, EachChannelIsDrawnWithItsGapsMarksAndWords)
{
    const auto source = std::make_shared<Sines>(3, 1e-3, 10000);
    source->isLost = [](double sample) { return sample >= 4000 && sample < 6000; };
    chart.show(source, false);
    const Painted plain = painted();
    const QColor curve = chart.palette().color(QPalette::Highlight), text = chart.palette().color(QPalette::Text);
    EXPECT_GE(countAt(plain.lines, 2.5, curve), 3 * 4) << "of each row";
    EXPECT_EQ(countAt(plain.lines, 5.0, curve), 0) << "lost samples";
    const auto isHatching = [&](const Painted::Part& area) {
        return std::abs(area.box.left() - place(4.0)) < 3.0 && std::abs(area.box.right() - place(6.0)) < 3.0;
    };
    EXPECT_EQ(std::count_if(plain.areas.begin(), plain.areas.end(), isHatching), 3);
    source->now.trigger = 2.5;
    source->now.markers = {{7.5, "door"}};
    chart.showAll();
    const Painted marked = painted();
    for (const double seconds : {2.5, 7.5})
        EXPECT_EQ(countAt(marked.lines, seconds, text), countAt(plain.lines, seconds, text) + 1);

    auto* const spoken = QAccessible::queryAccessibleInterface(&chart);
    EXPECT_EQ(spoken->role(), QAccessible::Chart);
    EXPECT_EQ(spoken->text(QAccessible::Name), "Signals");
    EXPECT_EQ(spoken->text(QAccessible::Value),
              "Signal 0: 0.25 V; Signal 1: 0.25 V, 7 clipped; Signal 2: 0.25 V, 14 clipped");
    chart.choose([](const ChartChannel& it) { return it.channel.channel == 1; });
    EXPECT_EQ(chart.latestValues(), "Signal 1: 0.25 V, 7 clipped");
    chart.choose([](const ChartChannel&) { return false; });
    EXPECT_EQ(chart.latestValues().count(';'), 2);
    chart.show(nullptr, false);
    EXPECT_EQ(painted().words(), QStringList{parts.text(chartText::nothing)});
    EXPECT_EQ(spoken->text(QAccessible::Value), parts.text(chartText::nothing));
}

TEST_F(ChartTest, LooksAsKeptWithMarksAGapAndRoomAndWithout)
{
    const auto source = std::make_shared<Sines>(3, 1e-3, 10000); // whose numbers are not shortened
    source->isLost = [](double sample) { return sample >= 4000 && sample < 6000; };
    source->described[2].channel.range = {};
    source->now.channels[2].latest = NAN;
    source->now.trigger = 2.5;
    source->now.markers = {{5.0, ""}, {5.01, "no room"}, {7.5, "door"}, {-1.0, "before"}};
    panel->setObjectName("panel");
    Look look;
    look.take(*panel);
    chart.show(source, false);
    look.take(*panel);
    panel->setMarking(true);
    window.resize(300, 250);
    look.take(*panel);
    window.resize(1500, 900);
    for (int i = 0; i < 8; ++i)
        chart.zoom(true);
    look.take(*panel);
    look.compare("chart");
}

TEST_F(ChartTest, MMarksWithTheTextAndTypesWhereTextIsTyped)
{
    std::vector<std::string> marks;
    panel->addMarker = [&](const std::string& text) {
        marks.push_back(text);
        return true;
    };
    auto& text = *panel->findChild<QLineEdit*>("markerText");
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    text.setFocus();
    QTest::mouseClick(chart.viewport(), Qt::LeftButton);
    EXPECT_TRUE(chart.hasFocus());
    QTest::keyClick(&chart, Qt::Key_M);
    EXPECT_TRUE(marks.empty()) << "nothing is being recorded";
    panel->setMarking(true);
    QTest::keyClick(&chart, Qt::Key_M);
    text.setFocus();
    QTest::keyClicks(&text, "Mm");
    QTest::keyClick(&text, Qt::Key_Return);
    EXPECT_EQ(marks, (std::vector<std::string>{"", "Mm"}));
    EXPECT_EQ(text.text(), "");
    EXPECT_EQ(chart.accessibleDescription(), parts.text(chartText::marked));
    chart.show(std::make_shared<Sines>(1, 1e-3, 60000), false);
    chart.setFocus();
    EXPECT_EQ(chart.horizontalScrollBar()->maximum(), 0);
    QTest::keyClick(&chart, Qt::Key_Plus);
    const int middle = chart.horizontalScrollBar()->value();
    EXPECT_GT(middle, 0);
    QTest::keyClick(&chart, Qt::Key_Left);
    EXPECT_LT(chart.horizontalScrollBar()->value(), middle);
    for (int i = 0; i < 12; ++i)
        QTest::keyClick(&chart, Qt::Key_Plus);
    EXPECT_GT(chart.horizontalScrollBar()->singleStep(), 0);
    QTest::keyClick(&chart, Qt::Key_End);
    EXPECT_EQ(chart.horizontalScrollBar()->value(), chart.horizontalScrollBar()->maximum());
    QTest::keyClick(&chart, Qt::Key_Home);
    EXPECT_EQ(chart.horizontalScrollBar()->maximum(), 0);
}

TEST_F(ChartTest, KeysAndTheWheelZoomAndEachRowSaysWhatItShows)
{
    const auto source = std::make_shared<Sines>(3, 1e-3, 60000);
    source->described[2].channel.range = {};
    source->described[2].channel.unit = "";
    source->now.channels[2].latest = NAN;
    chart.show(source, false);
    QApplication::processEvents();
    // How often the view is shorter than the whole.
    const auto zoomed = [&] {
        const QScrollBar& bar = *chart.horizontalScrollBar();
        return bar.maximum() > 0 ? bar.maximum() / bar.pageStep() + 1 : 0;
    };
    const auto turn = [&](int angle, Qt::KeyboardModifiers held) {
        const QPointF at(300, 100);
        QWheelEvent event(at, chart.viewport()->mapToGlobal(at), {}, {0, angle}, Qt::NoButton, held, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(chart.viewport(), &event);
        QApplication::processEvents();
        return zoomed();
    };
    const int whole = zoomed();
    EXPECT_EQ(turn(120, Qt::NoModifier), whole);
    const int once = turn(120, Qt::ControlModifier);
    EXPECT_GT(once, whole);
    EXPECT_EQ(turn(0, Qt::ControlModifier), once);
    EXPECT_GT(turn(120, Qt::ControlModifier), once);
    EXPECT_EQ(turn(-120, Qt::ControlModifier), once);
    for (const Qt::Key key : {Qt::Key_Plus, Qt::Key_Equal}) {
        const int before = zoomed();
        QTest::keyClick(&chart, key);
        EXPECT_GT(zoomed(), before) << key;
    }
    const int before = zoomed();
    QTest::keyClick(&chart, Qt::Key_Minus);
    EXPECT_LT(zoomed(), before);
    QTest::keyClick(&chart, Qt::Key_Home);

    const ChartLayout layout(*chart.viewport(), 3);
    const auto tip = [&](double row) {
        const QPoint place(200, static_cast<int>(layout.rows().top() + row * layout.rowHeight));
        QHelpEvent event(QEvent::ToolTip, place, chart.viewport()->mapToGlobal(place));
        QApplication::sendEvent(chart.viewport(), &event);
        return QToolTip::text().toStdString();
    };
    EXPECT_EQ(tip(0.5), "Signal 0\nDigitizer\n1:0\n0.25 V\nRange: -0.5 to 2 V");
    EXPECT_EQ(tip(1.5), "Signal 1\nDigitizer\n1:1\n0.25 V\nRange: -0.5 to 2 V\n7 clipped");
    EXPECT_EQ(tip(2.5), "Signal 2\nDigitizer\n1:2\n\u2013\n14 clipped");
    window.resize(900, 200);
    EXPECT_GT(chart.verticalScrollBar()->maximum(), 0);
}

} // namespace
} // namespace ko::test

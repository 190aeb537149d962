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
#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace ko::test {
namespace {

/// Sines of any rate, without a memory of their own.
class Sines final : public ChartSource {
public:
    Sines(std::size_t count, double period, std::int64_t samples)
    {
        for (std::size_t i = 0; i < count; ++i) {
            const std::string number = std::to_string(i);
            const ArmedChannel channel{0, static_cast<int>(i), "1:" + number, "Signal " + number, "V", {-0.5, 2}};
            described.push_back({0, "Digitizer", channel, period});
            now.channels.push_back({0.0, samples, static_cast<std::int64_t>(i) * 7, 0.25F});
        }
    }

    [[nodiscard]] const std::vector<ChartChannel>& channels() const override { return described; }
    [[nodiscard]] ChartState state() const override
    {
        ++frames;
        return now;
    }
    [[nodiscard]] std::vector<Extent> extents(std::size_t channel, const SampleSpan& span) const override
    {
        asked += span.count;
        std::vector<Extent> parts(span.count);
        for (std::size_t i = 0; i < span.count; ++i) {
            const double sample = span.first + static_cast<double>(i) * span.width;
            if (sample < 0.0 || sample >= static_cast<double>(now.channels[channel].samples) || isLost(sample))
                continue;
            const double time = sample * described[channel].period;
            const auto value = static_cast<float>(std::max(-0.5, std::sin(time * static_cast<double>(channel + 1))));
            parts[i] = {value, value + (span.width > 1.0 ? 0.1F : 0.0F)};
        }
        return parts;
    }

    std::vector<ChartChannel> described;
    ChartState now;
    std::function<bool(double sample)> isLost = [](double) { return false; };
    mutable std::size_t asked = 0;
    mutable int frames = 0;
};

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

TEST(ChartTimeTest, WhateverIsZoomedAndScrolledTheViewIsWithinTheTimeAndItsMiddleStays)
{
    std::mt19937 random(3);
    for (const double end : {0.0, 1e-4, 0.7, 3.0, 12.345, 86400.0, 1e15}) {
        const double shortest = std::max(ChartTime::shortest, end * 1e-12);
        ChartTime time;
        for (int i = 0; i < 2000; ++i) {
            const double before = time.span(end);
            const auto from = [&] { return time.view(end, 1000000).from; };
            const double middle = from() + before / 2.0;
            switch (random() % 6) {
            case 0: time.follow(10.0); break;
            case 1: time.showAll(); break;
            case 2: time.followEnd(); break;
            case 3: time.scroll(static_cast<int>(random() % 1001), end); break;
            case 4: {
                time.zoom(true, end);
                EXPECT_TRUE(time.span(end) < before || before <= 2 * shortest) << before;
                const bool isClamped = from() <= 0.0 || from() + time.span(end) >= end * (1 - 1e-6);
                EXPECT_TRUE(isClamped || std::abs(from() + time.span(end) / 2.0 - middle) < 2e-6 * before + 1e-15 * end)
                    << before;
                break;
            }
            default: time.zoom(false, end); EXPECT_TRUE(time.span(end) > before || time.span(end) >= end);
            }
            const double last = from() + time.span(end);
            ASSERT_TRUE(from() >= 0.0 && last <= std::max(end, time.span(end)) * (1 + 1e-9)) << from() << " " << last;
            const auto place = time.place(end);
            EXPECT_EQ(place.has_value(), time.span(end) < end);
            EXPECT_TRUE(!place || (*place >= 0 && *place <= ChartTime::scrollSteps));
        }
    }
    for (const double low : {0.0, 9.1e15, 1e18, 1e300})
        EXPECT_LE(ticks(low, low + 100.0, 1.0).size(), 1000U);
    ChartScale scale{0.0, 0.0};
    for (int i = 0; i < 2000; ++i) {
        const double size = std::pow(10.0, static_cast<double>(random() % 12) - 6.0);
        const double low = static_cast<double>(random() % 2000) * size - 1000.0 * size;
        const double high = low + static_cast<double>(random() % 100) * size;
        scale = scale.fitted(low, high);
        ASSERT_TRUE(scale.low <= low && scale.high >= high && scale.high > scale.low) << low << " " << high;
        const ChartScale kept = scale.fitted(low, high);
        ASSERT_TRUE(high == low || (kept.low == scale.low && kept.high == scale.high)) << low << " " << high;
    }
}

TEST(ChartRowTest, ACurveCoversTheViewHoweverItIsZoomed)
{
    const Sines source(1, 1e-3, 60000);
    constexpr int columns = 300;
    for (const double perColumn : {1e-6, 1e-4, 0.9e-3, 1e-3, 0.1})
        for (const double from : {0.0, 0.0005, 3.3337}) {
            const ChartCurve curve = curveOf(source, 0, {0.5, 60000, 0, 0.0F}, {from, perColumn}, columns);
            EXPECT_LE(curve.timeOf(0), from + 1e-9) << perColumn;
            EXPECT_GE(curve.timeOf(curve.extents.size()) + 1e-9, from + columns * perColumn) << perColumn;
            EXPECT_LE(curve.extents.size(), columns + 4U) << perColumn;
            EXPECT_GE(curve.step + 1e-12, 1e-3) << "no finer than the samples";
            EXPECT_DOUBLE_EQ(curve.end, 60.5);
        }
}

TEST(ChartRowTest, SamplesAreJoinedLostOnesHatchedAndLimitsMarked)
{
    const ChartPlot plot{.rect = {100, 10, 200, 100}, .view = {1, 0.5}, .scale = {0, 10}, .column = 10};
    ChartCurve curve;
    curve.extents = {{0, 10}, {2, 4}, {}, {}, {5, 5}, {12, 20}, {}};
    curve.first = 1;
    curve.start = 1;
    curve.end = 7.25;
    const auto text = [](const auto& shapes, const auto& numbers) {
        std::string all;
        for (const auto& shape : shapes) {
            for (const double number : numbers(shape))
                all += std::to_string(std::lround(number)) + " ";
            all += "| ";
        }
        return all;
    };
    const auto ends = [](const QLineF& it) { return std::array{it.x1(), it.y1(), it.x2(), it.y2()}; };
    EXPECT_EQ(text(plot.lines(curve), ends), "100 110 100 10 | 120 90 120 70 | 100 90 120 90 | 180 60 180 60 | "
                                             "200 10 200 10 | 180 60 200 10 | ");
    EXPECT_EQ(text(plot.gaps(curve),
                   [](const QRectF& it) {
                       return std::array{it.left(), it.top(), it.right(), it.bottom()};
                   }),
              "140 10 180 110 | 220 10 225 110 | ");
    ArmedChannel channel;
    EXPECT_TRUE(plot.clippedMarks(curve, channel).isEmpty()) << "without a range";
    channel.range = {2, 10};
    EXPECT_EQ(text(plot.clippedMarks(curve, channel), ends),
              "100 4 100 8 | 100 112 100 116 | 120 112 120 116 | 200 4 200 8 | ");
    const Extent all = finiteExtent(curve);
    EXPECT_EQ(std::pair(all.low, all.high), std::pair(0.0F, 20.0F));
}

TEST(ChartTextsTest, TimesHaveTheDecimalsOfTheirStep)
{
    Locale locale;
    locale.decimalSeparator = ",";
    const ChartTexts texts{[](int) { return QStringLiteral("%1 s"); }, locale};
    const struct {
        double seconds, step;
        const char* text;
    } cases[]{{0.0, 2.0, "0 s"},       {6.17, 0.002, "6,170 s"},      {0.1 + 0.2, 0.1, "0,3 s"},
              {60.0, 20.0, "0:01:00"}, {3599.9999, 0.5, "1:00:00,0"}, {86405.25, 0.05, "24:00:05,25"}};
    for (const auto& c : cases)
        EXPECT_EQ(texts.time(c.seconds, c.step).toStdString(), c.text);
}

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
        const int before = source->frames;
        return QTest::qWaitFor([&] { return source->frames > before + 1; });
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
    chart.show(std::make_shared<Sines>(1, 1e-3, 60000), false);
    chart.setFocus();
    EXPECT_EQ(chart.horizontalScrollBar()->maximum(), 0);
    QTest::keyClick(&chart, Qt::Key_Plus);
    const int middle = chart.horizontalScrollBar()->value();
    EXPECT_GT(middle, 0);
    QTest::keyClick(&chart, Qt::Key_Left);
    EXPECT_LT(chart.horizontalScrollBar()->value(), middle);
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

#include "host/docks/FailureStrip.h"
#include "FrameTest.h"

#include <QAccessible>

namespace ko::test {
namespace {

class FailureStripTest : public FrameTest {
protected:
    QWidget& strip = *window.findChild<QWidget*>("failures");
    QListWidget& lines = *strip.findChild<QListWidget*>();
    QPushButton& button = *strip.findChild<QPushButton*>("tryAgain");

    void open(int scanners)
    {
        std::string drivers = R"({"name": "Digitizer", "timebase": {"samplePeriod": {"value": 0.5}}})";
        for (int i = 1; i <= scanners; ++i)
            drivers += R"(, {"name": "Scanner )" + std::to_string(i) + R"(", "samplingMode": 2, "timebase": {}})";
        FrameTest::open(R"({"drivers": [)" + drivers + "]}");
        window.docks().health().now = [] { return DateTime{46347.5}; };
        show();
    }
    void typePeriod(const char* text)
    {
        QWidget& box = at(page().txtSamplePeriod);
        if (!box.hasFocus())
            QTest::mouseClick(&box, Qt::LeftButton);
        QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&box, text);
        QCoreApplication::processEvents();
    }
    [[nodiscard]] QString line(int row) const { return lines.item(row) ? lines.item(row)->text() : QString(); }
    [[nodiscard]] bool isGone() const
    {
        return QTest::qWaitFor([this] { return strip.isHidden(); }, 10000);
    }
};

TEST_F(FailureStripTest, AnInstrumentIsNamedWhileItFailsAndTheStripGoesWhenItAnswers)
{
    open(1);
    EXPECT_TRUE(strip.isHidden());
    driver(0).calls().fail({"SamplePeriod set", 77, "stuck"});
    typePeriod("2");
    EXPECT_TRUE(strip.isVisible());
    EXPECT_EQ(line(0), "12:00:00  Digitizer: Sample period could not be set: stuck (77)");
    EXPECT_TRUE(window.findChild<QToolButton*>("reportCount")->isVisible()) << "it is reported as ever";
    EXPECT_TRUE(at(page().txtSamplePeriod).hasFocus());
    const int height = strip.height();
    driver(0).calls().healAll();
    typePeriod("3");
    EXPECT_EQ(lines.count(), 0);
    EXPECT_TRUE(strip.isVisible()) << "nothing moves while the user types";
    EXPECT_EQ(strip.height(), height);
    const QPixmap warning = strip.style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(16, 16);
    for (const QLabel* label : strip.findChildren<QLabel*>())
        EXPECT_NE(label->pixmap().toImage(), warning.toImage());
    EXPECT_TRUE(isGone());
    EXPECT_TRUE(at(page().txtSamplePeriod).hasFocus());

    driver(0).calls().fail({"SamplePeriod set", 77, "stuck"});
    typePeriod("4");
    EXPECT_TRUE(strip.isVisible());
    open(0);
    EXPECT_TRUE(strip.isHidden()) << "the instrument is gone";
    EXPECT_EQ(strip.findChild<QLabel*>("failingCount")->text(), "Failing instruments: 1")
        << "and does not answer again";
}

TEST_F(FailureStripTest, TryAgainRebuildsThePageAndHandsTheFocusBack)
{
    open(1);
    page().moveFocus(&page().optAfter);
    driver(1).calls().fail({"ScanPeriod get"});
    button.click();
    QCoreApplication::processEvents();
    ASSERT_TRUE(strip.isVisible());
    EXPECT_TRUE(line(0).contains("Scanner 1: Scan period could not be read: simulated"));
    for (const bool isLocked : {true, false}) {
        window.docks().locked = [=] { return isLocked; };
        const auto before = driver(1).calls().callCount();
        button.click();
        EXPECT_EQ(driver(1).calls().callCount() == before, isLocked);
    }
    button.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&button, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(lines.count(), 1) << "it fails again";
    EXPECT_TRUE(button.hasFocus());
    driver(1).calls().healAll();
    QTest::keyClick(&button, Qt::Key_Space);
    QCoreApplication::processEvents();
    EXPECT_EQ(lines.count(), 0);
    EXPECT_EQ(strip.accessibleName(), "All instruments respond again.");
    EXPECT_TRUE(isGone());
    EXPECT_TRUE(window.page().isAncestorOf(QApplication::focusWidget()));
    driver(0).calls().fail({"StartMode set"});
    change(window);
    driver(0).calls().healAll();
    button.click();
    EXPECT_EQ(window.history().steps().steps().size(), 1U) << "what the rebuilt page writes is no edit";
}

TEST_F(FailureStripTest, ManyInstrumentsScrollInAStripOfAFewLines)
{
    open(12);
    for (std::size_t i = 1; i <= 12; ++i)
        driver(i).calls().fail({"MeasurementMode"});
    button.click();
    QCoreApplication::processEvents();
    EXPECT_EQ(lines.count(), 12);
    EXPECT_LT(lines.height(), 5 * lines.fontMetrics().height() + 20);
    QStringList shown;
    for (const QLabel* label : strip.findChildren<QLabel*>())
        shown << label->text();
    EXPECT_TRUE(shown.contains("Failing instruments: 12"));
    EXPECT_TRUE(shown.contains("and 9 more below"));
    for (std::size_t i = 2; i <= 12; ++i)
        driver(i).calls().healAll();
    button.click();
    QCoreApplication::processEvents();
    EXPECT_EQ(lines.count(), 1);
}

TEST_F(FailureStripTest, AScreenReaderIsAlertedOnceForEachInstrumentAndTheKeyboardReachesTheStrip)
{
    open(1);
    driver(0).calls().fail({"SamplePeriod set", 77, "stuck"});
    typePeriod("2");
    const QString announced = strip.accessibleName();
    EXPECT_TRUE(announced.endsWith(line(0)));
    window.docks().health().now = [] { return DateTime{46347.75}; };
    typePeriod("0.25");
    EXPECT_TRUE(line(0).contains("18:00:00"));
    EXPECT_EQ(strip.accessibleName(), announced) << "not with every key";
    QAccessibleInterface* element = QAccessible::queryAccessibleInterface(&strip);
    EXPECT_EQ(element->role(), QAccessible::AlertMessage);
    EXPECT_TRUE(element->text(QAccessible::Name).contains("Digitizer: Sample period could not be set"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&lines)->text(QAccessible::Name), "Failing instruments");
    for (int i = 0; i < 40 && !strip.isAncestorOf(QApplication::focusWidget()); ++i)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(lines.hasFocus());
    QTest::keyClick(&lines, Qt::Key_Tab);
    EXPECT_TRUE(button.hasFocus());
    open(1);
    window.docks().health().now = [] { return DateTime{46347.75}; };
    driver(0).calls().fail({"SamplePeriod set", 77, "stuck"});
    typePeriod("2");
    EXPECT_TRUE(strip.accessibleName().endsWith(line(0))) << "and again in another set-up";
}

} // namespace
} // namespace ko::test

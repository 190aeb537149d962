#include "FrameTest.h"
#include "host/docks/DriverLog.h"
#include "host/docks/Reports.h"
#include "host/toolkit/HintLine.h"

#include <QHeaderView>
#include <QScreen>
#include <QScrollBar>
#include <QTextBrowser>

namespace ko::test {
namespace {

const std::string demo = KO_DEMO_FOLDER "/engine-bench-demo.json";

class FrameWindowTest : public FrameTest {
protected:
    /// Focuses the duration and enters this text, selected.
    QLineEdit& enterDuration(const char* text)
    {
        auto& box = static_cast<QLineEdit&>(at(page().txtDuration));
        QTest::mouseClick(&box, Qt::LeftButton);
        QTest::keyClicks(&box, text);
        box.selectAll();
        return box;
    }
};

TEST_F(FrameWindowTest, TheEditCommandsWorkByTheirKeysAndTheMenuShowsWhatThePageAllows)
{
    window.open(demo);
    show();
    const auto offersCopy = [&] {
        QAction& copy = action(hostText::editMenu, hostText::copy);
        auto* menu = qobject_cast<QMenu*>(copy.associatedObjects().constFirst());
        Q_EMIT menu->aboutToShow();
        const bool isOffered = copy.isEnabled();
        Q_EMIT menu->aboutToHide();
        return isOffered;
    };
    EXPECT_FALSE(offersCopy());
    QLineEdit& box = enterDuration("12.5");
    EXPECT_TRUE(offersCopy());
    QTest::keyClick(&box, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "12.5");
    QTest::keyClick(&box, Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(page().txtDuration.text(), "");
    QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(page().txtDuration.text(), "12.5");
    QTest::keyClick(&box, Qt::Key_Home);
    QTest::keyClick(&box, Qt::Key_Delete);
    EXPECT_EQ(page().txtDuration.text(), "2.5") << "without a selection the key deletes a character";
    box.selectAll();
    QTest::keyClick(&box, Qt::Key_Delete);
    EXPECT_EQ(page().txtDuration.text(), "");
}

TEST_F(FrameWindowTest, ReadOnlyAndHelpReachThePage)
{
    window.open(demo);
    show();
    action(hostText::viewMenu, hostText::readOnly).trigger();
    EXPECT_TRUE(page().readOnly);
    for (const Control* control : page().controls()) {
        const QWidget* widget = window.page().view().widget(*control);
        if (!widget || !control->container() || !control->isShown() || control->typeName() == "Frame")
            continue;
        const auto* option = dynamic_cast<const OptionButton*>(control);
        const bool showsValue = option ? option->value() : !dynamic_cast<const PressControl*>(control);
        EXPECT_EQ(widget->isEnabled(), showsValue) << control->name();
        EXPECT_FALSE(control->isUsable()) << control->name();
    }
    EXPECT_TRUE(at(page().cmdSampleRateOffers).isEnabled());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
    const auto* help = window.findChild<QDialog*>("help");
    ASSERT_NE(help, nullptr);
    const auto topic = [help] { return help->findChild<QTextBrowser*>()->source().fileName(); };
    EXPECT_EQ(topic(), "read-only.html");
    EXPECT_TRUE(help->isVisible());
    action(hostText::helpMenu, hostText::contents).trigger();
    EXPECT_EQ(topic(), "index.html");
    window.menuBar()->actions().constLast()->menu()->actions().constFirst()->trigger();
    EXPECT_EQ(topic(), "read-only.html");
}

TEST_F(FrameWindowTest, OnlyF1AloneOpensTheHelpWhereverTheFocusIs)
{
    window.open(demo);
    show();
    const auto isSwallowed = [&](QWidget& widget, Qt::KeyboardModifiers held) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_F1, held);
        QApplication::sendEvent(&widget, &press);
        return press.isAccepted();
    };
    action(hostText::viewMenu, hostText::instruments).trigger();
    for (QWidget* widget : {&at(page().txtDuration), &at(page().optImmediate),
                            window.findChild<QWidget*>("instruments"), static_cast<QWidget*>(&window)}) {
        widget->setFocus();
        for (const auto held : {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier})
            EXPECT_FALSE(isSwallowed(*widget, held)) << held;
        auto* help = window.findChild<QDialog*>("help");
        EXPECT_FALSE(help && help->isVisible());
        EXPECT_TRUE(isSwallowed(*widget, Qt::NoModifier));
        help = window.findChild<QDialog*>("help");
        ASSERT_TRUE(help && help->isVisible());
        help->hide();
        activate();
    }
}

TEST_F(FrameWindowTest, AFailingInstrumentIsListedAndNothingPopsUp)
{
    auto* count = window.findChild<QToolButton*>("reportCount");
    show();
    EXPECT_FALSE(count->isVisible());
    window.open(
        file("failing.json", R"({"drivers": [{"name": "A", "timebase": {}, "failing": ["SamplePeriod get"]}]})"));
    EXPECT_TRUE(count->isVisible());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    QTest::mouseClick(count, Qt::LeftButton);
    const auto& reports = *window.findChild<QTreeWidget*>();
    ASSERT_TRUE(reports.isVisible());
    const QTreeWidgetItem& first = *reports.topLevelItem(0);
    EXPECT_EQ(first.text(1), "A");
    EXPECT_EQ(first.text(2), "Sample period could not be read: simulated failure (-2147467259)");
    EXPECT_FALSE(first.text(0).isEmpty() || first.text(3).isEmpty());
    window.docks().reports().callFailed("A", "Duration", 5, "another reason");
    window.docks().reports().add(5, "handler", "no call");
    const QTreeWidgetItem& last = *reports.topLevelItem(reports.topLevelItemCount() - 1);
    EXPECT_EQ(last.text(1) + last.text(2), "no call (5)");
    window.findChild<QPushButton*>("copyReports")->click();
    EXPECT_EQ(QApplication::clipboard()->text().count('\n'), reports.topLevelItemCount());
    QScrollBar& bar = *reports.verticalScrollBar();
    const auto addMany = [&] {
        const int before = bar.maximum();
        for (int i = 0; i < 40; ++i)
            window.docks().reports().add(5, "handler", "no call");
        EXPECT_TRUE(QTest::qWaitFor([&] { return bar.maximum() > before; }));
        QCoreApplication::processEvents();
    };
    addMany();
    EXPECT_EQ(bar.value(), bar.maximum());
    bar.setValue(3);
    addMany();
    EXPECT_EQ(bar.value(), 3) << "earlier reports are being read";
    window.findChild<QPushButton*>("clearReports")->click();
    EXPECT_EQ(reports.topLevelItemCount(), 0);
    EXPECT_FALSE(count->isVisible());
}

TEST_F(FrameWindowTest, AnOpenedDockLeavesThePageItsWidthOrSharesTabsBelowIt)
{
    window.open(demo);
    window.resize(window.page().sizeHint());
    show();
    const QRect screen = window.screen()->availableGeometry();
    window.move(screen.width() - window.width(), screen.height() - window.height());
    for (const int entry : {hostText::reportsEntry, hostText::instruments, hostText::driverLog}) {
        const int width = window.page().width();
        const QRect before = window.frameGeometry();
        action(hostText::viewMenu, entry).trigger();
        QCoreApplication::processEvents();
        EXPECT_GE(window.page().width(), std::min(width, window.page().sizeHint().width())) << entry;
        EXPECT_TRUE(screen.united(before).contains(window.frameGeometry())) << entry;
    }
    EXPECT_TRUE(window.tabifiedDockWidgets(&window.driverLog()).contains(&window.docks().reports()));
    EXPECT_FALSE(window.driverLog().visibleRegion().isEmpty()) << "the dock opened last is in front";
    for (const auto* view : window.findChildren<QTreeView*>())
        for (int column = 0; column + 1 < view->model()->columnCount(); ++column)
            EXPECT_TRUE(view->isHidden() || view->columnWidth(column) >= view->header()->sectionSizeHint(column));
}

TEST_F(FrameWindowTest, TheSpaceOnTheDiskIsComparedWithTheNeedAndAWarningIsShownWhileItDoesNotSuffice)
{
    std::string asked;
    std::optional<double> free = 20e6;
    window.space().freeSpace = [&](const std::string& of) {
        asked = of;
        return free;
    };
    const auto shows = [&](const char* text) {
        return QTest::qWaitFor([&] {
            return (window.space().isVisible() ? window.space().accessibleName().toStdString() : std::string()) == text;
        });
    };
    show();
    EXPECT_TRUE(shows("")) << "no set-up";
    window.open(demo);
    EXPECT_TRUE(shows("Disk space: 10.31 MB needed, 19.07 MB free"));
    EXPECT_EQ(asked, demo);
    enterDuration("300");
    EXPECT_TRUE(shows("The recording does not fit on the disk of the set-up: 103.02 MB needed, 19.07 MB free."));
    free = 20e9;
    window.space().refreshLater();
    EXPECT_TRUE(shows("Disk space: 103.02 MB needed, 18.63 GB free"));
    free.reset();
    window.space().refreshLater();
    EXPECT_TRUE(shows(""));
    EXPECT_TRUE(freeSpaceBeside(demo));
    EXPECT_FALSE(freeSpaceBeside("/nowhere/a.json"));
}

TEST_F(FrameWindowTest, TheStatusLineShowsTheHintOfTheFocusAndItsRange)
{
    window.open(file("range.json", R"({"drivers": [{"name": "A", "samplingMode": 2,
        "timebase": {"scanPeriod": {"value": 1, "range": [0.5, 2]}}}]})"));
    show();
    QTest::mouseClick(&at(page().txtScanPeriod), Qt::LeftButton);
    auto* hint = static_cast<HintLine*>(window.findChild<QLabel*>("hint"));
    EXPECT_TRUE(hint->text().startsWith(window.text(1142)));
    EXPECT_TRUE(hint->text().contains(window.text(1149) + "0.5")) << hint->text().toStdString();
    EXPECT_EQ(hint->shown(), hint->text());
    hint->resize(90, hint->height());
    EXPECT_TRUE(hint->shown().endsWith(u'\u2026') && hint->shown().size() > 5) << hint->shown().toStdString();
    QStatusTipEvent hover(QStringLiteral("below the mouse"));
    QApplication::sendEvent(&at(page().optAfter), &hover);
    EXPECT_FALSE(hint->isVisible());
    ASSERT_TRUE(page().optImmediate.isUsable());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_I, Qt::AltModifier);
    EXPECT_TRUE(hint->isVisible());
    EXPECT_EQ(hint->text(), window.text(1128));
}

} // namespace
} // namespace ko::test

#include "FrameTest.h"

#include <QAccessible>

namespace ko::test {
namespace {

class StartTest : public FrameTest {
protected:
    const std::string bench = file("bench & <b>.json", oneInstrument);

    StartTest() { show(); }
    [[nodiscard]] bool isStart() { return window.start().isVisible() && !window.page().isVisible(); }
    [[nodiscard]] bool isPage() { return !window.start().isVisible() && window.page().isVisible(); }
    static QString focused()
    {
        return QAccessible::queryAccessibleInterface(QApplication::focusWidget())->text(QAccessible::Name);
    }
    /// Moves the focus to the entry with this name by the key, and presses Enter.
    void choose(const QString& name, Qt::Key key)
    {
        for (int i = 0; i < 40 && focused() != name; ++i)
            QTest::keyClick(QApplication::focusWidget(), key);
        ASSERT_EQ(focused(), name);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    void close() { action(hostText::fileMenu, textNumber::start::close).trigger(); }
};

TEST_F(StartTest, EachWayToBeginIsReachedByKeysAndClosingLeadsBack)
{
    user.open = bench;
    const struct {
        QString entry;
        Qt::Key key;
        const char* opened;
    } ways[]{{"Empty", Qt::Key_Tab, "empty"},
             {"Temperature Logging", Qt::Key_Down, "temperature-logging"},
             {"Demo: Engine Bench", Qt::Key_Right, "engine-bench"},
             {"Open Set-up...", Qt::Key_Tab, "bench & <b>.json"},
             {"bench & <b>.json", Qt::Key_Down, "bench & <b>.json"}};
    for (const auto& way : ways) {
        SCOPED_TRACE(way.opened);
        EXPECT_TRUE(isStart());
        choose(way.entry, way.key);
        EXPECT_EQ(window.session().name(), way.opened);
        EXPECT_TRUE(isPage());
        close();
    }
    EXPECT_TRUE(page().drivers.empty());
    EXPECT_EQ(user.asked, 0);
}

TEST_F(StartTest, AMissingRecentFileThatIsForgottenLeavesTheList)
{
    window.files().open(toQt(bench));
    close();
    QFile::remove(toQt(bench));
    const QString name = QStringLiteral("bench & <b>.json");
    user.forget = true;
    choose(name, Qt::Key_Tab);
    EXPECT_EQ(user.told, bench);
    for (const QAbstractButton* entry : window.start().findChildren<QAbstractButton*>())
        EXPECT_NE(entry->accessibleName(), name);
    EXPECT_TRUE(isStart());
}

TEST_F(StartTest, ClosingAsksAboutChangesAndWithoutASetUpTheFileEntriesDoNothing)
{
    user.saveAs = folder.file("nothing.json");
    action(hostText::fileMenu, hostText::save).trigger();
    close();
    EXPECT_FALSE(QFile::exists(toQt(user.saveAs)));
    window.files().beginNew("vibration");
    page().optStartTime.userClicked();
    close();
    EXPECT_EQ(user.asked, 1);
    EXPECT_TRUE(isPage());
    user.unsaved = Unsaved::Discard;
    close();
    EXPECT_TRUE(isStart());
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_FALSE(window.session().hasSetup());
}

} // namespace
} // namespace ko::test

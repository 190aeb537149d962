#include "host/properties/PropertiesDialog.h"
#include "host/window/FrameTest.h"

#include <QRegularExpression>

namespace ko::test {
namespace {

std::string described(const QAction& action)
{
    std::string text = fromQt(action.text());
    for (const QKeySequence& key : action.shortcuts())
        text += " [" + fromQt(key.toString(QKeySequence::PortableText)) + "]";
    text += action.isCheckable() ? action.isChecked() ? " on" : " off" : "";
    return text + (action.isEnabled() ? "" : "-");
}

/// Actions with their keys, a line for each group, "-" after those that are disabled; a menu in braces.
std::string described(const QList<QAction*>& actions)
{
    std::string lines = "  ";
    for (const QAction* const action : actions) {
        if (action->isSeparator()) {
            lines += "\n  ";
            continue;
        }
        lines += (lines.back() == ' ' ? "" : "; ") + described(*action);
        if (QMenu* const menu = action->menu()) {
            Q_EMIT menu->aboutToShow();
            lines += " {" + described(menu->actions()) + "}";
        }
    }
    return lines;
}

/// The menus, the actions of the docks' lists and the hints.
class MenusShownTest : public FrameTest {
protected:
    std::string menus()
    {
        std::string lines = "\n";
        for (QAction* const bar : window.menuBar()->actions()) {
            Q_EMIT bar->menu()->aboutToShow();
            lines += fromQt(bar->text()) + "\n" + described(bar->menu()->actions()) + "\n";
            Q_EMIT bar->menu()->aboutToHide();
        }
        return lines;
    }
};

TEST_F(MenusShownTest, TheMenusHaveTheirEntriesKeysAndStatesInOrder)
{
    EXPECT_EQ(menus(), R"(
&File
  &New {  &Empty [Ctrl+N]; &Vibration; Engine &Bench; &Temperature Logging; &Mixed}; &Open Set-up... [Ctrl+O]; Open &Recent {  No files yet-}
  C&lose [Ctrl+F4]-; &Save [Ctrl+S]-; Save &As... [Ctrl+Shift+S]-; Revert to Save&d-
  &Print... [Ctrl+P]-; Print Pre&view...-; Print Set-up Sh&eet...-; Preview Set-up Shee&t...-; E&xport Set-up Sheet...-
  &Record... [F9]; &Monitor Signals; S&top [Shift+F9]-
  Capture Scenar&io... off; R&un Scenario...
  &Quit
&Edit
  &Undo [Ctrl+Z]-; &Redo [Ctrl+Shift+Z] [Ctrl+Y]-
  Cu&t [Ctrl+X] [Shift+Del]-; &Copy [Ctrl+C] [Ctrl+Ins]-; &Paste [Ctrl+V] [Shift+Ins]-; &Delete [Del]-
&View
  &Read-Only off
  &Instruments off; Driver &Log off; Re&ports off; Histor&y off; Re&cording off; Toolbar off
&Timebase
  &Trigger Lines...-
&Help
  &Help on This Page	F1; &Contents; &About Korvell
)");
    window.open(file("a & b.json", R"({"drivers": [{"name": "A", "timebase": {}}]})"));
    const std::string open = menus();
    EXPECT_NE(open.find("{  &1  a && b.json (" + folder.path.string() + ")\n  &Clear the List}"), std::string::npos)
        << open;
    EXPECT_NE(open.find(R"(
  C&lose [Ctrl+F4]; &Save [Ctrl+S]; Save &As... [Ctrl+Shift+S]; Revert to Save&d
  &Print... [Ctrl+P]; Print Pre&view...; Print Set-up Sh&eet...; Preview Set-up Shee&t...; E&xport Set-up Sheet...
)"),
              std::string::npos)
        << open;
}

/// A list of a dock: its columns, what the keyboard and the mouse do in it, and its actions with keys, tips and states.
std::string listOf(const QTreeView& list)
{
    std::string lines = fromQt(list.accessibleName()) + ":";
    for (int i = 0; i < list.model()->columnCount(); ++i)
        lines += " " + fromQt(list.model()->headerData(i, Qt::Horizontal).toString());
    lines += list.rootIsDecorated() ? ", a tree\n" : "\n";
    EXPECT_TRUE(list.uniformRowHeights() && list.allColumnsShowFocus());
    EXPECT_FALSE(list.tabKeyNavigation());
    EXPECT_EQ(list.selectionMode(), QAbstractItemView::ExtendedSelection);
    lines += described(list.actions()) + "\n";
    return lines;
}

TEST_F(MenusShownTest, TheListsOfTheDocksHaveTheirColumnsActionsAndKeys)
{
    std::string lines = "\n";
    for (const char* const dock : {"instruments", "driverLog", "reports"})
        lines += listOf(*window.findChild<QDockWidget*>(dock)->findChild<QTreeView*>());
    EXPECT_EQ(lines, R"(
Instruments: Instrument Value, a tree
  Properties... [Alt+Return] [Alt+Enter]-; Add Instrument... [Ins]; Duplicate [Ctrl+D]-; Rename [F2]-; Remove [Del]-; Move Up [Alt+Up]-; Move Down [Alt+Down]-
  Add Group [Ctrl+G]-; Add Channel [Shift+Ins]-; Enable Channels-; Disable Channels-; Use as Trigger Source [Ctrl+T]-
  Simulate Faults... [Ctrl+F]-; Reload Page [F5]
Driver Log: Time Instrument Operation Arguments Value Result
  Copy; Clear
Reports: Time Instrument Failure Reported by
  Copy; Clear
)");
    window.open(file("bench.json", R"({"drivers": [{"name": "A", "groups": [{"name": "G",
        "channels": [{"address": "0:1"}]}]}]})"));
    auto& tree = *window.instruments().findChild<QTreeView*>();
    window.instruments().select(0);
    EXPECT_EQ(listOf(tree).find('-'), listOf(tree).find("Source [Ctrl+T]-") + 15) << "no other is disabled";
    tree.setCurrentIndex(window.instruments().model().indexOf({0, 0, 0}));
    EXPECT_EQ(listOf(tree).find('-'), std::string::npos);
}

TEST_F(MenusShownTest, EveryHintOfTheWindowIsShownWhereItHelps)
{
    open(oneInstrument);
    const PropertiesDialog properties(texts, locale, driver().settings(), false, &window);
    QStringList shown;
    for (const QObject* const object : window.findChildren<QObject*>())
        for (const char* const property : {"toolTip", "statusTip", "placeholderText", "accessibleDescription"})
            shown << object->property(property).toString();
    QFile names(QT_TESTCASE_SOURCEDIR "/../../../src/support/TextNames.txt");
    ASSERT_TRUE(names.open(QIODevice::ReadOnly));
    // Those of questions and of the page are not the window's.
    const QRegularExpression own(
        "^3(?!.*(conflict|replace|start|escape|setAll)H).*([hH]int| keys| markerText| filter)$");
    const QStringList hints = QString(names.readAll()).split('\n').filter(own);
    EXPECT_GT(hints.size(), 10);
    for (const QString& hint : hints)
        EXPECT_TRUE(shown.contains(texts(hint.left(4).toInt()))) << fromQt(hint);
}

} // namespace
} // namespace ko::test

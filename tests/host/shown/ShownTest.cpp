#include "host/docks/CallText.h"
#include "host/docks/FaultDialog.h"
#include "host/docks/InstrumentsView.h"
#include "host/properties/PropertiesDialog.h"
#include "host/setup/SetupFile.h"
#include "host/setup/SetupWriter.h"
#include "host/sheet/SheetPages.h"
#include "host/window/FrameTest.h"
#include "look/Look.h"
#include "look/Painted.h"

#include <QAbstractItemModel>
#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTreeView>
#include <sstream>

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
            emit menu->aboutToShow();
            lines += " {" + described(menu->actions()) + "}";
        }
    }
    return lines;
}

/// The rows of a tree, one line each: name, value, check mark, "!" for a sign, "~" for a name that can be edited.
std::string rowsOf(const QAbstractItemModel& rows, const QModelIndex& parent = {}, const std::string& indent = "  ")
{
    std::string lines;
    for (int i = 0; i < rows.rowCount(parent); ++i) {
        const QModelIndex name = rows.index(i, 0, parent);
        const QModelIndex value = name.siblingAtColumn(1);
        EXPECT_EQ(rows.parent(name), parent);
        EXPECT_EQ(rows.hasChildren(name), rows.rowCount(name) > 0);
        EXPECT_EQ(rows.rowCount(value), 0);
        for (const QModelIndex& cell : {name, value})
            EXPECT_EQ(cell.data(Qt::ToolTipRole).toString().isEmpty(), cell.data().toString().isEmpty());
        const QVariant check = name.data(Qt::CheckStateRole);
        EXPECT_EQ(name.flags().testFlag(Qt::ItemIsUserCheckable), check.isValid());
        EXPECT_FALSE(value.flags().testFlag(Qt::ItemIsEditable) || value.data(Qt::CheckStateRole).isValid());
        lines += indent + fromQt(name.data().toString()) + " = " + fromQt(value.data().toString());
        lines += check.isValid() ? check.toInt() == Qt::Checked ? " [x]" : " [ ]" : "";
        lines += name.flags().testFlag(Qt::ItemIsEditable) ? " ~" : "";
        lines += value.data(Qt::DecorationRole).isValid() ? " !\n" : "\n";
        lines += rowsOf(rows, name, indent + "  ");
    }
    return lines;
}

class ShownTest : public FrameTest {
protected:
    std::string menus()
    {
        std::string lines = "\n";
        for (QAction* const bar : window.menuBar()->actions()) {
            emit bar->menu()->aboutToShow();
            lines += fromQt(bar->text()) + "\n" + described(bar->menu()->actions()) + "\n";
            emit bar->menu()->aboutToHide();
        }
        return lines;
    }
};

TEST_F(ShownTest, TheMenusHaveTheirEntriesKeysAndStatesInOrder)
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
  &Instruments off; Driver &Log off; Re&ports off; Histor&y off; Re&cording off; Recording off
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

TEST_F(ShownTest, TheTreeOfTheInstrumentsShowsAllThatIsSetInOrder)
{
    InstrumentsModel model(texts, locale, nullptr);
    model.show(makeDrivers(parseSetup(R"({"drivers": [
        {"name": "Digitizer", "failing": ["GroupName"], "hasTriggerParameters": true,
         "triggerLines": {"startMasterRank": 1, "startTriggerLine": 2, "startTriggerInput": 3, "scanMasterRank": 4,
                          "scanTriggerLine": 5, "scanTriggerInput": 6},
         "timebase": {"samplePeriod": {"value": 0.5}, "blockSize": {"value": 64}, "scanPeriod": {"value": 2},
                      "startMode": 1, "startTime": 46347.5, "stopMode": 1, "duration": 25.6},
         "groups": [{"name": "None", "channels": []},
                    {"name": "Inputs", "channels": [{"address": "0:1", "name": "Crank", "triggerSource": true,
            "triggerParameters": [{"id": 2, "name": "Level", "type": "Float", "value": 1.5},
                {"id": 3, "name": "Armed", "type": "Bool", "value": true},
                {"id": 4, "name": "Count", "type": "Long", "value": 7},
                {"id": 5, "name": "Edge", "type": "Enum", "value": "Rising", "choices": ["Rising"]}]},
            {"address": "0:2", "enabled": 0}]}]},
        {"name": "Odd", "timebase": {"startMode": 7, "stopMode": -1, "startTime": 1e9}},
        {"name": "Bare"}]})",
                                      "bench.json")));
    EXPECT_EQ("\n" + rowsOf(model), R"(
  Digitizer = Simulated faults: GroupName ~ !
    Timebase = 
      Sample period = 0.5 s
      Block size = 64
      Scan period = 2 s
      Start = At time
      Start time = 11/21/2026 12:00:00 PM
      Stop = At time
      Duration = 25.6 s
    None =  ~
    Inputs =  ~
      Crank (0:1) = Trigger source [x] ~
        Level = 1.5
        Armed = Yes
        Count = 7
        Edge = Rising
      0:2 =  [ ] ~
    Trigger lines = 
      Rank as start master = 1
      Start trigger line = 2
      Start trigger input = 3
      Rank as sync master = 4
      Sync trigger line = 5
      Sync trigger input = 6
  Odd =  ~
    Timebase = 
      Sample period = 0.001 s
      Block size = 1024
      Scan period = 0.1 s
      Start = 7
      Start time = 1000000000
      Stop = -1
      Duration = 10 s
  Bare =  ~
)");
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

TEST_F(ShownTest, TheListsOfTheDocksHaveTheirColumnsActionsAndKeys)
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

TEST_F(ShownTest, EachPageOfASheetHasItsPartAndItsNumber)
{
    ko::Setup setup;
    setup.instruments.resize(100);
    for (InstrumentSettings& instrument : setup.instruments) {
        instrument.name = "Unit " + std::to_string(&instrument - setup.instruments.data());
        instrument.timebase.emplace();
    }
    window.open(file("large.json", setupText(setup).c_str()));
    NotingDevice paper(QSize(700, 1000), 96);
    const SheetPages pages({page(), window.session().drivers(), "T", "large.json", false, {46347.5}, texts, locale},
                           paper, QSizeF(700, 1000));
    ASSERT_GT(pages.count(), 2);
    Look look;
    for (int i = 0; i < pages.count(); ++i) {
        paper.notes = {};
        QPainter painter(&paper);
        pages.paint(painter, i);
        const QStringList words = paper.notes.words();
        EXPECT_EQ(words.mid(words.size() - 2).join('|'),
                  QString("Set-up sheet  \u00b7  T  \u00b7  large.json  \u00b7  11/21/2026 12:00:00 PM|Page %1 of %2")
                      .arg(QString::number(i + 1), QString::number(pages.count())));
        EXPECT_LT(words.filter("Unit").size(), 60) << "a part of them";
        look.add(QStringLiteral("page %1").arg(i + 1), {}, paper.notes.notes);
    }
    look.compare("sheet");
}

/// The boxes of a dialog in the order of the Tab key: name, text, hint and state, below the tab that they are on; of a
/// list its entries with check marks, between semicolons.
std::string boxesOf(const QDialog& dialog)
{
    std::string lines = fromQt(dialog.windowTitle()) + "\n";
    const QWidget* tab = nullptr;
    for (const QWidget* at = dialog.nextInFocusChain(); at != &dialog; at = at->nextInFocusChain()) {
        const auto* const tabs = dialog.findChild<QTabWidget*>();
        for (int i = 0; tabs && i < tabs->count(); ++i)
            if (tabs->widget(i)->isAncestorOf(at) && std::exchange(tab, tabs->widget(i)) != tabs->widget(i))
                lines += "= " + fromQt(tabs->tabText(i)) + "\n";
        const auto* const box = qobject_cast<const QLineEdit*>(at);
        const auto* const list = qobject_cast<const QComboBox*>(at);
        const auto* const check = qobject_cast<const QCheckBox*>(at);
        const auto* const button = qobject_cast<const QPushButton*>(at);
        if (box)
            lines += fromQt(box->accessibleName() + ": " + box->text() + u'|' + box->placeholderText());
        else if (list)
            lines +=
                fromQt(list->accessibleName() + ": " + list->currentText()) + " of " + std::to_string(list->count());
        else if (check)
            lines += fromQt(check->text()) + (check->isChecked() ? " [x]" : " [ ]");
        else if (button)
            lines += "(" + fromQt(button->text()) + ")";
        else if (const auto* const entries = qobject_cast<const QListWidget*>(at))
            for (int i = 0; i < entries->count(); ++i)
                lines += fromQt(entries->item(i)->text()) + (entries->item(i)->checkState() ? " [x]; " : "; ");
        else
            continue;
        lines += box && box->isReadOnly() ? " read-only" : "";
        lines += at->isEnabled() ? "" : " disabled";
        lines += at->isVisibleTo(tab ? tab : &dialog) ? "\n" : " hidden\n";
    }
    return lines;
}

TEST_F(ShownTest, ThePropertiesShowEveryMemberAndWhatCannotBeEdited)
{
    window.open(file("bench.json", R"({"drivers": [
        {"name": "Dynamic", "hasTriggerParameters": true, "triggerLines": {"startMasterRank": 1, "startLinesAsMaster": [1, 2]},
         "timebase": {"samplePeriod": {"value": 0.5, "choices": [0.25, 0.5], "range": [0.1, 2], "keeps": "clamp"}},
         "groups": [{"name": "In", "channels": [{"address": "0:1", "name": "Crank", "unit": "V", "range": [-5, 5],
             "signal": {"shape": "square", "frequency": 50, "amplitude": 2, "offset": 1, "phase": 0.5, "noise": 0.1, "seed": 3},
             "triggerParameters": [{"id": 2, "name": "Level", "type": "Float", "value": 1.5}]}]}]},
        {"name": "Device", "module": "none", "device": "d", "options": {"a": "1"}}]})"));
    show();
    const auto shown = [&](std::size_t instrument) {
        window.instruments().select(instrument);
        for (QAction* const entry : window.instruments().findChild<QTreeView*>()->actions())
            if (entry->objectName() == "properties")
                entry->trigger();
        auto* const dialog = window.findChild<PropertiesDialog*>();
        const std::string lines = dialog ? boxesOf(*dialog) : "no dialog";
        delete dialog;
        return lines;
    };
    const std::string dynamic = R"(Properties of Dynamic
Name: Dynamic|
Kind: Dynamic of 2
= Sampling
This instrument has a timebase [x]
Entered as: Sample Rate (Sa/s) of 2
Available values: 2; 4|any value; separate several by semicolons
Range: 0.5; 10|minimum; maximum
Value: 2|
A requested value: is limited to the range of 5
Available values: |any value; separate several by semicolons
Range: |minimum; maximum
Value: 1024|
A requested value: follows the list, or else the range of 5
Entered as: Scan Period (s) of 2 hidden
Available values: |any value; separate several by semicolons hidden
Range: |minimum; maximum hidden
Value: 0.1| hidden
A requested value: follows the list, or else the range of 5 hidden
= Trigger lines
This instrument has trigger lines [x]
Rank as start master: 1|
Start trigger line: -1|
Start trigger input: -1|
Rank as sync master: -1|
Sync trigger line: -1|
Sync trigger input: -1|
Start lines as master: 1; 2|all lines; separate several by semicolons
Start lines as listener: |all lines; separate several by semicolons
Sync lines as master: |all lines; separate several by semicolons
Sync lines as listener: |all lines; separate several by semicolons
= Channels
In: Crank; 
Signal: Square of 4
Frequency (Hz): 50|
Amplitude: 2|
Offset: 1|
Unit: V|
Phase (rad): 0.5|
Noise (RMS): 0.1|
Seed of the noise: 3|
Range: -5; 5|minimum; maximum
Can be the trigger channel [x]
This instrument has trigger parameters [x]
(Add Parameter)
(Remove Parameter)
(OK)
(Cancel)
)";
    EXPECT_EQ(shown(0), dynamic);
    EXPECT_EQ(shown(1), "Properties of Device\nName: Device|\nDriver module: none| read-only\nDevice: d|\n"
                        "= Options of the device\na: 1|\n(OK)\n(Cancel)\n");
}

TEST_F(ShownTest, AValueOfACallReadsAsItsTypeInTheLocale)
{
    Locale german;
    german.decimalSeparator = ",";
    const std::pair<CallValue, const char*> cases[]{
        {{}, ""},
        {true, "Yes"},
        {false, "No"},
        {std::int32_t{-7}, "-7"},
        {double{25.6F}, "25,6"},
        {0.1, "0,1"},
        {std::string("a\nb"), "a b"},
        {DateTime{46347.5}, "11/21/2026 12:00:00 PM"},
        {DateTime{1e12}, "1000000000000"},
        {Range{0.5, 2}, "0,5 \u2013 2"},
        {std::vector<double>{0.5, 2}, "0,5; 2"},
        {std::vector<std::string>{"x", "y"}, "x; y"},
        {LineList{1, 2}, "1; 2"},
    };
    for (const auto& [value, text] : cases)
        EXPECT_EQ(fromQt(callText(value, texts, german)), text);
}

TEST_F(ShownTest, TheFaultsOfAnInstrumentAreThoseOfTheViewsThatItHas)
{
    const std::tuple<const char*, const char*, const char*> cases[]{
        {"false", "NumberOfScans", ""},
        {R"(false, "timebase": {})", "SamplePeriod set; ", "; StartMode set; "},
        {"true", "GetTriggerParamCount; ", "; GetTriggerGroupName; "},
        {R"(false, "triggerLines": {})", "StartMasterRank get; ", "; StartLinesAsListener get; "}};
    for (const auto& [members, first, last] : cases) {
        const std::string named = R"({"drivers": [{"name": "A", "failing": ["GroupName"], "hasTriggerParameters": )";
        const auto drivers = makeDrivers(parseSetup(named + members + "}]}", ""));
        const std::string boxes = boxesOf(FaultDialog(texts, *drivers[0], &window));
        EXPECT_TRUE(
            boxes.starts_with("Simulated faults of A\nGroupCount; ChannelCount; ChannelAttribute; MeasurementMode; "
                              "SamplingMode; DriverName; GroupName [x]; " +
                              std::string(first)))
            << boxes;
        EXPECT_TRUE(
            boxes.ends_with(last + std::string("NumberOfScans; DynamicBytes; \n(&Clear All)\n(OK)\n(Cancel)\n")))
            << boxes;
    }
}

TEST_F(ShownTest, EveryHintOfTheWindowIsShownWhereItHelps)
{
    window.open(file("bench.json", R"({"drivers": [{"name": "A", "timebase": {}}]})"));
    const PropertiesDialog properties(texts, locale, window.session().drivers().at(0)->settings(), false, &window);
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

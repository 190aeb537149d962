#include "host/docks/FaultDialog.h"
#include "host/properties/PropertiesDialog.h"
#include "host/window/FrameTest.h"

#include <QRegularExpression>
#include <QTabWidget>
#include <sstream>

namespace ko::test {
namespace {

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

using DialogsShownTest = FrameTest;

TEST_F(DialogsShownTest, ThePropertiesShowEveryMemberAndWhatCannotBeEdited)
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

TEST_F(DialogsShownTest, TheFaultsOfAnInstrumentAreThoseOfTheViewsThatItHas)
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

TEST_F(DialogsShownTest, EveryHintOfTheWindowIsShownWhereItHelps)
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

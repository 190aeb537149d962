#include "FrameTest.h"
#include "host/properties/PropertiesDialog.h"

#include <QTextBrowser>

namespace ko::test {
namespace {

const char* const propertiesBench = R"({"drivers": [
  {"name": "Digitizer", "triggerLines": {"startMasterRank": 5},
   "timebase": {"samplePeriod": {"value": 0.0003, "choices": [0.0003, 0.001, 0.30000000000000004]}},
   "groups": [{"name": "Inputs", "channels": [{"address": "0:1", "name":
     "Crank, in the bearing at the end of the long shaft of the engine that is on the second of both test benches"},
     {"address": "0:2",
     "triggerParameters": [{"id": 2, "name": "Level", "type": "Float", "value": 1.5}]}]}]},
  {"name": "Scanner", "samplingMode": 2, "timebase": {}}]})";

class PropertiesTest : public FrameTest {
protected:
    QTreeView& tree = *window.instruments().findChild<QTreeView*>();

    void SetUp() override
    {
        FrameTest::open(propertiesBench);
        action(hostText::viewMenu, hostText::instruments).trigger();
        show();
    }
    /// Opens the dialog of an instrument by keys.
    PropertiesDialog& open(int instrument)
    {
        tree.setFocus();
        tree.setCurrentIndex(tree.model()->index(instrument, 0));
        QTest::keyClick(&tree, Qt::Key_Return, Qt::AltModifier);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        auto* const dialog = window.findChild<PropertiesDialog*>();
        if (!dialog)
            throw std::out_of_range("no dialog");
        return *dialog;
    }
    /// Returns a box of a dialog by its member in set-up files.
    template <class Widget = QLineEdit> static Widget& box(PropertiesDialog& dialog, const char* name)
    {
        auto* const found = dialog.findChild<Widget*>(QLatin1String(name));
        if (!found)
            throw std::out_of_range(name);
        return *found;
    }
    static void type(QLineEdit& box, const char* text)
    {
        box.setFocus();
        box.selectAll();
        QTest::keyClicks(&box, QLatin1String(text));
    }
    void undo()
    {
        activate();
        QTest::keyClick(window.focusWidget(), Qt::Key_Z, Qt::ControlModifier);
    }
    static void press(QDialog& dialog, Qt::Key key) { QTest::keyClick(&dialog, key); }
};

TEST_F(PropertiesTest, OkWithoutAnEditAndEscapeAfterManyChangeNothing)
{
    const std::string before = held();
    for (const int instrument : {0, 1}) {
        PropertiesDialog& untouched = open(instrument);
        untouched.findChild<QTabWidget*>()->setCurrentIndex(2);
        press(untouched, Qt::Key_Return);
        EXPECT_FALSE(untouched.isVisible());
    }
    PropertiesDialog& dialog = open(0);
    type(box(dialog, "timebase.samplePeriod.choices"), "1;2;3");
    type(box(dialog, "name"), "Other");
    press(dialog, Qt::Key_Escape);
    EXPECT_EQ(held(), before);
    EXPECT_TRUE(window.history().steps().steps().empty());
    EXPECT_FALSE(window.isWindowModified());
}

TEST_F(PropertiesTest, OneStepTakesWhatWasEditedAndThePageFollows)
{
    const std::string before = held();
    PropertiesDialog& dialog = open(0);
    QLineEdit& rates = box(dialog, "timebase.samplePeriod.choices");
    EXPECT_EQ(rates.text(), "3.33333333333333; 1000; 3333.33333333333");
    QApplication::clipboard()->setText("3.33333333333333\n500\n3333.33333333333\n");
    rates.selectAll();
    QTest::keyClick(&rates, Qt::Key_V, Qt::ControlModifier);
    dialog.findChild<QTabWidget*>()->setCurrentIndex(2);
    box<QListWidget>(dialog, "channels").setCurrentRow(1);
    type(box(dialog, "signal.frequency"), "12.5");
    box<QPushButton>(dialog, "addParameter").click();
    QTest::keyClicks(dialog.focusWidget(), "Hold-off");
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    QCoreApplication::processEvents();
    press(dialog, Qt::Key_Return);
    const InstrumentSettings changed = driver().held();
    EXPECT_EQ(changed.timebase->samplePeriod.choices, (std::vector<double>{0.0003, 0.002, 0.30000000000000004}));
    EXPECT_EQ(changed.groups[0].channels[1].signal->frequency, 12.5);
    EXPECT_FALSE(changed.groups[0].channels[0].signal);
    EXPECT_EQ(changed.groups[0].channels[1].triggerParameters.at(1).name, "Hold-off");
    EXPECT_EQ(page().cmbSampleRate.items().size(), 3U);
    EXPECT_EQ(window.history().steps().steps().size(), 1U);
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_EQ(parseSetup(held(), "").instruments[0], changed);
    undo();
    EXPECT_EQ(held(), before);
    EXPECT_FALSE(window.isWindowModified());
}

TEST_F(PropertiesTest, ARefusalIsShownAtItsPlaceAndNothingTypedIsLost)
{
    const std::string before = held();
    PropertiesDialog& dialog = open(0);
    auto& message = *dialog.findChild<QLabel*>("refusal");
    QLineEdit& rates = box(dialog, "timebase.samplePeriod.choices");
    type(rates, "100; 2x0;300");
    auto& channels = box<QListWidget>(dialog, "channels");
    channels.setCurrentRow(1);
    type(box(dialog, "signal.noise"), "-1");
    channels.setCurrentRow(0);
    press(dialog, Qt::Key_Return);
    ASSERT_TRUE(dialog.isVisible());
    EXPECT_EQ(channels.currentRow(), 1) << "the groups precede the timebase in a set-up";
    EXPECT_TRUE(message.isVisible());
    EXPECT_EQ(message.text(), "Noise (RMS): must not be negative");
    EXPECT_EQ(dialog.focusWidget(), &box(dialog, "signal.noise"));
    type(box(dialog, "signal.noise"), "1");
    press(dialog, Qt::Key_Return);
    EXPECT_EQ(message.text(), "Available values: must be a number");
    EXPECT_EQ(dialog.focusWidget(), &rates);
    EXPECT_EQ(rates.selectedText(), " 2x0");
    EXPECT_EQ(held(), before);
    type(rates, "100;200");
    driver(0).calls().fail({"SamplePeriod set"});
    type(box(dialog, "timebase.samplePeriod.value"), "200");
    QString told;
    answer(told);
    press(dialog, Qt::Key_Return);
    EXPECT_TRUE(told.contains("Digitizer")) << told.toStdString();
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(rates.text(), "100;200");
    driver(0).calls().healAll();
    type(box(dialog, "name"), "Scanner");
    answer(told);
    press(dialog, Qt::Key_Return);
    EXPECT_TRUE(told.contains("Scanner: an instrument of this name exists")) << told.toStdString();
    type(box(dialog, "name"), "Shaft");
    press(dialog, Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(driver(0).name(), "Shaft");
    EXPECT_EQ(driver(0).held().timebase->samplePeriod.value, 0.005);
}

TEST_F(PropertiesTest, AViewThatIsSwitchedOffAndOnAgainIsAsItWas)
{
    const std::string before = held();
    for (const bool onAgain : {false, true}) {
        PropertiesDialog& dialog = open(0);
        box<QCheckBox>(dialog, "triggerLines").click();
        EXPECT_FALSE(box(dialog, "triggerLines.startMasterRank").isEnabled());
        if (onAgain)
            box<QCheckBox>(dialog, "triggerLines").click();
        press(dialog, Qt::Key_Return);
        EXPECT_EQ(driver(0).held().triggerLines.has_value(), onAgain);
        if (!onAgain)
            undo();
        EXPECT_EQ(held(), before);
    }
}

TEST_F(PropertiesTest, TheDialogStaysUntilItsInstrumentHasGone)
{
    const PropertiesDialog& dialog = open(1);
    for (const bool isOther : {true, false}) {
        ASSERT_TRUE(
            window.instrumentList().edit([](ko::Setup& setup) { setup.instruments.erase(setup.instruments.begin()); }));
        EXPECT_EQ(dialog.isVisible(), isOther);
    }
}

TEST_F(PropertiesTest, ADoubleClickOnAValueOfAChannelLeadsToTheChannelAndF1ToTheHelp)
{
    tree.expandAll();
    QAbstractItemModel& rows = *tree.model();
    const auto found = Qt::MatchStartsWith | Qt::MatchRecursive;
    const QModelIndex level = rows.match(rows.index(0, 0), Qt::DisplayRole, "Level", 1, found).value(0);
    tree.setCurrentIndex(level);
    Q_EMIT tree.doubleClicked(level.siblingAtColumn(1));
    auto& dialog = *window.findChild<PropertiesDialog*>();
    EXPECT_EQ(dialog.findChild<QTabWidget*>()->currentIndex(), 2);
    EXPECT_EQ(box<QListWidget>(dialog, "channels").currentRow(), 1);
    EXPECT_LT(box<QListWidget>(dialog, "channels").width(), dialog.width() / 2) << "whatever the names";
    QTest::keyClick(&box(dialog, "name"), Qt::Key_F1);
    EXPECT_EQ(window.findChild<QTextBrowser*>()->source().fileName(), "properties.html");
}

TEST_F(PropertiesTest, CellsOfTriggerParametersAreTypedOrChosenAndRowsAddedAndRemoved)
{
    PropertiesDialog& dialog = open(0);
    dialog.showChannel(channelPath(0, 1));
    auto* const table = &box<QTableWidget>(dialog, "parameters");
    const auto row = [&](int at) {
        QStringList cells;
        for (int column = 0; column < table->columnCount(); ++column)
            cells << table->item(at, column)->text();
        return cells.join('|').toStdString();
    };
    QStringList titles;
    for (int column = 0; column < table->columnCount(); ++column)
        titles << table->horizontalHeaderItem(column)->text();
    EXPECT_EQ(titles.join('|').toStdString(), "ID|Name|Type|Value|Minimum|Maximum|Role|Choices");
    ASSERT_EQ(table->rowCount(), 1);
    EXPECT_EQ(row(0), "2|Level|Float|1.5||||");
    // Returns what the cell's list offers, after entering the text.
    const auto enter = [&](int at, int column, const char* text) {
        table->setCurrentCell(at, column);
        table->edit(table->currentIndex());
        auto* const list = table->viewport()->findChild<QComboBox*>();
        auto* const line = list ? list->lineEdit() : table->viewport()->findChild<QLineEdit*>();
        QStringList offered;
        for (int i = 0; list && i < list->count(); ++i)
            offered << list->itemText(i);
        EXPECT_EQ(line ? line->text() : "none", table->item(at, column)->text());
        line->setText(text);
        QTest::keyClick(list ? static_cast<QWidget*>(list) : line, Qt::Key_Return);
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return offered.join('|').toStdString();
    };
    EXPECT_EQ(enter(0, 1, "Edge"), "");
    EXPECT_EQ(enter(0, 2, "Enum"), "Float|Integer|Bool|Enum|String|StringReadOnly");
    EXPECT_EQ(enter(0, 6, "slope"), "|level|slope|pretrigger");
    enter(0, 7, "Rising; Falling");
    enter(0, 3, "Falling");
    EXPECT_EQ(row(0), "2|Edge|Enum|Falling|||slope|Rising; Falling");
    enter(0, 0, "x");
    table->setCurrentCell(0, 1);
    dialog.accept();
    EXPECT_TRUE(dialog.findChild<QLabel*>("refusal")->text().startsWith("ID: must be a whole number"));
    EXPECT_TRUE(table->hasFocus() && table->currentColumn() == 0);
    enter(0, 0, "2");
    box<QPushButton>(dialog, "addParameter").click();
    ASSERT_EQ(table->rowCount(), 2);
    EXPECT_EQ(table->currentRow(), 1);
    table->setCurrentCell(-1, -1);
    box<QPushButton>(dialog, "removeParameter").click();
    EXPECT_EQ(table->rowCount(), 2) << "none is chosen";
    table->setCurrentCell(1, 0);
    box<QPushButton>(dialog, "removeParameter").click();
    EXPECT_EQ(table->rowCount(), 1);
    table->setCurrentCell(0, 1);
    table->edit(table->currentIndex());
    QTest::keyClicks(dialog.focusWidget(), "Slope");
    dialog.accept();
    const auto parameters = driver(0).held().groups[0].channels[1].triggerParameters;
    ASSERT_EQ(parameters.size(), 1U);
    EXPECT_EQ(parameters[0].role, "slope");
    EXPECT_EQ(parameters[0].name, "Slope") << "still typed";
    EXPECT_EQ(parameters[0].value, Value("Falling"));
}

TEST_F(PropertiesTest, AReadOnlyPageShowsThePropertiesAndChangesNone)
{
    action(hostText::viewMenu, hostText::readOnly).trigger();
    PropertiesDialog& dialog = open(0);
    const std::string before = held();
    box<QComboBox>(dialog, "timebase.samplePeriod").setCurrentIndex(1);
    EXPECT_EQ(box(dialog, "timebase.samplePeriod.choices").text(), "0.0003; 0.001; 0.3");
    type(box(dialog, "timebase.samplePeriod.choices"), "5");
    dialog.showChannel(channelPath(0, 1));
    const auto& table = box<QTableWidget>(dialog, "parameters");
    QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, table.visualItemRect(table.item(0, 1)).center());
    EXPECT_EQ(table.viewport()->findChild<QLineEdit*>(), nullptr);
    dialog.accept();
    EXPECT_EQ(held(), before);
}

} // namespace
} // namespace ko::test

#include "FrameTest.h"

#include <QAccessible>
#include <QClipboard>
#include <QDialog>
#include <QLineEdit>
#include <QRadioButton>
#include <QTableWidget>
#include <QTimer>

namespace ko::test {
namespace {

const char* const bench = R"({ "drivers": [
  { "name": "Sampler", "groups": [ { "name": "In", "channels": [ { "address": "0:1:0" }, { "address": "0:1:1" } ] } ],
    "timebase": { "samplePeriod": { "value": 0.001, "choices": [0.0001, 0.001, 0.01] }, "blockSize": { "value": 1 } } },
  { "name": "Other", "timebase": { "samplePeriod": { "value": 0.001, "choices": [0.001, 0.0001] },
                                   "blockSize": { "value": 1 } } } ] })";

class OffersTest : public FrameTest {
protected:
    void SetUp() override
    {
        window.open(file("bench.json", bench));
        show();
    }
    void press(Qt::Key key)
    {
        QTest::keyClick(QApplication::focusWidget(), key);
        activate();
    }
    /// Calls `look` with the next dialog.
    void inDialog(const std::function<void(QDialog&)>& look)
    {
        looked = false;
        QTimer::singleShot(0, [this, look] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            EXPECT_TRUE(QTest::qWaitFor([&] { return dialog->isActiveWindow(); }));
            look(*dialog);
            looked = true;
        });
    }
    bool looked = false;
};

TEST_F(OffersTest, TheButtonIsTheNextTabStopAndItsTableReadsCellByCell)
{
    ASSERT_TRUE(page().moveFocus(&page().cmbSampleRate));
    press(Qt::Key_Tab);
    QWidget& button = at(page().cmdSampleRateOffers);
    EXPECT_EQ(QApplication::focusWidget(), &button);
    EXPECT_EQ(button.accessibleName(), "Sample Rate (Sa/s): what each instrument offers");
    inDialog([&](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), button.accessibleName());
        auto* table = dialog.findChild<QTableWidget*>();
        ASSERT_NE(table, nullptr);
        EXPECT_TRUE(table->hasFocus());
        ASSERT_EQ(table->rowCount(), 2);
        const int effect = table->columnCount() - 2;
        EXPECT_EQ(table->horizontalHeaderItem(effect)->text(), window.text(3248));
        EXPECT_EQ(table->item(1, effect)->text(), "Removes: 100");
        QAccessibleInterface* told = QAccessible::queryAccessibleInterface(table);
        EXPECT_EQ(told->tableInterface()->rowDescription(1), "Other");
        EXPECT_EQ(told->tableInterface()->cellAt(1, effect)->text(QAccessible::Name), "Removes: 100");
        QTest::keyClick(table, Qt::Key_Down);
        EXPECT_EQ(table->currentRow(), 1);
        QTest::keyClick(table, Qt::Key_Tab);
        EXPECT_FALSE(table->hasFocus()) << "Tab leaves the table";
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    press(Qt::Key_Space);
    EXPECT_TRUE(looked);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(QApplication::focusWidget(), &button);
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &at(page().cmbSamplePeriod));
}

TEST_F(OffersTest, OnAReadOnlyPageEveryValueIsReachedAndCopiedByKeysAndNoneIsChanged)
{
    auto& readOnly = action(hostText::viewMenu, hostText::readOnly);
    readOnly.trigger();
    EXPECT_TRUE(at(page().lblReadOnly).isVisible());
    QStringList stops;
    for (int i = 0; i < 10; ++i) {
        press(Qt::Key_Tab);
        QWidget* focused = QApplication::focusWidget();
        QApplication::clipboard()->clear();
        for (const Qt::Key key : {Qt::Key_A, Qt::Key_C, Qt::Key_X, Qt::Key_V})
            QTest::keyClick(focused, key, Qt::ControlModifier);
        QTest::keyClicks(focused, "7");
        const QString name = focused->objectName().isEmpty() ? focused->parent()->objectName() : focused->objectName();
        stops << name + QStringLiteral(" ") + QApplication::clipboard()->text();
    }
    EXPECT_EQ(stops.join(u'\n').toStdString(),
              "cmbSampleRate 1000\ncmdSampleRateOffers \ncmbSamplePeriod 0.001\ncmdSamplePeriodOffers \n"
              "txtBlockSize 0\ncmdBlockSizeOffers \ntxtDuration 10\ncmbInterval seconds\nlblPlan " +
                  page().lblPlan.caption() + "\ncmbSampleRate 1000");
    EXPECT_FALSE(window.isWindowModified());
    QTest::mouseClick(&at(page().optAfter), Qt::LeftButton, {}, QPoint(8, 8));
    EXPECT_TRUE(static_cast<QRadioButton&>(at(page().optAfter)).isChecked());

    readOnly.trigger();
    EXPECT_FALSE(at(page().lblReadOnly).isVisible());
    ASSERT_TRUE(page().moveFocus(&page().txtDuration));
    QTest::keyClicks(&at(page().txtDuration), "7");
    EXPECT_EQ(page().txtDuration.text(), "7");
}

TEST_F(OffersTest, TheMarkOfADifferenceOpensTheTableWhereEnterSetsAll)
{
    ASSERT_TRUE(page().moveFocus(&page().cmbSampleRate));
    press(Qt::Key_Down);
    press(Qt::Key_Up);
    QWidget& mark = at(page().cmdSampleRateDiffers);
    EXPECT_TRUE(mark.isVisible());
    EXPECT_EQ(mark.accessibleName(), "Sample Rate (Sa/s): 1 of 2 differs");
    inDialog([&](QDialog& dialog) {
        auto* table = dialog.findChild<QTableWidget*>();
        ASSERT_NE(table, nullptr);
        EXPECT_TRUE(table->item(1, 0)->text().endsWith("(differs)")) << table->item(1, 0)->text().toStdString();
        auto* value = dialog.findChild<QLineEdit*>("txtValue");
        value->setFocus();
        QTest::keyClicks(value, "1000");
        QTest::keyClick(value, Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(table->item(1, 0)->text(), "1000");
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &mark);
    press(Qt::Key_Space);
    EXPECT_TRUE(looked);
    EXPECT_FALSE(mark.isVisible());
    for (const auto& driver : window.session().drivers())
        EXPECT_EQ(driver->settings().timebase->samplePeriod.value, 0.001);
}

TEST_F(OffersTest, AfterARefusalTheStripEntersWhatFitsByAKeyAndGoes)
{
    auto* hint = window.findChild<QLabel*>("hint");
    QWidget& box = at(page().txtDuration);
    QTest::mouseClick(&box, Qt::LeftButton);
    QString message;
    answer(message);
    page().txtDuration.userReplaced("1e9", 0, 0);
    activate();
    EXPECT_EQ(message.trimmed(), window.text(1170));
    QLabel& strip = static_cast<QLabel&>(at(page().lblWhatFits));
    EXPECT_TRUE(strip.isVisible());
    EXPECT_FALSE(at(page().lblPlan).isVisible()) << "the answer takes its place";
    EXPECT_TRUE(hint->text().endsWith(strip.text())) << hint->text().toStdString();
    EXPECT_TRUE(strip.text().contains("3 days 2 h")) << strip.text().toStdString();
    ASSERT_TRUE(page().moveFocus(&page().cmdTakeDuration));
    press(Qt::Key_Space);
    EXPECT_EQ(page().txtDuration.text(), "74");
    EXPECT_EQ(window.session().drivers()[0]->settings().timebase->duration, 74 * 3600);
    EXPECT_FALSE(strip.isVisible() || at(page().cmdTakeDuration).isVisible());
    EXPECT_TRUE(at(page().lblPlan).isVisible());
    EXPECT_TRUE(box.hasFocus());
}

} // namespace
} // namespace ko::test

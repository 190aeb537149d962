#include "FrameTest.h"

#include <QAccessible>
#include <QDialog>
#include <QTableWidget>
#include <QTimer>

namespace ko::test {
namespace {

const char* const bench = R"({ "drivers": [
  { "name": "Sampler", "groups": [ { "name": "In", "channels": [ { "address": "0:1:0" }, { "address": "0:1:1" } ] } ],
    "timebase": { "samplePeriod": { "value": 0.001, "choices": [0.0001, 0.001, 0.01] }, "blockSize": { "value": 1 } } },
  { "name": "Other", "timebase": { "samplePeriod": { "value": 0.001, "choices": [0.001, 0.0001] } } } ] })";

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
        EXPECT_EQ(table->horizontalHeaderItem(1)->text(), window.text(3248));
        EXPECT_EQ(table->item(1, 1)->text(), "Removes: 100");
        QAccessibleInterface* told = QAccessible::queryAccessibleInterface(table);
        EXPECT_EQ(told->tableInterface()->rowDescription(1), "Other");
        EXPECT_EQ(told->tableInterface()->cellAt(1, 1)->text(QAccessible::Name), "Removes: 100");
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

TEST_F(OffersTest, OnAReadOnlyPageTheButtonsAreAllThatCanBeReached)
{
    action(hostText::viewMenu, hostText::readOnly).trigger();
    for (const Control* stop : std::initializer_list<const Control*>{
             &page().cmdSampleRateOffers, &page().cmdSamplePeriodOffers, &page().cmdBlockSizeOffers, &page().lblPlan,
             &page().cmdSampleRateOffers}) {
        press(Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), &at(*stop)) << stop->name();
    }
    inDialog([](QDialog& dialog) { dialog.accept(); });
    press(Qt::Key_Space);
    EXPECT_TRUE(looked);
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
    EXPECT_TRUE(hint->text().endsWith(strip.text())) << hint->text().toStdString();
    EXPECT_TRUE(strip.text().contains("268435")) << strip.text().toStdString();
    ASSERT_TRUE(page().moveFocus(&page().cmdTakeDuration));
    press(Qt::Key_Space);
    EXPECT_EQ(page().txtDuration.text(), "268435");
    EXPECT_EQ(window.session().drivers()[0]->settings().timebase->duration, 268435);
    EXPECT_FALSE(strip.isVisible() || at(page().cmdTakeDuration).isVisible());
    EXPECT_TRUE(box.hasFocus());
}

} // namespace
} // namespace ko::test

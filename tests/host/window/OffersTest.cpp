#include "FrameTest.h"

#include <QRadioButton>

namespace ko::test {
namespace {

const char* const offeringBench = R"({ "drivers": [
  { "name": "Sampler", "groups": [ { "name": "In", "channels": [ { "address": "0:1:0" }, { "address": "0:1:1" } ] } ],
    "timebase": { "samplePeriod": { "value": 0.001, "choices": [0.0001, 0.001, 0.01] }, "blockSize": { "value": 1 } } },
  { "name": "Other", "timebase": { "samplePeriod": { "value": 0.001, "choices": [0.001, 0.0001] },
                                   "blockSize": { "value": 1 } } } ] })";

class OffersTest : public FrameTest {
protected:
    void SetUp() override
    {
        open(offeringBench);
        show();
    }
    void press(Qt::Key key)
    {
        QTest::keyClick(QApplication::focusWidget(), key);
        activate();
    }
};

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

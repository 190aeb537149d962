#include "fakes/DocumentTest.h"
#include "widgets/page/PageWidget.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTest>

namespace ko::test {
namespace {

/// The page with ranges for all quantities, and real key events.
class KeysOnThePage : public DocumentTest {
protected:
    PageWidget widget{page(), [](int number) { return QString::number(number); }};

    void SetUp() override
    {
        addRanges(1);
        addRanges(2);
        open();
        widget.resize(900, 700);
        widget.show();
        widget.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&widget));
    }
    QWidget& at(const Control& control) { return *widget.view().widget(control); }
    /// Focuses the box with the mouse and replaces its text.
    void typeInto(QWidget& box, const char* text)
    {
        QTest::mouseClick(&box, Qt::LeftButton);
        QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&box, text);
    }
};

TEST_F(KeysOnThePage, ABoxWritesAsIsTypedAndHoldsBackWhatCannotBeAccepted)
{
    struct Case {
        TextBox& control;
        const char* text;
        double& kept;
        double value;
        const char *refused, *message;
    };
    const Case cases[] = {
        {page().txtSampleRate, "400", fakes[0]->samplePeriod, 0.0025, "0", "real number in the range 1 to 1000000"},
        {page().txtSamplePeriod, "0.25", fakes[0]->samplePeriod, 0.25, "abc", "real number"},
        {page().txtBlockSize, "64", fakes[0]->blockSize, 64, "15", "integer in the range 16 to 4096"},
        {page().txtScanRate, "50", fakes[0]->scanPeriod, 0.02, "-", "real number"},
        {page().txtScanPeriod, "0.5", fakes[0]->scanPeriod, 0.5, "0.001", "real number in the range 0.01 to 100"}};
    for (const auto& [control, text, kept, value, refused, message] : cases) {
        SCOPED_TRACE(control.name());
        QWidget& box = at(control);
        typeInto(box, text);
        EXPECT_DOUBLE_EQ(kept, value);
        QTest::keyClick(&box, Qt::Key_Tab);
        EXPECT_FALSE(box.hasFocus());
        const std::string inForce = control.text();

        const std::function<void()> ways[] = {
            [&] { QTest::keyClick(&box, Qt::Key_Tab); },
            [&] { QTest::mouseClick(&at(page().optAfter), Qt::LeftButton, {}, QPoint(8, 8)); },
            [&] { document->menu().OnCommand(command::acceptEntry); },
        };
        for (const auto& leave : ways) {
            typeInto(box, refused);
            EXPECT_TRUE(control.marked());
            EXPECT_EQ(host.messages, Texts()) << "nothing is said before the box is left";
            leave();
            EXPECT_EQ(host.takeMessages(),
                      Texts{std::string("Invalid input: A valid ") + message + " is required. (48)"});
            EXPECT_TRUE(box.hasFocus());
            QTest::keyClick(&box, Qt::Key_Escape);
            EXPECT_EQ(control.text(), inForce);
            EXPECT_FALSE(control.marked());
        }
        QTest::mouseClick(&at(page().optAfter), Qt::LeftButton, {}, QPoint(8, 8));
        EXPECT_FALSE(box.hasFocus());
        EXPECT_DOUBLE_EQ(kept, value);
    }
}

/// Text that is dropped or pasted.
using Dropping = KeysOnThePage;

bool drop(QWidget& box, const char* text, QPoint where = {3, 8})
{
    QMimeData data;
    data.setText(QString::fromLatin1(text));
    QDragEnterEvent entering(where, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&box, &entering);
    QDropEvent event(where, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&box, &event);
    return event.isAccepted();
}

TEST_F(Dropping, AnEntryBringsTheFocusAndIsCheckedAsOneThatIsTyped)
{
    QWidget& box = at(page().txtScanPeriod);
    page().txtScanPeriod.setText("");
    EXPECT_TRUE(drop(box, "0.5\n9"));
    EXPECT_EQ(page().txtScanPeriod.text(), "0.5");
    EXPECT_EQ(fakes[1]->scanPeriod, 0.5);
    EXPECT_EQ(page().activeControl(), &page().txtScanPeriod);
    EXPECT_TRUE(drop(box, "x", box.rect().bottomRight() - QPoint(4, 8)));
    EXPECT_EQ(page().txtScanPeriod.text(), "0.5x");
    EXPECT_EQ(host.messages, Texts());
    EXPECT_FALSE(drop(at(page().txtSampleRate), "7")) << "the box with the focus is left first";
    EXPECT_EQ(host.takeMessages().size(), 1U);
    EXPECT_EQ(page().txtSampleRate.text(), "1000");
    EXPECT_EQ(page().activeControl(), &page().txtScanPeriod);
    EXPECT_FALSE(drop(at(page().txtStartTime), "7"));
}

TEST_F(Dropping, WhatIsPastedEndsAtItsFirstLineBreak)
{
    typeInto(at(page().txtScanPeriod), "0");
    auto& edit = static_cast<QLineEdit&>(at(page().txtScanPeriod));
    const std::pair<const char*, const char*> cases[] = {{".25\r\n7", ""}, {"\n7", "2"}};
    for (const auto& [text, selected] : cases) {
        QApplication::clipboard()->setText(QString::fromLatin1(text));
        edit.paste();
        EXPECT_EQ(page().txtScanPeriod.text(), "0.25") << text;
        EXPECT_EQ(edit.text(), "0.25");
        EXPECT_EQ(edit.selectedText(), selected) << "nothing on the first line replaces nothing";
        edit.setSelection(2, 1);
    }
    EXPECT_EQ(fakes[1]->scanPeriod, 0.25);
}

TEST_F(KeysOnThePage, TheArrowKeysSelectTheNextOrPreviousOptionAndComeRound)
{
    QTest::mouseClick(&at(page().optStopTime), Qt::LeftButton, {}, QPoint(8, 8));
    QTest::mouseClick(&at(page().optImmediate), Qt::LeftButton, {}, QPoint(8, 8));
    for (const auto& [key, option] : {std::pair(Qt::Key_Up, &page().optStartTime),
                                      {Qt::Key_Left, &page().optOnTrigger},
                                      {Qt::Key_Down, &page().optStartTime},
                                      {Qt::Key_Right, &page().optImmediate}}) {
        QTest::keyClick(QApplication::focusWidget(), key);
        EXPECT_TRUE(option->value() && option->hasFocus()) << option->name();
    }
}

TEST_F(KeysOnThePage, PageUpAndPageDownStepAList)
{
    for (const auto& driver : fakes)
        driver->sampleChoices = {0.001, 0.002, 0.004};
    handOver();
    QWidget& list = at(page().cmbSampleRate);
    QTest::mouseClick(&list, Qt::LeftButton);
    QTest::keyClick(QApplication::activePopupWidget() ? QApplication::activePopupWidget() : &list, Qt::Key_Escape);
    ASSERT_EQ(page().activeControl(), &page().cmbSampleRate);
    QTest::keyClick(&list, Qt::Key_PageDown);
    EXPECT_EQ(fakes[0]->samplePeriod, 0.002);
    EXPECT_EQ(page().cmbSamplePeriod.index(), 1);
    QTest::keyClick(&list, Qt::Key_PageUp);
    EXPECT_EQ(fakes[0]->samplePeriod, 0.001);
}

} // namespace
} // namespace ko::test

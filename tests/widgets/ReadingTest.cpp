#include "ViewTest.h"

#include <QClipboard>

namespace ko::test {
namespace {

/// The sample form, only read: its frame is disabled.
class Reading : public ViewTest {
protected:
    void SetUp() override
    {
        ViewTest::SetUp();
        form.box.setText("The value");
        form.list.select(1);
        form.one.showSelected();
        form.setForReading(true);
        form.frame.setEnabled(false);
        QApplication::processEvents();
    }
    QLineEdit& reading() { return *list.findChild<QLineEdit*>(); }
    static QWidget* focused() { return QApplication::focusWidget(); }
};

TEST_F(Reading, TabVisitsWhatHasAValueToReadInBothDirections)
{
    form.second.setText("");
    view.setFocus();
    std::vector<QWidget*> visited;
    for (int i = 0; i < 4; ++i) {
        QTest::keyClick(focused(), Qt::Key_Tab);
        visited.push_back(focused());
    }
    EXPECT_EQ(visited, (std::vector<QWidget*>{&box, &reading(), &grid, &box})) << "not the empty box nor options";
    EXPECT_EQ(form.activeControl(), nullptr);
    QTest::keyClick(focused(), Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(focused(), &grid);
}

TEST_F(Reading, ValuesAreSelectedAndCopiedButNotChanged)
{
    QTest::mouseClick(&box, Qt::LeftButton);
    EXPECT_EQ(focused(), &box);
    EXPECT_GT(box.cursorPosition(), 0) << "where it is clicked";
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(box.selectedText(), "The value");
    QTest::keyClick(&box, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "The value");
    QTest::keyClicks(&box, "x");
    EXPECT_EQ(form.box.text(), "The value");
    click(reading());
    EXPECT_EQ(focused(), &reading());
    EXPECT_EQ(reading().text(), "20");
    QTest::keyClick(&reading(), Qt::Key_Down);
    EXPECT_EQ(form.list.index(), 1);
    click(second);
    EXPECT_EQ(focused(), &reading()) << "an empty box has nothing to read";
    click(two);
    EXPECT_TRUE(form.one.value() && one.isChecked() && !two.isChecked());
    EXPECT_EQ(focused(), &reading());
    form.list.select(2);
    EXPECT_EQ(reading().text(), "30");
    form.list.setItems({{"7", 0}});
    EXPECT_EQ(reading().text(), "");
}

TEST_F(Reading, ValuesLookReadableAndLikeFieldsAgainAfterwards)
{
    EXPECT_TRUE(box.isEnabled() && box.isReadOnly() && list.isEnabled() && one.isEnabled());
    EXPECT_FALSE(go.isEnabled()) << "a button has no value";
    EXPECT_TRUE(reading().isVisible());
    list.resize(list.width() + 20, list.height());
    EXPECT_EQ(reading().geometry(), list.rect());
    EXPECT_TRUE(one.testAttribute(Qt::WA_TransparentForMouseEvents));
    form.two.showSelected();
    EXPECT_TRUE(two.isEnabled() && !one.isEnabled()) << "the value is the option that is selected";

    click(box);
    form.frame.setEnabled(true);
    form.setForReading(false);
    QApplication::processEvents();
    EXPECT_FALSE(box.isReadOnly() || reading().isVisible());
    EXPECT_EQ(box.palette().color(QPalette::Base), QApplication::palette(&box).color(QPalette::Base));
    EXPECT_FALSE(one.testAttribute(Qt::WA_TransparentForMouseEvents));
    EXPECT_EQ(list.focusProxy(), nullptr);
    click(two);
    EXPECT_TRUE(form.two.value());
}

} // namespace
} // namespace ko::test

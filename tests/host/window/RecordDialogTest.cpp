#include "host/recording_view/RecordDialog.h"
#include "FrameTest.h"

#include <QLabel>

namespace ko::test {
namespace {

class RecordDialogTest : public FrameTest {};

TEST_F(RecordDialogTest, ReplacesNoFileWithoutAQuestion)
{
    const Locale locale;
    RecordDialog dialog(&window, [&](int number) { return window.text(number); }, locale,
                        {fromQt(folder.filePath("free.h5")), 1e15});
    dialog.show();
    auto& name = *dialog.findChild<QLineEdit*>();
    EXPECT_EQ(name.selectedText(), "free");
    const auto shows = [&](const char* text) {
        return QTest::qWaitFor([&] {
            const auto labels = dialog.findChildren<QLabel*>();
            return std::any_of(labels.begin(), labels.end(), [&](auto* it) { return it->text().contains(text); });
        });
    };
    EXPECT_TRUE(shows("needed"));
    name.setText("/nowhere/at/all.h5");
    dialog.accept();
    EXPECT_TRUE(shows("/nowhere/at does not exist"));
    const std::string taken = file("taken.h5", "x");
    name.setText(folder.filePath("taken"));
    QString question;
    {
        const Soon cancel([&] {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            question = box->text() + box->informativeText();
            box->reject();
        });
        dialog.accept();
    }
    EXPECT_TRUE(question.contains("taken.h5 already exists") && question.contains("taken.h5~"));
    EXPECT_TRUE(dialog.isVisible());
    name.setText(folder.filePath("other"));
    dialog.accept();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.file(), fromQt(folder.filePath("other.h5")));
}

} // namespace
} // namespace ko::test

#include "widgets/dialogs/DateDialog.h"

#include "DialogTest.h"
#include "platform/Locales.h"

#include <QCalendarWidget>
#include <QClipboard>
#include <QLineEdit>
#include <QRadioButton>
#include <QTimeEdit>

namespace ko::test {
namespace {

/// The dialog's widgets, driven by keys and the mouse.
class DateDialogTest : public DialogsTest {
protected:
    SetDateTime dialog{support};

    DateDialogTest()
    {
        host.time = toDateTime("11/21/2026 9:30:00 AM", {});
        addDateDialog(modalForms, dialog, texts());
    }
    /// Shows the dialog, runs `user` in it and returns the dialog's result.
    template <class User> std::optional<DateTime> ask(const char* current, User user)
    {
        std::optional<DateTime> chosen;
        inDialog([&] { chosen = dialog.Display(toDateTime(current, {}), false, false); }, user);
        return chosen;
    }
    static QString text(std::optional<DateTime> time)
    {
        return time ? toQt(generalDate(*time, {})) : QStringLiteral("cancelled");
    }
};

TEST_F(DateDialogTest, ADateAndATimeArePickedByKeysAlone)
{
    const auto chosen = ask("12:00:00 PM", [&] {
        EXPECT_FALSE(part<QCalendarWidget>("calDate").isEnabled());
        EXPECT_TRUE(part<QRadioButton>("optCurrentDay").hasFocus());
        key(Qt::Key_S, Qt::AltModifier);
        auto& calendar = part<QCalendarWidget>("calDate");
        EXPECT_TRUE(calendar.isEnabled());
        key(Qt::Key_Tab);
        EXPECT_EQ(dialog.activeControl(), &dialog.calDate);
        key(Qt::Key_Down);
        key(Qt::Key_Right);
        EXPECT_EQ(calendar.selectedDate(), QDate(2026, 11, 29));
        key(Qt::Key_Tab);
        for (const char typed : std::string_view("3:24:05")) {
            if (typed == ':')
                key(Qt::Key_Shift);
            QTest::keyClick(&part<QTimeEdit>("dtpTimeSelector"), typed);
        }
        EXPECT_EQ(dialog.dtpTimeSelector.minute(), 24);
        for (Control* next : std::initializer_list<Control*>{&dialog.btnOK, &dialog.btnCancel, &dialog.btnHelp}) {
            key(Qt::Key_Tab);
            EXPECT_EQ(dialog.activeControl(), next);
        }
        key(Qt::Key_Backtab, Qt::ShiftModifier);
        key(Qt::Key_Backtab, Qt::ShiftModifier);
        key(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(dialog.activeControl(), &dialog.dtpTimeSelector);
        key(Qt::Key_Return);
    });
    EXPECT_EQ(text(chosen), "11/29/2026 3:24:05 PM");
}

TEST_F(DateDialogTest, EnterIsOkAndEscapeAndTheCloseButtonAreCancel)
{
    for (const char* const start : {"12/31/1999 6:00:00 AM", "6:00:00 AM"})
        for (const auto& [pressed, result] :
             {std::pair(Qt::Key_Return, start), {Qt::Key_Enter, start}, {Qt::Key_Escape, "cancelled"}})
            EXPECT_EQ(text(ask(start,
                               [&, pressed = pressed] {
                                   part<QCalendarWidget>("calDate").setFocus();
                                   key(pressed);
                               })),
                      result);
    EXPECT_EQ(text(ask("6:00:00 AM", [&] { QApplication::activeModalWidget()->close(); })), "cancelled");
    EXPECT_EQ(text(ask("6:00:00 AM", [&] { click("btnCancel"); })), "cancelled");
}

TEST_F(DateDialogTest, WhatIsPastedReplacesWhatWasBegun)
{
    QApplication::clipboard()->setText(" 9:15:08 PM\n");
    const auto chosen = ask("2:00:00 PM", [] {
        part<QTimeEdit>("dtpTimeSelector").setFocus();
        key(Qt::Key_1);
        key(Qt::Key_Insert, Qt::ShiftModifier);
        key(Qt::Key_Return);
    });
    EXPECT_EQ(text(chosen), "9:15:08 PM");
}

TEST_F(DateDialogTest, HelpOpensByF1AndItsButtonAndTheDialogStays)
{
    dialog.IHelp = host.site()->queryHelpSite();
    ask("11/24/2026", [&] {
        click("btnHelp");
        part<QCalendarWidget>("calDate").setFocus();
        key(Qt::Key_F1);
        part<QTimeEdit>("dtpTimeSelector").setFocus();
        key(Qt::Key_F1);
        key(Qt::Key_F1, Qt::ShiftModifier);
        key(Qt::Key_Escape);
    });
    EXPECT_EQ(host.topics, (std::vector<std::int32_t>{1005, 1005, 1005}));
}

TEST_F(DateDialogTest, TheTimeIsShownInTheFormatReadLast)
{
    const std::pair<Locale, const char*> cases[] = {
        {Locale{.timeFormat = "HH'h'mm.ss", .timeIs24Hour = "1"}, "15h04.05"},
        {Locale{}, "3:04:05 PM"},
        {Locale{.timeFormat = "tt h:mm:ss",
                .amDesignator = "\xE5\x8D\x88\xE5\x89\x8D", // ja
                .pmDesignator = "\xE5\x8D\x88\xE5\xBE\x8C"},
         "\xE5\x8D\x88\xE5\xBE\x8C 3:04:05"},
        {Locale{.timeFormat = "h:mm", .amDesignator = "a.\xC2\xA0m.", .pmDesignator = "p.\xC2\xA0m."}, // es
         "3:04:05 p.\xC2\xA0m."}};
    for (const auto& [locale, shown] : cases) {
        now = locale;
        support.readTimeSettings(); // as each new document does
        ask("3:04:05 PM", [&, text = shown] {
            EXPECT_EQ(part<QTimeEdit>("dtpTimeSelector").text().toStdString(), text);
            key(Qt::Key_Escape);
        });
    }
}

TEST_F(DateDialogTest, ATimeIsTypedAsItIsWrittenInEveryFormatHoweverTheFieldGotTheFocus)
{
    const auto edit = [] { return &part<QTimeEdit>("dtpTimeSelector"); };
    const std::function<void()> ways[] = {[&] { key(Qt::Key_Tab); },
                                          [&] {
                                              QTest::mouseClick(edit()->findChild<QLineEdit*>(), Qt::LeftButton, {},
                                                                QPoint(4, edit()->height() / 2));
                                          },
                                          [&] {
                                              edit()->setFocus();
                                              edit()->setSelectedSection(edit()->sectionAt(2));
                                              key(Qt::Key_A, Qt::ControlModifier);
                                          }};
    for (const Locale& locale : {english, german, japanese, finnish, korean, quoted}) {
        now = locale;
        support.readTimeSettings();
        const std::pair<std::string, const char*> typed[] = {
            {generalDate(toDateTime("18:05:09", {}), locale), "18:05:09"},
            {locale.timeFormat.find("tt") == std::string::npos ? "21.5.078" : "p9.5.8", "21:05:08"},
            {"9:15:08 AM", "9:15:08"},
            {"21:15:08", "21:15:08"},
            {"9.5.8 pm", "21:05:08"},
            {"9.5.8 " + locale.pmDesignator, locale.pmDesignator.empty() ? "9:05:08" : "21:05:08"},
            {"12 0 0a", "0:00:00"},
            {"00:00:30", "0:00:30"},
            {"2145", "21:45:00"},
            {"2745a", "2:07:45"}}; // no hour is 27
        for (const auto& focus : ways)
            for (const auto& [text, kept] : typed) {
                const auto chosen = ask("2:00:00 PM", [&, text = text] {
                    focus();
                    for (const QChar character : toQt(text))
                        QTest::sendKeyEvent(QTest::Click, edit(), Qt::Key_unknown, QString(character), {});
                    key(Qt::Key_Return);
                });
                EXPECT_EQ(this->text(chosen), this->text(toDateTime(kept, {}))) << locale.timeFormat << ": " << text;
            }
    }
}

} // namespace
} // namespace ko::test

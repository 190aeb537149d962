#include "Soon.h"
#include "platform/CaptionControls.h"
#include "platform/Failure.h"
#include "widgets/FormView.h"
#include "widgets/QtServices.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace ko::test {
namespace {

TEST(QtLocale, PicturesTheSystemsFormatsAndFallsBackWhereThePlatformHasNoWordsForThem)
{
    struct Case {
        const char* name;
        const char *decimal, *date, *time, *is24Hour, *leadingZero, *separator;
    };
    for (const Case& it : {Case{"en_US", ".", "M/d/yyyy", "h:mm:ss tt", "0", "0", ":"},
                           {"de_DE", ",", "dd.MM.yyyy", "HH:mm:ss", "1", "1", ":"},
                           {"fi_FI", ",", "d.M.yyyy", "H.mm.ss", "1", "0", "."},
                           {"bg_BG", ",", "yyyy-MM-dd", "HH:mm:ss", "1", "1", ":"},
                           {"ko_KR", ".", "yyyy. M. d.", "h:mm:ss tt", "0", "0", ":"}}) {
        const Locale locale = toLocale(QLocale(QString(it.name)));
        EXPECT_EQ(locale.decimalSeparator, it.decimal) << it.name;
        EXPECT_EQ(locale.shortDateFormat, it.date) << it.name;
        EXPECT_EQ(locale.timeFormat, it.time) << it.name;
        EXPECT_EQ(locale.timeIs24Hour, it.is24Hour) << it.name;
        EXPECT_EQ(locale.timeLeadingZero, it.leadingZero) << it.name;
        EXPECT_EQ(locale.timeSeparator, it.separator) << it.name;
    }
    EXPECT_EQ(toLocale(QLocale::c()), Locale());
}

TEST(QtPrinters, SettingsReachThePrinterAndComeBack)
{
    // A PDF file has no second side, so that the duplex mode stays out of it.
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    for (const DeviceMode& mode : {DeviceMode{2, 2, 1, 2, 1, 300}, DeviceMode{1, 1, 1, 1, 9, 600}}) {
        applySettings(printer, mode);
        EXPECT_EQ(settingsOf(printer), mode);
    }
}

TEST(QtMessageBox, ShowsTextTitleAndIconAndWaitsForTheAnswer)
{
    QtMessageBox boxes;
    for (const auto& [style, icon] : {std::pair(messageStyle::exclamation, QMessageBox::Warning),
                                      std::pair(messageStyle::information, QMessageBox::Information),
                                      std::pair(messageStyle::plain, QMessageBox::NoIcon)}) {
        bool seen = false;
        const Soon soon([&, wanted = icon] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            seen = box->icon() == wanted && box->text() == "<b>1 < 2</b>" && box->textFormat() == Qt::PlainText;
            box->accept();
        });
        boxes.show("<b>1 < 2</b>", "Title", style);
        EXPECT_TRUE(seen) << style;
    }
}

TEST(QtModalForms, AFormIsShownUntilItIsHiddenAndEscapePressesItsCancelButton)
{
    Form form("Asking");
    CommandButton cancel(form, "cmdCancel");
    QtModalForms forms;
    EXPECT_THROW(forms.showModal(form), Failure);

    form.setCaption("Title");
    form.setButtons(cancel, cancel);
    forms.add(form, [&] {
        auto* view = new FormView(form, [](int) { return QString(); });
        (new QVBoxLayout(view))->addWidget(&view->button(cancel));
        return view;
    });
    int clicks = 0;
    cancel.click = [&] {
        ++clicks;
        forms.hide(form);
    };
    const Soon soon([&] {
        QWidget* dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->windowTitle(), "Title");
        form.setCaption("Other title");
        EXPECT_EQ(dialog->windowTitle(), "Other title");
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    forms.showModal(form);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

} // namespace
} // namespace ko::test

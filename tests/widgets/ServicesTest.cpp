#include "InDialog.h"
#include "fakes/FakePlatform.h"
#include "widgets/services/QtServices.h"
#include "widgets/support/PlainText.h"

#include <QClipboard>
#include <QLabel>
#include <QScreen>
#include <QStyle>
#include <cmath>

namespace ko::test {
namespace {

TEST(QtClipboard, HoldsTextAndIsReplacedByAStandIn)
{
    QtClipboard clipboard;
    clipboard.setText("\u00e4 text");
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), clipboard.text());
    EXPECT_EQ(clipboard.text(), "\u00e4 text");
    FakePlatform host;
    clipboard.standIn = &host;
    clipboard.setText("stand-in");
    EXPECT_EQ(host.clipboardText + clipboard.text(), "stand-instand-in");
    clipboard.clear();
    EXPECT_EQ(host.clipboardText, "");
    clipboard.standIn = nullptr;
    EXPECT_EQ(clipboard.text(), "\u00e4 text");
    clipboard.clear();
    EXPECT_EQ(clipboard.text(), "");
}

TEST(QtScreen, MeasuresTheScreenUnderTheCursorInPixelsAndTwips)
{
    QtScreen screen;
    const QScreen& shown = *QGuiApplication::primaryScreen();
    QCursor::setPos(30, 40);
    EXPECT_EQ(QPoint(screen.cursorPosition().x, screen.cursorPosition().y), QCursor::pos());
    const Rectangle work = screen.workArea().value_or(Rectangle());
    EXPECT_EQ(QRect(QPoint(work.left, work.top), QPoint(work.right - 1, work.bottom - 1)), shown.availableGeometry());
    EXPECT_NEAR(screen.size().x, shown.size().width() * 1440.0 / shown.logicalDotsPerInchX(), 1.0);
    EXPECT_NEAR(screen.size().y, shown.size().height() * 1440.0 / shown.logicalDotsPerInchY(), 1.0);
    EXPECT_EQ(screen.verticalScrollBarWidth(), QApplication::style()->pixelMetric(QStyle::PM_ScrollBarExtent));
}

TEST(QtClock, StandsAtATimeOrAtThatOfItsLastTick)
{
    QtClock clock;
    const double now = clock.now().days;
    EXPECT_NEAR(now * 86400.0, std::round(now * 86400.0), 1e-3) << "whole seconds";
    clock.standAt(DateTime{100.5});
    EXPECT_EQ(clock.tick().days, 100.5);
    clock.standAt(std::nullopt);
    EXPECT_EQ(clock.now().days, 100.5) << "until it runs on";
    clock.runOn();
    EXPECT_GE(clock.now().days, now);
}

TEST(QtMessageBox, ShowsTextTitleAndIconAndWaitsForTheAnswer)
{
    QtMessageBox boxes;
    QWidget owner;
    boxes.setOwner(&owner);
    for (const auto& [style, icon] : {std::pair(messageStyle::exclamation, QMessageBox::Warning),
                                      std::pair(messageStyle::information, QMessageBox::Information),
                                      std::pair(messageStyle::plain, QMessageBox::NoIcon)}) {
        const InDialog accept([&, wanted = icon](QMessageBox& box) {
            EXPECT_EQ(box.icon(), wanted);
            EXPECT_EQ(box.text(), "<b>1 < 2</b>");
            EXPECT_TRUE(box.standardButtons() == QMessageBox::Ok && box.parentWidget() == &owner);
            for (const QLabel* part : box.findChildren<QLabel*>())
                EXPECT_EQ(part->textFormat(), Qt::PlainText);
            box.accept();
        });
        boxes.show("<b>1 < 2</b>", "Title", style);
    }
    const PlainBox longer(QMessageBox::NoIcon, "Title", "Text", "<b>more</b>", QMessageBox::Ok, nullptr);
    EXPECT_EQ(longer.informativeText(), "<b>more</b>");
    for (const QLabel* part : longer.findChildren<QLabel*>())
        EXPECT_EQ(part->textFormat(), Qt::PlainText) << part->text().toStdString();
    FakePlatform host;
    boxes.standIn = &host;
    boxes.show("Text", "Title", messageStyle::plain);
    EXPECT_EQ(host.messages, std::vector<std::string>{"Title: Text (0)"});
}

} // namespace
} // namespace ko::test

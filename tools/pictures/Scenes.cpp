#include "Scenes.h"

#include "host/docks/InstrumentsView.h"
#include "host/sheet/SheetPages.h"

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMetaEnum>
#include <QPainter>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

namespace ko::pictures {

namespace {

Page& page(FrameWindow& window)
{
    return window.document().page();
}

QPixmap whole(FrameWindow& window)
{
    QApplication::processEvents();
    return window.grab();
}

/// Runs `open`, which shows a modal dialog, and paints the dialog.
template <class Open> QPixmap dialogOf(const Open& open)
{
    QPixmap picture;
    QTimer::singleShot(300, [&picture] {
        if (QWidget* dialog = QApplication::activeModalWidget()) {
            picture = dialog->grab();
            dialog->close();
        }
    });
    open();
    return picture;
}

/// Sets the start to a trigger, with the first channel that has trigger parameters.
void onTrigger(FrameWindow& window)
{
    page(window).optOnTrigger.userClicked();
    QTimer::singleShot(300, [] {
        auto* tree = QApplication::activeModalWidget()->findChild<QTreeWidget*>();
        QTreeWidgetItem* item = tree->topLevelItem(0);
        while (item->childCount() > 0)
            item = item->child(0);
        tree->setCurrentItem(item);
        QTest::keyClick(tree, Qt::Key_Return);
    });
    page(window).cmdChannel.userClicked();
}

QPixmap trigger(FrameWindow& window)
{
    onTrigger(window);
    return whole(window);
}

/// The sentence below the page.
QPixmap plan(FrameWindow& window)
{
    onTrigger(window);
    QApplication::processEvents();
    return window.page().view().widget(page(window).lblPlan)->grab();
}

/// Paints the first page of the set-up sheet, A4 at 96 dots per inch.
QPixmap sheet(FrameWindow& window)
{
    constexpr QSize paper(794, 1123);
    constexpr QMargins margins(83, 57, 57, 45);
    onTrigger(window);
    QImage picture(paper, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.translate(margins.left(), margins.top());
    SheetPages(window.printing().sheet(), picture, QRect(QPoint(), paper).marginsRemoved(margins).size())
        .paint(painter, 0);
    painter.end();
    return QPixmap::fromImage(picture);
}

QPixmap selectChannel(FrameWindow& window)
{
    onTrigger(window);
    return dialogOf([&] { page(window).cmdChannel.userClicked(); });
}

QPixmap dateTime(FrameWindow& window)
{
    page(window).optStartTime.userClicked();
    return dialogOf([&] { page(window).cmdStartTime.userClicked(); });
}

QPixmap triggerLines(FrameWindow& window)
{
    onTrigger(window);
    return dialogOf([&] { page(window).mnuTimebaseTriggerLines.userClicked(); });
}

/// Makes three instruments fail, each in another call.
QPixmap failingInstruments(FrameWindow& window)
{
    window.docks().health().now = [&window] { return window.services().clock.now(); };
    const HostInstruments& drivers = window.session().drivers();
    drivers[0]->calls().fail({"SampleChoiceList", 13, "Type mismatch"});
    drivers[1]->calls().fail({"BlockSizeChoiceList"});
    drivers[3]->calls().fail({"StopMode set", 70, "Permission denied"});
    page(window).optStopTime.userClicked();
    window.instruments().handOver();
    return whole(window);
}

/// Types an invalid number.
QPixmap invalid(FrameWindow& window)
{
    QWidget* box = window.page().view().widget(page(window).txtDuration);
    QTest::mouseClick(box, Qt::LeftButton);
    QTest::keyClicks(box, QStringLiteral("12.5x"));
    return whole(window);
}

/// Moves the focus by the keyboard, so that the focus frame is painted.
QPixmap keyboard(FrameWindow& window)
{
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : &window, Qt::Key_Tab);
    return whole(window);
}

QPixmap offers(FrameWindow& window)
{
    return dialogOf([&] { page(window).cmdSampleRateOffers.userClicked(); });
}

/// Enters a duration beyond the limit, which is refused.
QPixmap whatFits(FrameWindow& window)
{
    page(window).moveFocus(&page(window).txtDuration);
    QTimer::singleShot(300, [] { QApplication::activeModalWidget()->close(); });
    page(window).txtDuration.userReplaced("10800", 0, 0);
    return whole(window);
}

/// Appends the accessibility data of an element and its children, one element per line.
void describe(QAccessibleInterface& element, int depth, QStringList& lines)
{
    static const QMetaEnum roles = QMetaEnum::fromType<QAccessible::Role>();
    const QString name = element.text(QAccessible::Name);
    const QString value = element.text(QAccessible::Value);
    const QString hint = element.text(QAccessible::Description);
    if (!name.isEmpty()) {
        QString line = QString(qsizetype{2} * depth, QLatin1Char(' ')) + name +
                       QStringLiteral(" [%1]").arg(roles.valueToKey(element.role()));
        if (!value.isEmpty())
            line += QStringLiteral(" = ") + value;
        lines << (hint.isEmpty() ? line : line + QStringLiteral("  (%1)").arg(hint));
    }
    for (int i = 0; i < element.childCount(); ++i)
        if (QAccessibleInterface* child = element.child(i))
            if (!child->state().invisible)
                describe(*child, name.isEmpty() ? depth : depth + 1, lines);
}

QPixmap screenReader(FrameWindow& window)
{
    onTrigger(window);
    QApplication::processEvents();
    QStringList lines;
    describe(*QAccessible::queryAccessibleInterface(&window.page().view()), 0, lines);
    QPlainTextEdit text;
    text.setPlainText(lines.join(QLatin1Char('\n')));
    text.resize(1000, text.fontMetrics().lineSpacing() * (int(lines.size()) + 3));
    return text.grab();
}

constexpr Scene all[]{
    {"page", whole},
    {"trigger", trigger},
    {"plan", plan},
    {"sheet", sheet},
    {"select-channel", selectChannel},
    {"date-time", dateTime},
    {"trigger-lines", triggerLines},
    {"failing-instruments", failingInstruments},
    {"invalid", invalid},
    {"offers", offers},
    {"what-fits", whatFits},
    {"keyboard", keyboard},
    {"screen-reader", screenReader},
};

} // namespace

std::span<const Scene> scenes()
{
    return all;
}

} // namespace ko::pictures

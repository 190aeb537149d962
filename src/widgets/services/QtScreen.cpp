#include "widgets/services/QtScreen.h"

#include "platform/DateTimes.h"

#include <QApplication>
#include <QCursor>
#include <QDateTime>
#include <QScreen>
#include <QStyle>

namespace ko {

namespace {

constexpr double twipsPerInch = 1440.0;

QScreen* screenAtCursor()
{
    QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
    return screen ? screen : QGuiApplication::primaryScreen();
}

double twipsPerPixel(double (QScreen::*dotsPerInch)() const)
{
    const QScreen* screen = screenAtCursor();
    const double dots = screen ? (screen->*dotsPerInch)() : 0.0;
    // A screen may know no resolution.
    return dots > 0.0 ? twipsPerInch / dots : 15.0;
}

} // namespace

Point QtScreen::cursorPosition()
{
    return {QCursor::pos().x(), QCursor::pos().y()};
}

std::optional<Rectangle> QtScreen::workArea()
{
    const QScreen* screen = screenAtCursor();
    if (!screen)
        return std::nullopt;
    const QRect area = screen->availableGeometry();
    return Rectangle{area.left(), area.top(), area.left() + area.width(), area.top() + area.height()};
}

Point QtScreen::size()
{
    const QScreen* screen = screenAtCursor();
    const QSize pixels = screen ? screen->size() : QSize();
    return {static_cast<std::int32_t>(pixels.width() * twipsPerPixelX()),
            static_cast<std::int32_t>(pixels.height() * twipsPerPixelY())};
}

double QtScreen::twipsPerPixelX()
{
    return twipsPerPixel(&QScreen::logicalDotsPerInchX);
}

double QtScreen::twipsPerPixelY()
{
    return twipsPerPixel(&QScreen::logicalDotsPerInchY);
}

std::int32_t QtScreen::verticalScrollBarWidth()
{
    return QApplication::style()->pixelMetric(QStyle::PM_ScrollBarExtent);
}

DateTime QtClock::now()
{
    if (standing_ || ticked_)
        return standing_ ? *standing_ : *ticked_;
    const QDateTime now = QDateTime::currentDateTime();
    const QDate date = now.date();
    const QTime time = now.time();
    return {dateSerial(date.year(), date.month(), date.day()).days +
            timeSerial(time.hour(), time.minute(), time.second()).days};
}

DateTime QtClock::tick()
{
    ticked_.reset();
    ticked_ = now();
    return *ticked_;
}

} // namespace ko

#include "widgets/bindings/PeriodTip.h"

#include "widgets/support/PlainText.h"

#include <QHelpEvent>
#include <QLocale>
#include <QToolTip>
#include <QWidget>
#include <cmath>
#include <utility>

namespace ko {

QString periodText(double seconds)
{
    const std::pair<double, const char*> units[] = {
        {1.0, "s"}, {1e-3, "ms"}, {1e-6, "\xC2\xB5s"}, {1e-9, "ns"}, {1e-12, "ps"}};
    constexpr double roundsUp = 0.99995; // to 1 of the unit, with four digits
    for (const auto& [unit, symbol] : units) {
        const double number = seconds / unit;
        if (!std::isfinite(number) || number < roundsUp)
            continue;
        QLocale locale;
        locale.setNumberOptions(QLocale::OmitGroupSeparator);
        const int digits = std::max(4, static_cast<int>(std::floor(std::log10(number))) + 1);
        return locale.toString(number, 'g', digits) + QLatin1Char(' ') + QString::fromUtf8(symbol);
    }
    return {};
}

PeriodTip::PeriodTip(QWidget& widget, std::function<std::optional<double>()> seconds)
    : QObject(&widget), widget_(widget), seconds_(std::move(seconds))
{
    widget.installEventFilter(this);
}

bool PeriodTip::eventFilter(QObject*, QEvent* event)
{
    const auto seconds = event->type() == QEvent::ToolTip ? seconds_() : std::nullopt;
    const QString text = seconds ? periodText(*seconds) : QString();
    if (text.isEmpty())
        return false;
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                       plainTip(widget_.statusTip() + QLatin1Char('\n') + text), &widget_);
    return true;
}

} // namespace ko

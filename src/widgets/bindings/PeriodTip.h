#pragma once

#include <QObject>
#include <functional>
#include <optional>

class QWidget;

namespace ko {

/// A period with four digits in s, ms, µs, ns or ps, as "39.06 µs"; empty when it is not above 0.
QString periodText(double seconds);

/// Adds a period, if it is known, to the tool tip of a widget and its parts whenever the tip is shown.
class PeriodTip : public QObject {
public:
    PeriodTip(QWidget& widget, std::function<std::optional<double>()> seconds);

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    QWidget& widget_;
    std::function<std::optional<double>()> seconds_;
};

} // namespace ko

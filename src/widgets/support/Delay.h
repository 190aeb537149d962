#pragma once

#include <QTimer>

namespace ko {

/// A timer that fires once, after the last start.
class Delay : public QTimer {
public:
    explicit Delay(QObject* parent = nullptr) : QTimer(parent) { setSingleShot(true); }
};

} // namespace ko

#pragma once

#include <QToolButton>

namespace ko {

class NoInstrumentPicture;

/// The "+" of the picture of the no-instrument screen, as a button in its place. The picture owns it.
class PlusButton : public QToolButton {
public:
    PlusButton(NoInstrumentPicture& picture, const QString& name);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void follow();

    NoInstrumentPicture& picture_;
};

} // namespace ko

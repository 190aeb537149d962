#include "host/window/PlusButton.h"

#include "widgets/bindings/NoInstrumentPicture.h"
#include "widgets/support/PlainText.h"

#include <QEvent>
#include <algorithm>

namespace ko {

PlusButton::PlusButton(NoInstrumentPicture& picture, const QString& name) : QToolButton(&picture), picture_(picture)
{
    setObjectName(QStringLiteral("plus"));
    setText(QStringLiteral("+"));
    setAccessibleName(name);
    setToolTip(plainTip(name));
    setFocusPolicy(Qt::StrongFocus);
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    setFont(large);
    picture.installEventFilter(this);
    follow();
    show();
}

bool PlusButton::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Show || event->type() == QEvent::FontChange)
        follow();
    return QToolButton::eventFilter(watched, event);
}

void PlusButton::follow()
{
    const QRect place = picture_.freeSlot();
    const int side = std::min(place.width(), place.height());
    setGeometry({place.center() - QPoint(side / 2, side / 2), QSize(side, side)});
}

} // namespace ko

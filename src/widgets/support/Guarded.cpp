#include "widgets/support/Guarded.h"

#include "widgets/support/Convert.h"

#include <QAbstractButton>
#include <QAction>
#include <QCoreApplication>

namespace ko {

namespace {

QString reasonOf(const std::exception_ptr& failure)
{
    try {
        std::rethrow_exception(failure);
    } catch (const std::exception& error) {
        return QString::fromUtf8(error.what());
    } catch (...) {
        return QStringLiteral("a failure of unknown kind");
    }
}

} // namespace

void tellLeftOver(const QString& doing, const std::exception_ptr& failure) noexcept
{
    try {
        const QString reason = reasonOf(failure);
        qCritical("A failure was left over: %s", qUtf8Printable(reason));
        if (auto* listener = dynamic_cast<LeftOvers*>(QCoreApplication::instance()))
            listener->leftOver(doing, reason);
    } catch (...) {
        qCritical("A failure was left over");
    }
}

QString captionOf(const QObject* sender)
{
    if (const auto* action = qobject_cast<const QAction*>(sender))
        return withoutMnemonic(action->text());
    if (const auto* button = qobject_cast<const QAbstractButton*>(sender))
        return withoutMnemonic(button->text());
    const auto* widget = qobject_cast<const QWidget*>(sender);
    return widget ? widget->accessibleName() : QString();
}

} // namespace ko

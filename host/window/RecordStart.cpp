#include "host/window/RecordStart.h"

#include "host/recording/Moments.h"
#include "host/setup/SetupSession.h"
#include "host/window/FrameParts.h"
#include "host/window/UserQuestions.h"
#include "platform/DateTimes.h"
#include "platform/Utf8.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>
#include <cmath>

namespace ko {

namespace {

/// Text as a part of a file's name on every system.
QString asFileName(QString text)
{
    static const QRegularExpression reserved(QStringLiteral("[/\\\\:*?\"<>|\\p{C}]"));
    // Names are bounded in bytes, and date and extension follow.
    constexpr std::size_t atMost = 150;
    return toQt(shortened(fromQt(text.replace(reserved, QStringLiteral("-")).trimmed()), atMost));
}

QString usualFolder()
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

} // namespace

std::string suggestedFile(const SetupSession& session, DateTime now)
{
    const DateParts parts = dateParts(now);
    const QString date =
        QDateTime(QDate(parts.year, parts.month, parts.day), QTime(parts.hour, parts.minute, parts.second))
            .toString(QStringLiteral("yyyy-MM-dd HHmmss"));
    QString title = asFileName(toQt(session.title()));
    if (title.isEmpty())
        title = QFileInfo(toQt(session.name())).completeBaseName();
    const std::string opened = session.opened();
    const QString folder = opened.empty() ? usualFolder() : QFileInfo(toQt(opened)).absolutePath();
    const QString name = QStringLiteral("%1/%2 %3").arg(folder, title, date).trimmed();
    QString file = name + QStringLiteral(".h5");
    for (int number = 2; QFileInfo::exists(file); ++number)
        file = QStringLiteral("%1 (%2).h5").arg(name, QString::number(number));
    return fromQt(file);
}

bool chooseStart(RecordingPlan& plan, const SetupSession& session, UserQuestions& questions, FrameParts& parts)
{
    if (plan.startMode != startMode::atTime)
        return true;
    const double today = std::floor(parts.services.clock.now().days);
    // With its date, a time that passes while the user chooses a file is not taken for that of the next day.
    if (!plan.startTime.hasDate())
        plan.startTime.days += today + (parts.services.clock.now().days - today > plan.startTime.days ? 1.0 : 0.0);
    if (nextMoment(plan.startTime, momentNow(session.clock())))
        return true;
    const Locale& locale = parts.platform.locale;
    const DateTime tomorrow{today + 1.0 + timePart(plan.startTime).days};
    switch (questions.pastStart(toQt(generalDate(plan.startTime, locale)), toQt(generalDate(tomorrow, locale)))) {
    case PastStart::Now: plan.startMode = startMode::immediately; return true;
    case PastStart::Tomorrow: plan.startTime = tomorrow; return true;
    case PastStart::Cancel: break;
    }
    return false;
}

} // namespace ko

#include "widgets/QtLocale.h"

#include "widgets/Convert.h"

#include <QRegularExpression>

namespace ko {

namespace {

QString datePicture(const QLocale& locale)
{
    QString picture = locale.dateFormat(QLocale::ShortFormat);
    picture.replace(QRegularExpression(QStringLiteral("y+")), QStringLiteral("yyyy"));
    picture.replace(QRegularExpression(QStringLiteral("M{3,}")), QStringLiteral("MM"));
    static const QRegularExpression plain(
        QStringLiteral("^(?=.*d)(?=.*M)(?=.*y)[^a-zA-Z']*((d|dd|M|MM|yyyy)[^a-zA-Z']*){3}$"));
    return plain.match(picture).hasMatch() ? picture : QStringLiteral("yyyy-MM-dd");
}

QString timePicture(const QLocale& locale)
{
    QString picture = locale.timeFormat(QLocale::LongFormat);
    picture.replace(QChar(0x202f), u' ').replace(QChar(0xa0), u' ');
    picture.remove(QRegularExpression(QStringLiteral("[ (\\[]*\\bt+\\b[)\\]]*")));
    const bool twelveHours = picture.contains(u'a', Qt::CaseInsensitive);
    picture.replace(QRegularExpression(QStringLiteral("[aA][pP]?")), QStringLiteral("tt"));
    if (!twelveHours)
        picture.replace(u'h', u'H');
    picture = picture.trimmed();
    static const QRegularExpression plain(
        QStringLiteral("^(tt *)?([hH]{1,2})([^a-zA-Z']+)m{1,2}[^a-zA-Z']+s{1,2}( *tt)?$"));
    if (plain.match(picture).hasMatch())
        return picture;
    return twelveHours ? QStringLiteral("h:mm:ss tt") : QStringLiteral("HH:mm:ss");
}

/// What stands between hours and minutes.
QString separatorOf(const QString& timePicture)
{
    static const QRegularExpression between(QStringLiteral("[hH]+([^a-zA-Z']+)m"));
    return between.match(timePicture).captured(1);
}

} // namespace

Locale toLocale(const QLocale& locale)
{
    Locale settings;
    if (locale.language() == QLocale::C)
        return settings;
    const QString time = timePicture(locale);
    settings.decimalSeparator = fromQt(locale.decimalPoint());
    settings.digitGroupSeparator = fromQt(locale.groupSeparator());
    settings.shortDateFormat = fromQt(datePicture(locale));
    settings.timeFormat = fromQt(time);
    settings.timeIs24Hour = time.contains(u'H') ? "1" : "0";
    settings.timeLeadingZero = time.contains(QStringLiteral("hh"), Qt::CaseInsensitive) ? "1" : "0";
    settings.timeSeparator = fromQt(separatorOf(time));
    settings.amDesignator = fromQt(locale.amText());
    settings.pmDesignator = fromQt(locale.pmText());
    return settings;
}

} // namespace ko

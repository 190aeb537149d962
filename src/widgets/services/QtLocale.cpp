#include "widgets/services/QtLocale.h"

#include "widgets/support/Convert.h"

#include <QRegularExpression>
#include <utility>

namespace ko {

namespace {

/// The text as a user would type it: with ordinary blanks and without direction marks.
QString typeable(QString text)
{
    static const QRegularExpression blanks(QStringLiteral("[\\x{a0}\\x{2009}\\x{202f}]"));
    static const QRegularExpression marks(QStringLiteral("[\\x{61c}\\x{200e}\\x{200f}]"));
    return text.replace(blanks, QStringLiteral(" ")).remove(marks);
}

QString datePicture(const QLocale& locale)
{
    QString picture = typeable(locale.dateFormat(QLocale::ShortFormat));
    picture.replace(QRegularExpression(QStringLiteral("y+")), QStringLiteral("yyyy"));
    picture.replace(QRegularExpression(QStringLiteral("M{3,}")), QStringLiteral("MM"));
    static const QRegularExpression plain(
        QStringLiteral("^(?=.*d)(?=.*M)(?=.*y)[^a-zA-Z']*((d|dd|M|MM|yyyy)[^a-zA-Z']*){3}$"));
    return plain.match(picture).hasMatch() ? picture : QStringLiteral("yyyy-MM-dd");
}

QString timePicture(const QLocale& locale)
{
    QString picture = typeable(locale.timeFormat(QLocale::LongFormat));
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

/// The separator between hours and minutes.
QString separatorOf(const QString& timePicture)
{
    static const QRegularExpression between(QStringLiteral("[hH]+([^a-zA-Z']+)m"));
    return between.match(timePicture).captured(1);
}

/// Numbers are written with Latin digits, which must not be combined with separators of other digits.
void takeNumbers(const QLocale& locale, Locale& settings)
{
    if (locale.zeroDigit() != QStringLiteral("0"))
        return;
    settings.decimalSeparator = fromQt(locale.decimalPoint());
    settings.digitGroupSeparator = fromQt(locale.groupSeparator());
}

/// The system may have a user's locale for numbers but the C locale for times, or the reverse.
bool hasTimesOfC(const QLocale& locale)
{
    const auto formats = [](const QLocale& of) {
        return std::pair(of.dateFormat(QLocale::ShortFormat), of.timeFormat(QLocale::LongFormat));
    };
    return formats(locale) == formats(QLocale::c());
}

void takeTimes(const QLocale& locale, Locale& settings)
{
    const QString time = timePicture(locale);
    settings.shortDateFormat = fromQt(datePicture(locale));
    settings.timeFormat = fromQt(time);
    settings.timeIs24Hour = time.contains(u'H') ? "1" : "0";
    settings.timeLeadingZero = time.contains(QStringLiteral("hh"), Qt::CaseInsensitive) ? "1" : "0";
    settings.timeSeparator = fromQt(separatorOf(time));
    settings.amDesignator = fromQt(typeable(locale.amText()));
    settings.pmDesignator = fromQt(typeable(locale.pmText()));
}

} // namespace

Locale toLocale(const QLocale& locale)
{
    Locale settings;
    takeNumbers(locale, settings);
    if (!hasTimesOfC(locale))
        takeTimes(locale, settings);
    return settings;
}

} // namespace ko

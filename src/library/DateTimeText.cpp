#include "DateTimeText.h"

#include <QRegularExpression>

namespace DateTimeText {

QString mediumDateFormat(const QLocale &locale)
{
    QString format = locale.dateFormat(QLocale::LongFormat);
    // The weekday and whatever separates it from the rest ("dddd, ", " dddd").
    static const QRegularExpression weekday(QStringLiteral("\\s*,?\\s*d{4}\\s*,?\\s*"));
    const QRegularExpressionMatch match = weekday.match(format);
    if (match.hasMatch()) {
        const bool atStart = match.capturedStart() == 0;
        const bool atEnd = match.capturedEnd() == format.size();
        format.replace(match.capturedStart(), match.capturedLength(),
                       atStart || atEnd ? QString() : QStringLiteral(" "));
    }
    format.replace(QStringLiteral("MMMM"), QStringLiteral("MMM"));
    return format.trimmed();
}

QString mediumDateShortTime(const QDateTime &dateTime, const QLocale &locale)
{
    return locale.toString(dateTime, mediumDateFormat(locale) + QLatin1Char(' ') +
                                         locale.timeFormat(QLocale::ShortFormat));
}

} // namespace DateTimeText

#include "NoteTitles.h"

namespace NoteTitles {

QString timeText(const QDateTime &moment, const QLocale &locale)
{
    return locale.toString(moment.time(), QLocale::ShortFormat);
}

QString dateText(const QDateTime &moment, const QLocale &locale)
{
    return locale.toString(moment.date(), QLocale::LongFormat);
}

QString typedTitle(const QString &time, const QString &date)
{
    return time + QStringLiteral(" - ") + date;
}

QString webTitle(const QString &time, const QString &date)
{
    return typedTitle(time, date) + QStringLiteral(" - Webnote");
}

QString webText(const QString &text, const QString &link)
{
    return text + QStringLiteral("\nLink: ") + link;
}

bool isFromToday(const QString &title, const QString &todayDateText)
{
    return title.contains(todayDateText, Qt::CaseSensitive);
}

QString linkOfNote(const QString &text)
{
    const qsizetype at = text.indexOf(QStringLiteral("Link: http"));
    if (at < 0)
        return QString();
    return text.mid(at + 5).trimmed();
}

SheetLabels sheetLabels(const QDateTime &moment, const QLocale &locale)
{
    return {timeText(moment, locale), moment.date().toString(QStringLiteral("dd")),
            locale.toString(moment.date(), QStringLiteral("dddd")),
            locale.toString(moment.date(), QStringLiteral("MMMM"))};
}

} // namespace NoteTitles

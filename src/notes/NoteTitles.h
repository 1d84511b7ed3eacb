#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>

// The texts a note's title is made of, and what is read back out of titles and texts. The
// title is the only record of when a note was taken: "today" is a text match on it.
namespace NoteTitles {

// Short time, no date: "14:05".
QString timeText(const QDateTime &moment, const QLocale &locale);
// Full date, no time: "Sunday, 15 November 2026".
QString dateText(const QDateTime &moment, const QLocale &locale);
// "time - date" for a typed note, "time - date - Webnote" for one captured from a link.
QString typedTitle(const QString &time, const QString &date);
QString webTitle(const QString &time, const QString &date);
// A captured note's text: the selected text, then the page's address.
QString webText(const QString &text, const QString &link);

// True when the title holds today's date text anywhere (case-sensitive).
bool isFromToday(const QString &title, const QString &todayDateText);
// The address after "Link: http" up to the end of the text, trimmed; empty when none.
QString linkOfNote(const QString &text);

// The four labels of the add sheet, filled when it opens.
struct SheetLabels
{
    QString time;
    QString day;     // day of the month, two digits
    QString weekday; // full name
    QString month;   // full name
};
SheetLabels sheetLabels(const QDateTime &moment, const QLocale &locale);

} // namespace NoteTitles

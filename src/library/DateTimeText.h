#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>

// The date and time put into an entry: the locale's medium date ("Nov 25, 2026") and short
// time, made by one formatter so both follow the same locale.
namespace DateTimeText {
// The locale's long date pattern without the weekday and with abbreviated month names.
QString mediumDateFormat(const QLocale &locale);
QString mediumDateShortTime(const QDateTime &dateTime, const QLocale &locale = QLocale::system());
} // namespace DateTimeText

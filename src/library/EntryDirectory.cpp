#include "EntryDirectory.h"

#include "CreationDate.h"
#include "FileStatus.h"
#include "core/Settings.h"
#include "core/UserDefaults.h"

#include <QFile>
#include <QHash>
#include <QLocale>
#include <QStringDecoder>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

EntryListSettings EntryListSettings::fromDefaults(const UserDefaults &defaults)
{
    EntryListSettings s;
    s.extension = defaults.value(Settings::DefaultFileExtensionForEntries);
    s.whiteText = defaults.value(Settings::UseBlackDocument);
    s.showDates = defaults.value(Settings::FileBrowserDisplayDatesRows) != 0;
    s.showExcerpt = defaults.value(Settings::FileBrowserDisplayNumberRows) != 0;
    s.excerptLines = defaults.value(Settings::FileBrowserDisplayNumberRowsCount);
    s.titleSize = defaults.value(Settings::FileBrowserDisplayTitleFontSize);
    s.infoSize = defaults.value(Settings::FileBrowserDisplayInfotextFontSize);
    //% "Created"
    s.createdLabel = qtTrId("FILE_LISTING_CREATED");
    //% "Modified"
    s.modifiedLabel = qtTrId("FILE_LISTING_MODIFIED");
    //% "This file has been deleted"
    s.deletedLabel = qtTrId("FILE_HAS_BEEN_DELETED");
    return s;
}

QString EntryDirectory::pathExtension(const QString &name)
{
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    return dot < 0 ? QString() : name.mid(dot + 1);
}

QString EntryDirectory::deletingPathExtension(const QString &name)
{
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    return dot < 0 ? name : name.left(dot);
}

QStringList EntryDirectory::listEntries(const QString &folderPath, const QString &extension)
{
    // Names only: the rows stat each entry once when they are built.
    QStringList names;
    DIR *dir = ::opendir(QFile::encodeName(folderPath).constData());
    if (!dir)
        return names;
    while (const struct dirent *item = ::readdir(dir)) {
        const QString name = QFile::decodeName(item->d_name);
        if (name != QLatin1String(".") && name != QLatin1String("..") &&
            pathExtension(name) == extension)
            names << name;
    }
    ::closedir(dir);
    // Plain code-point order, as the original file system gave it.
    std::sort(names.begin(), names.end());
    return names;
}

QString EntryDirectory::dateText(const QDateTime &dateTime)
{
    return dateText(dateTime, QLocale::system());
}

QString EntryDirectory::dateText(const QDateTime &dateTime, const QLocale &locale)
{
    return locale.toString(dateTime.date(), QLocale::LongFormat) + QStringLiteral(" - ") +
           locale.toString(dateTime.time(), QLocale::ShortFormat);
}

EntryListing EntryDirectory::listWithRows(const QString &notebookPath,
                                          const EntryListSettings &settings, int previousHeight)
{
    EntryListing listing;
    listing.listofFiles = listEntries(notebookPath, settings.extension);
    listing.display =
        formatTableItemsForDisplay(listing.listofFiles, notebookPath, settings, previousHeight);
    return listing;
}

namespace {
// The first characters of a file read as UTF-8; a file that is not UTF-8 gives nothing.
QString excerptOf(const QByteArray &path, qint64 size, int characters)
{
    if (characters <= 0)
        return QString();
    const int fd = ::open(path.constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return QString();
    // Four bytes per character at most, plus room for a byte-order mark.
    QByteArray bytes(qsizetype(qMin<qint64>(size, qint64(characters) * 4 + 3)), Qt::Uninitialized);
    qsizetype got = 0;
    while (got < bytes.size()) {
        const ssize_t n = ::read(fd, bytes.data() + got, size_t(bytes.size() - got));
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            break;
        got += n;
    }
    ::close(fd);
    bytes.truncate(got);
    // Cut off inside the file, the last sequence may be incomplete; at its end it may not.
    QStringDecoder decoder(QStringDecoder::Utf8, got >= size ? QStringConverter::Flag::Stateless
                                                             : QStringConverter::Flag::Default);
    const QString text = decoder.decode(bytes);
    if (decoder.hasError())
        return QString();
    return text.left(characters);
}

// The rows' dates: local time from the C library (the zone read once per listing) and the
// locale's texts remembered per day and per second of the day, as a notebook's entries share
// most of them. QDateTime's own conversion would cost more than the stat of each entry.
class ListingDates
{
public:
    ListingDates()
        : m_locale(QLocale::system())
    {
        ::tzset();
    }

    QString text(qint64 msecs)
    {
        const time_t seconds = time_t(msecs >= 0 ? msecs / 1000 : (msecs - 999) / 1000);
        struct tm local = {};
        if (!::localtime_r(&seconds, &local))
            return EntryDirectory::dateText(QDateTime::fromMSecsSinceEpoch(msecs), m_locale);
        const QDate date(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
        const int second = local.tm_hour * 3600 + local.tm_min * 60 + qMin(local.tm_sec, 59);
        auto day = m_days.constFind(date.toJulianDay());
        if (day == m_days.cend())
            day = m_days.insert(date.toJulianDay(), m_locale.toString(date, QLocale::LongFormat));
        auto time = m_times.constFind(second);
        if (time == m_times.cend())
            time = m_times.insert(
                second, m_locale.toString(QTime(0, 0).addSecs(second), QLocale::ShortFormat));
        return *day + QStringLiteral(" - ") + *time;
    }

private:
    QLocale m_locale;
    QHash<qint64, QString> m_days;
    QHash<int, QString> m_times;
};
} // namespace

EntryDisplayList EntryDirectory::formatTableItemsForDisplay(const QStringList &listofFiles,
                                                            const QString &notebookPath,
                                                            const EntryListSettings &settings,
                                                            int previousHeight)
{
    EntryDisplayList result;
    result.heightOfFileTableRow = previousHeight;
    const int T = settings.titleSize;
    const int I = settings.infoSize;
    const int L = I < 13 ? I + 3 : I + 4;
    ListingDates dates;
    const QString infoFormat = QStringLiteral("\n    %1: %2\n    %3: %4");
    result.rows.reserve(listofFiles.size());
    for (const QString &name : listofFiles) {
        const QByteArray path = QFile::encodeName(notebookPath + name);
        EntryDisplayRow row;
        row.fileName = name;
        row.whiteText = settings.whiteText;
        row.titleLine = QStringLiteral("  ") + deletingPathExtension(name);
        // The one stat of this entry in this listing.
        const FileStatus status = FileStatus::ofEncoded(path);
        if (!status.exists) {
            row.deleted = true;
            row.infoText = QStringLiteral("\n") + settings.deletedLabel;
            row.titleSize = 12;
            row.infoSize = 12;
            result.rows << row;
            continue;
        }
        row.titleSize = T;
        row.infoSize = I;
        int n = 0;
        if (settings.showDates) {
            row.infoText = infoFormat.arg(settings.createdLabel,
                                          dates.text(CreationDate::msecsOf(path, status)),
                                          settings.modifiedLabel, dates.text(status.modifiedMs));
            n = 2;
        }
        if (settings.showExcerpt) {
            const int c = settings.excerptLines;
            row.excerpt = QStringLiteral("\n") +
                          (status.isDirectory ? QString() : excerptOf(path, status.size, c * 50));
            n += c;
        }
        result.heightOfFileTableRow = T + 5 + L * n;
        result.rows << row;
    }
    return result;
}

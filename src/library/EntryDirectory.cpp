#include "EntryDirectory.h"

#include "CreationDate.h"
#include "FileStatus.h"
#include "core/Settings.h"
#include "core/UserDefaults.h"

#include <QFile>
#include <QLocale>
#include <QStringDecoder>

#include <algorithm>
#include <dirent.h>

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
// The first characters of a file read as UTF-8; a file that is not UTF-8 (or is a folder)
// gives nothing.
QString excerptOf(const QString &path, int characters)
{
    QFile file(path);
    if (characters <= 0 || !file.open(QIODevice::ReadOnly))
        return QString();
    // Four bytes per character at most, plus room for a byte-order mark.
    const QByteArray bytes = file.read(qint64(characters) * 4 + 3);
    // Cut off inside the file, the last sequence may be incomplete; at its end it may not.
    QStringDecoder decoder(QStringDecoder::Utf8, file.atEnd() ? QStringConverter::Flag::Stateless
                                                              : QStringConverter::Flag::Default);
    const QString text = decoder.decode(bytes);
    if (decoder.hasError())
        return QString();
    return text.left(characters);
}
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
    const QLocale locale = QLocale::system();
    result.rows.reserve(listofFiles.size());
    for (const QString &name : listofFiles) {
        const QString path = notebookPath + name;
        EntryDisplayRow row;
        row.fileName = name;
        row.whiteText = settings.whiteText;
        const FileStatus status = FileStatus::of(path);
        if (!status.exists) {
            row.deleted = true;
            row.titleLine = QStringLiteral("  ") + deletingPathExtension(name);
            row.infoText = QStringLiteral("\n") + settings.deletedLabel;
            row.titleSize = 12;
            row.infoSize = 12;
            result.rows << row;
            continue;
        }
        row.titleSize = T;
        row.infoSize = I;
        row.titleLine = QStringLiteral("  ") + deletingPathExtension(name);
        int n = 0;
        if (settings.showDates) {
            row.infoText =
                QStringLiteral("\n    %1: %2\n    %3: %4")
                    .arg(settings.createdLabel, dateText(CreationDate::of(path, status), locale),
                         settings.modifiedLabel, dateText(status.modified, locale));
            n = 2;
        }
        if (settings.showExcerpt) {
            const int c = settings.excerptLines;
            row.excerpt =
                QStringLiteral("\n") + (status.isDirectory ? QString() : excerptOf(path, c * 50));
            n += c;
        }
        result.heightOfFileTableRow = T + 5 + L * n;
        result.rows << row;
    }
    return result;
}

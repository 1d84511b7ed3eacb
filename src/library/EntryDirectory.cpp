#include "EntryDirectory.h"

#include "EntryFile.h"
#include "core/UserDefaults.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QStringDecoder>

#include <algorithm>

EntryListSettings EntryListSettings::fromDefaults(const UserDefaults &defaults)
{
    EntryListSettings s;
    s.extension = defaults.stringForKey(QStringLiteral("defaultFileExtensionForEntries"));
    s.whiteText = defaults.boolForKey(QStringLiteral("USEBLACKDOCUMENT"));
    s.showDates = defaults.boolForKey(QStringLiteral("FILEBROWSER_DISLAY_DATES_ROWS"));
    s.showExcerpt = defaults.boolForKey(QStringLiteral("FILEBROWSER_DISLAY_NUMBER_ROWS"));
    s.excerptLines = defaults.integerForKey(QStringLiteral("FILEBROWSER_DISLAY_NUMBER_ROWS_COUNT"));
    s.titleSize = defaults.integerForKey(QStringLiteral("FILEBROWSER_DISLAY_TITLE_FONT_SIZE"));
    s.infoSize = defaults.integerForKey(QStringLiteral("FILEBROWSER_DISLAY_INFOTEXT_FONT_SIZE"));
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
    QStringList names =
        QDir(folderPath)
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                       QDir::Unsorted);
    names.erase(std::remove_if(names.begin(), names.end(),
                               [&](const QString &n) { return pathExtension(n) != extension; }),
                names.end());
    // Plain code-point order, as the original file system gave it.
    std::sort(names.begin(), names.end());
    return names;
}

QString EntryDirectory::dateText(const QDateTime &dateTime)
{
    const QLocale locale = QLocale::system();
    return locale.toString(dateTime.date(), QLocale::LongFormat) + QStringLiteral(" - ") +
           locale.toString(dateTime.time(), QLocale::ShortFormat);
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
    for (const QString &name : listofFiles) {
        const QString path = notebookPath + name;
        EntryDisplayRow row;
        row.fileName = name;
        row.whiteText = settings.whiteText;
        const QFileInfo info(path);
        if (!info.exists()) {
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
            row.infoText = QStringLiteral("\n    %1: %2\n    %3: %4")
                               .arg(settings.createdLabel, dateText(EntryFile::creationDate(path)),
                                    settings.modifiedLabel, dateText(info.lastModified()));
            n = 2;
        }
        if (settings.showExcerpt) {
            const int c = settings.excerptLines;
            row.excerpt = QStringLiteral("\n") + excerptOf(path, c * 50);
            n += c;
        }
        result.heightOfFileTableRow = T + 5 + L * n;
        result.rows << row;
    }
    return result;
}

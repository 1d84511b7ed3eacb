#pragma once

#include <QDateTime>
#include <QList>
#include <QLocale>
#include <QString>
#include <QStringList>

class UserDefaults;

// The settings and texts the entry list is drawn with, copied so the rows can be built away
// from the UI thread.
struct EntryListSettings
{
    QString extension = QStringLiteral("txt");
    bool whiteText = false;
    bool showDates = true;
    bool showExcerpt = false;
    int excerptLines = 2;
    int titleSize = 12;
    int infoSize = 11;
    QString createdLabel;
    QString modifiedLabel;
    QString deletedLabel;

    static EntryListSettings fromDefaults(const UserDefaults &defaults);
};

// One row of the entry list. The title line is bold at titleSize, the rest at infoSize.
struct EntryDisplayRow
{
    QString fileName;
    QString titleLine; // "  <title>"
    QString infoText;  // "\n    Created: ...\n    Modified: ..." or the deleted notice
    QString excerpt;   // "\n<first lines>" or empty
    bool deleted = false;
    bool whiteText = false;
    int titleSize = 12;
    int infoSize = 11;

    QString text() const { return titleLine + infoText + excerpt; }
};

struct EntryDisplayList
{
    QList<EntryDisplayRow> rows;
    int heightOfFileTableRow = 0;
};

// A notebook's entries and their rows, from one pass over the folder.
struct EntryListing
{
    QStringList listofFiles;
    EntryDisplayList display;
};

// Which items of a notebook folder are entries, and the rows that show them.
class EntryDirectory
{
public:
    // Items directly inside the folder (hidden ones and folders included) whose extension
    // equals the given one exactly, in plain name order. An unreadable folder gives none.
    static QStringList listEntries(const QString &folderPath, const QString &extension);

    // Each row stats its entry once; the created date is the carried one (CreationDate).
    // previousHeight is kept when no existing entry sets a new one.
    static EntryDisplayList formatTableItemsForDisplay(const QStringList &listofFiles,
                                                       const QString &notebookPath,
                                                       const EntryListSettings &settings,
                                                       int previousHeight);

    // listEntries and formatTableItemsForDisplay together: a full relist.
    static EntryListing listWithRows(const QString &notebookPath, const EntryListSettings &settings,
                                     int previousHeight);

    // "a.txt" -> "txt", ".txt" -> "txt", "a" -> "".
    static QString pathExtension(const QString &name);
    // "a.txt" -> "a", ".txt" -> "", "a" -> "a".
    static QString deletingPathExtension(const QString &name);

    // The long date and short time of the platform's locale: "<date> - <time>".
    static QString dateText(const QDateTime &dateTime);
    static QString dateText(const QDateTime &dateTime, const QLocale &locale);
};

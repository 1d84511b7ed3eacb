#pragma once

#include <QImage>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariantMap>

class UserDefaults;

// The ordered list of notebooks kept in Settings::DiarySaveDestinations. Each record holds
// "DiaryName", "DiaryDocumentPath" (no trailing slash, "" until a location is chosen) and,
// on platforms with access bookmarks, "DiarySecURL" (never written here).
class NotebookRegistry
{
public:
    static const QString NameKey;
    static const QString PathKey;
    static const QString SecUrlKey;
    static const QString IconFileName;
    static constexpr int MaxNameSuffix = 99;

    explicit NotebookRegistry(UserDefaults &defaults);

    bool exists() const;
    QList<QVariantMap> records() const;
    void store(const QList<QVariantMap> &records);
    int count() const;
    QVariantMap record(int index) const;

    // The "DiaryName" values in list order.
    QStringList getDiaryTitles() const;
    // "%@/" of the record's path: the form the main window keeps as the current notebook.
    QString savePathForIndex(int index) const;
    static QString iconPathForFolder(const QString &folder);
    // The notebook's icon, or a null image when it has none (callers use the folder icon).
    static QImage iconForFolder(const QString &folder);

    // "<base> (c)" for the first c in 0..99 that no notebook is called; 99 even when taken.
    static QString uniqueNewName(const QString &base, const QStringList &existing);
    // Appends a notebook with that name and no location; returns its index.
    int createNew(const QString &base);

    enum class SaveResult { Saved, NoLocation, NameExists };
    // Checks and stores the record at index; the stored bookmark survives an unchanged path.
    SaveResult saveRecord(int index, const QString &name, const QString &path);

    // Removes the record at index; refused (false) when it is the last one.
    bool remove(int index);

    // The drag-and-drop rule of the order table: the record at from ends at to when it came
    // from below, at to - 1 when it came from above.
    static void moveRecord(QList<QVariantMap> &records, int from, int to);
    void move(int from, int to);

    // First-run: the list holding exactly this one notebook.
    void storeFirstNotebook(const QString &name, const QString &path);

private:
    UserDefaults &m_defaults;
};

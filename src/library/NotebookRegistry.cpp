#include "NotebookRegistry.h"

#include "core/Settings.h"
#include "core/UserDefaults.h"

#include <QFileInfo>
#include <QImageReader>

const QString NotebookRegistry::NameKey = QStringLiteral("DiaryName");
const QString NotebookRegistry::PathKey = QStringLiteral("DiaryDocumentPath");
const QString NotebookRegistry::SecUrlKey = QStringLiteral("DiarySecURL");
const QString NotebookRegistry::IconFileName = QStringLiteral(".DiaryIcon.png");

NotebookRegistry::NotebookRegistry(UserDefaults &defaults)
    : m_defaults(defaults)
{}

bool NotebookRegistry::exists() const
{
    return m_defaults.hasStoredValue(Settings::DiarySaveDestinations);
}

QList<QVariantMap> NotebookRegistry::records() const
{
    return m_defaults.value(Settings::DiarySaveDestinations);
}

void NotebookRegistry::store(const QList<QVariantMap> &records)
{
    m_defaults.setValue(Settings::DiarySaveDestinations, records);
}

int NotebookRegistry::count() const
{
    return int(records().size());
}

QVariantMap NotebookRegistry::record(int index) const
{
    const auto list = records();
    return (index >= 0 && index < list.size()) ? list.at(index) : QVariantMap();
}

QStringList NotebookRegistry::getDiaryTitles() const
{
    QStringList titles;
    for (const QVariantMap &r : records())
        titles << r.value(NameKey).toString();
    return titles;
}

QString NotebookRegistry::savePathForIndex(int index) const
{
    // A notebook without a folder has no path at all: never "/", the file-system root.
    const QString path = record(index).value(PathKey).toString();
    return path.isEmpty() ? QString() : path + QLatin1Char('/');
}

QString NotebookRegistry::iconPathForFolder(const QString &folder)
{
    return folder + QLatin1Char('/') + IconFileName;
}

QImage NotebookRegistry::iconForFolder(const QString &folder)
{
    if (folder.isEmpty())
        return QImage();
    // QImageReader tries a dozen suffixes on a missing file: look once instead.
    const QString path = iconPathForFolder(folder);
    if (!QFileInfo::exists(path))
        return QImage();
    QImageReader reader(path);
    return reader.read();
}

QString NotebookRegistry::uniqueNewName(const QString &base, const QStringList &existing)
{
    QString candidate;
    for (int c = 0; c <= MaxNameSuffix; ++c) {
        candidate = QStringLiteral("%1 (%2)").arg(base).arg(c);
        if (!existing.contains(candidate))
            break;
    }
    return candidate;
}

int NotebookRegistry::createNew(const QString &base)
{
    auto list = records();
    QVariantMap record;
    record.insert(NameKey, uniqueNewName(base, getDiaryTitles()));
    record.insert(PathKey, QString());
    list.append(record);
    store(list);
    return int(list.size()) - 1;
}

NotebookRegistry::SaveResult NotebookRegistry::saveRecord(int index, const QString &name,
                                                          const QString &path)
{
    if (path.isEmpty())
        return SaveResult::NoLocation;
    const int k = int(getDiaryTitles().indexOf(name));
    if (k >= 0 && k != index)
        return SaveResult::NameExists;

    auto list = records();
    if (index < 0 || index >= list.size())
        return SaveResult::NoLocation;
    const QVariantMap old = list.at(index);
    QVariantMap record;
    record.insert(NameKey, name);
    record.insert(PathKey, path);
    // A bookmark is only worth keeping while it still points at the same folder; this
    // platform makes none, so a changed path simply drops the old one.
    if (old.contains(SecUrlKey) && old.value(PathKey).toString() == path)
        record.insert(SecUrlKey, old.value(SecUrlKey));
    list[index] = record;
    store(list);
    return SaveResult::Saved;
}

bool NotebookRegistry::remove(int index)
{
    auto list = records();
    if (list.size() < 2 || index < 0 || index >= list.size())
        return false;
    list.removeAt(index);
    store(list);
    return true;
}

void NotebookRegistry::moveRecord(QList<QVariantMap> &records, int from, int to)
{
    if (from < 0 || from >= records.size() || to < 0 || to > records.size())
        return;
    const QVariantMap moving = records.at(from);
    if (from >= to) {
        records.removeAt(from);
        records.insert(to, moving);
    } else {
        records.insert(to, moving);
        records.removeAt(from);
    }
}

void NotebookRegistry::move(int from, int to)
{
    auto list = records();
    moveRecord(list, from, to);
    store(list);
}

void NotebookRegistry::storeFirstNotebook(const QString &name, const QString &path)
{
    QVariantMap record;
    record.insert(NameKey, name);
    record.insert(PathKey, path);
    store({record});
}

#include "EntryDocument.h"

#include "core/AppPaths.h"
#include "library/CursorPositionStore.h"
#include "library/EntryLoader.h"
#include "library/EntrySaver.h"
#include "library/TextBundle.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtDebug>

namespace {
void logWriteError(const QString &path, const QString &reason)
{
    qWarning().noquote()
        << QStringLiteral("FILEWRITING-ERROR: %1").arg(path + QStringLiteral(": ") + reason);
}

// "<name> (changed elsewhere 2026-11-24 22.40).<ext>", numbered when taken.
QString asidePath(const QString &path)
{
    const QFileInfo info(path);
    const QString stem = info.completeBaseName();
    const QString suffix = info.suffix().isEmpty() ? QString() : QLatin1Char('.') + info.suffix();
    //% "changed elsewhere"
    const QString label = qtTrId("ENTRY_CHANGED_ELSEWHERE_SUFFIX");
    const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH.mm"));
    QString candidate;
    for (int n = 1;; ++n) {
        const QString number = n == 1 ? QString() : QStringLiteral(" %1").arg(n);
        candidate = info.absolutePath() + QLatin1Char('/') + stem +
                    QStringLiteral(" (%1 %2%3)").arg(label, stamp, number) + suffix;
        if (!QFileInfo::exists(candidate))
            return candidate;
    }
}
} // namespace

EntryDocument::EntryDocument(const QString &notebookPath, const QString &title,
                             const QString &extension)
    : m_notebookPath(notebookPath)
    , m_title(title)
    , m_extension(extension)
{}

QString EntryDocument::fileName() const
{
    return m_title + QLatin1Char('.') + m_extension;
}

bool EntryDocument::isBundle() const
{
    return m_extension == TextBundle::bundleExtension();
}

QString EntryDocument::entryPath() const
{
    return AppPaths::expandTilde(m_notebookPath + fileName());
}

QString EntryDocument::textPath(int language) const
{
    if (!isBundle())
        return entryPath();
    const QString bundle = entryPath();
    return bundle + QLatin1Char('/') + TextBundle::textFileNameForSaving(bundle, language);
}

EntryDocument::Loaded EntryDocument::load(int language)
{
    Loaded loaded;
    loaded.path = textPath(language);
    const QFileInfo info(loaded.path);
    if (!info.exists())
        return loaded;
    loaded.exists = true;
    if (!info.isFile()) {
        loaded.readable = false;
        //% "It is a folder, not a text file."
        loaded.error = qtTrId("ENTRY_NOT_A_FILE");
        return loaded;
    }
    take(EntryLoader::load(loaded.path), &loaded);
    return loaded;
}

EntryDocument::Loaded EntryDocument::reload(int language)
{
    Loaded loaded;
    loaded.path = textPath(language);
    if (!QFileInfo(loaded.path).isFile())
        return loaded;
    loaded.exists = true;
    take(EntryLoader::reload(loaded.path, m_format), &loaded);
    return loaded;
}

void EntryDocument::take(const EntryLoader::Result &result, Loaded *loaded)
{
    loaded->readable = result.readable;
    loaded->error = result.error;
    if (!result.readable)
        return;
    loaded->text = result.text;
    m_format = result.format;
    m_stamp = result.stamp;
}

bool EntryDocument::changedOnDisk(int language) const
{
    return FileStamp::of(textPath(language)) != m_stamp;
}

EntryDocument::Saved EntryDocument::save(const QString &text, int cursor, int language)
{
    Saved saved;
    saved.path = textPath(language);
    const QString notebook = AppPaths::expandTilde(m_notebookPath);
    if (text.isEmpty()) {
        const QFileInfo info(saved.path);
        if (!info.exists() || !info.isFile()) {
            saved.outcome = Outcome::Deleted;
            return saved;
        }
        // Emptying the editor deletes the entry's text, but never text someone else wrote.
        if (FileStamp::of(saved.path) != m_stamp) {
            saved.outcome = Outcome::ChangedOnDisk;
            return saved;
        }
        QFile file(saved.path);
        if (!file.remove()) {
            saved.error = file.errorString();
            logWriteError(saved.path, saved.error);
            return saved;
        }
        m_stamp = FileStamp{};
        saved.outcome = Outcome::Deleted;
        return saved;
    }

    if (isBundle() && !QFileInfo(entryPath()).isDir()) {
        // The bundle folder is ours to make, the notebook folder is not: a vanished notebook
        // must show as missing, not come back empty.
        if (!QFileInfo(notebook).isDir() || !QDir().mkdir(entryPath())) {
            //% "The notebook folder does not exist."
            saved.error = QFileInfo(notebook).isDir() ? QStringLiteral("cannot create folder")
                                                      : qtTrId("ENTRY_NOTEBOOK_FOLDER_MISSING");
            logWriteError(saved.path, saved.error);
            return saved;
        }
    }

    const bool existing = m_stamp.exists;
    const TextFormat format = existing ? m_format : TextFormat{};
    const EntrySaver::Result result =
        EntrySaver::save(saved.path, text, format, m_stamp, QDateTime::currentDateTime());
    if (result.status == EntrySaver::Result::ChangedOnDisk) {
        saved.outcome = Outcome::ChangedOnDisk;
        return saved;
    }
    if (result.status == EntrySaver::Result::Failed) {
        saved.error = result.error;
        logWriteError(saved.path, saved.error);
        return saved;
    }
    m_stamp = result.stamp;
    m_format = result.format;
    if (result.created && isBundle()) {
        QString error;
        if (!TextBundle::createLayout(entryPath(), language, &error))
            logWriteError(entryPath(), error);
    }
    CursorPositionStore::saveCurrentCursorPostionAtIndex(cursor, saved.path);
    // The cursor attribute must not count as someone else's change.
    m_stamp = FileStamp::of(saved.path);
    saved.outcome = result.created ? Outcome::Created : Outcome::Saved;
    return saved;
}

EntryDocument::Saved EntryDocument::saveKeepingMine(const QString &text, int cursor, int language,
                                                    QString *keptAs)
{
    const QString path = textPath(language);
    const FileStamp theirs = FileStamp::of(path);
    if (theirs.exists) {
        const QString aside = asidePath(path);
        if (!QFile::copy(path, aside)) {
            Saved failed;
            failed.path = path;
            //% "Their version could not be kept aside."
            failed.error = qtTrId("ENTRY_THEIRS_NOT_KEPT");
            return failed;
        }
        if (keptAs)
            *keptAs = aside;
    }
    m_stamp = theirs;
    return save(text, cursor, language);
}

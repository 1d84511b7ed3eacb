#include "QuickNoteStore.h"

#include "NoteTitles.h"
#include "QuickNoteFile.h"

#include <QtDebug>

QuickNoteStore::QuickNoteStore(QObject *parent)
    : QObject(parent)
{}

void QuickNoteStore::load(const QString &savePath)
{
    m_savePath = savePath;
    // Before the first notebook exists there is nowhere to keep notes.
    m_filePath = savePath.isEmpty() ? QString() : QuickNoteFile::pathInSavePath(savePath);
    m_notes.clear();
    m_detached = false;
    const QuickNoteFile::Contents contents = QuickNoteFile::read(m_filePath);
    if (contents.status == QuickNoteFile::Contents::Read)
        m_notes = contents.notes;
    m_detached = contents.status == QuickNoteFile::Contents::Damaged;
    Q_EMIT listReset();
    if (m_detached) {
        qWarning().noquote() << "ERROR:" << m_filePath << "cannot be read:" << contents.error;
        Q_EMIT damagedFileFound(m_filePath, contents.error);
    }
}

bool QuickNoteStore::append(const QuickNote &note)
{
    if (m_detached || m_filePath.isEmpty())
        return false;
    m_notes.append(note);
    Q_EMIT noteInserted(count() - 1);
    save();
    return true;
}

bool QuickNoteStore::replaceText(int index, const QString &text)
{
    if (m_detached || m_filePath.isEmpty() || index < 0 || index >= count())
        return false;
    m_notes[index].text = text;
    Q_EMIT noteChanged(index);
    save();
    return true;
}

bool QuickNoteStore::remove(int index)
{
    if (m_detached || m_filePath.isEmpty() || index < 0 || index >= count())
        return false;
    m_notes.removeAt(index);
    Q_EMIT noteRemoved(index);
    save();
    return true;
}

bool QuickNoteStore::removeAll()
{
    if (m_detached || m_filePath.isEmpty())
        return false;
    m_notes.clear();
    Q_EMIT listReset();
    save();
    return true;
}

int QuickNoteStore::removeAllExceptFrom(const QString &todayDateText)
{
    if (m_detached || m_filePath.isEmpty())
        return -1;
    int removed = 0;
    for (int i = 0; i < count(); ++i) {
        if (NoteTitles::isFromToday(m_notes.at(i).title, todayDateText))
            continue;
        m_notes.removeAt(i);
        Q_EMIT noteRemoved(i);
        ++removed;
    }
    save();
    return removed;
}

void QuickNoteStore::save()
{
    QString error;
    if (!QuickNoteFile::write(m_filePath, m_notes, &error)) {
        qWarning().noquote() << "FILEWRITING-ERROR:" << error;
        Q_EMIT saveFailed(m_filePath, error);
    }
}

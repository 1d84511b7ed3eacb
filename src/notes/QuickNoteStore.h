#pragma once

#include "QuickNote.h"

#include <QList>
#include <QObject>
#include <QString>

// The quick notes of the notebook shown in the main window, mirrored from its notes file.
// Every change is written at once. A notes file that cannot be read detaches the store: the
// list is empty and refuses changes until another notebook is loaded, so the file is never
// written over. Window-free; views follow the signals.
class QuickNoteStore : public QObject
{
    Q_OBJECT
public:
    explicit QuickNoteStore(QObject *parent = nullptr);

    // Empties the list and reads the notes of the notebook at savePath (ending in "/"). A
    // missing file is an empty list; no file is made until the first change.
    void load(const QString &savePath);
    QString savePath() const { return m_savePath; }
    QString filePath() const { return m_filePath; }
    bool isDetached() const { return m_detached; }

    const QList<QuickNote> &notes() const { return m_notes; }
    int count() const { return int(m_notes.size()); }
    QuickNote note(int index) const { return m_notes.value(index); }

    // Each returns false and changes nothing when the store is detached or the index is out
    // of range.
    bool append(const QuickNote &note);
    bool replaceText(int index, const QString &text);
    bool remove(int index);
    bool removeAll();
    // Removes notes whose title lacks todayDateText, walking once from the top and moving on
    // after a removal too: of a run of older notes only every second one goes per call.
    // Returns the number removed, or -1 when detached.
    int removeAllExceptFrom(const QString &todayDateText);

Q_SIGNALS:
    void listReset();
    void noteInserted(int index);
    void noteChanged(int index);
    void noteRemoved(int index);
    // Reported once per load of a damaged file.
    void damagedFileFound(const QString &path, const QString &error);
    void saveFailed(const QString &path, const QString &error);

private:
    void save();

    QList<QuickNote> m_notes;
    QString m_savePath;
    QString m_filePath;
    bool m_detached = false;
};

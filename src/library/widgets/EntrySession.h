#pragma once

#include "library/EntryDocument.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <functional>

class EntryEditorAdapter;
class QLabel;
class UserDefaults;

// One editing session of the open entry: the 1.0 s save after the last change, what happens
// when a save fails or meets a file changed elsewhere, and the question asked before the
// editor's text is replaced while it could not be saved. The text is never dropped: it stays
// in the editor, can be saved elsewhere, and is kept in the support folder if the app has to
// end without being able to ask.
class EntrySession : public QObject
{
    Q_OBJECT
public:
    EntrySession(EntryEditorAdapter &editor, QLabel *counter, UserDefaults &defaults,
                 QObject *parent = nullptr);

    void setDialogParent(QWidget *parent) { m_dialogParent = parent; }
    void setSaveAsPathChooser(std::function<QString(const QString &suggestedName)> chooser);

    // The entry whose text the editor now shows, as read from disk (or "" for a new one).
    void open(const EntryDocument &document, const QString &loadedText);
    // No entry: nothing to save until the next open().
    void close();
    EntryDocument &document() { return m_doc; }
    const EntryDocument &document() const { return m_doc; }

    QString loadedString() const { return m_loadedString; }
    bool currentDocumentHasEdits() const { return m_currentDocumentHasEdits; }
    bool hasUnsavedText() const;
    bool lastSaveFailed() const { return m_saveFailed || m_conflict; }
    bool isSaving() const { return m_saving; }

    void textHasChanged();
    bool save();
    bool flush();
    bool mayLeave();
    bool saveCopyTo(const QString &path);
    void reloadTheirs();
    void keepMine();
    // The open file changed on disk (watcher, return to the window): reload when nothing is
    // unsaved here, otherwise report the conflict.
    void checkOutsideChange();
    // Unsaved text that cannot be saved where it belongs goes into the support folder.
    void keepRecoveryCopy();
    // Short texts are counted at once; a long one beside the window, shortly after.
    void updateWordAndCharCounter();

Q_SIGNALS:
    // A save wrote or deleted path; created when the entry's file is new.
    void saved(const QString &path, bool created, bool whileFlushing);
    void saveFailed(const QString &title, const QString &reason);
    void changedOnDisk(const QString &title);
    void saveSucceeded();
    void theirsKeptAs(const QString &path);
    void copySavedAs(const QString &path);
    void reloaded(const QString &text, const QString &path);

private:
    int language() const;
    void markClean(const QString &text);
    void watch();
    bool handle(const EntryDocument::Saved &result, const QString &text);
    void countInBackground();

    EntryEditorAdapter &m_editor;
    QPointer<QLabel> m_counter;
    UserDefaults &m_defaults;
    QPointer<QWidget> m_dialogParent;
    std::function<QString(const QString &)> m_saveAsChooser;
    QTimer m_saveTimer;
    QTimer m_outsideChangeTimer;
    QTimer m_countTimer;
    // Raised by every count asked for; a background count of an older text is not shown.
    quint64 m_countGeneration = 0;
    QFileSystemWatcher m_watcher;
    EntryDocument m_doc;
    QString m_loadedString;
    QString m_lastError;
    bool m_currentDocumentHasEdits = false;
    bool m_saveFailed = false;
    bool m_conflict = false;
    bool m_saving = false;
    bool m_flushing = false;
};

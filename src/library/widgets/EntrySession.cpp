#include "EntrySession.h"

#include "core/AppPaths.h"
#include "core/UserDefaults.h"
#include "library/EntrySaver.h"
#include "library/WordCounter.h"
#include "library/widgets/EntryEditorAdapter.h"
#include "render/MarkupLanguage.h"
#include "widgets/Alert.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QThreadPool>
#include <QtDebug>

namespace {
// Counted on the window's thread up to this many characters (about 2 ms); longer texts in
// the background.
constexpr int kCountedAtOnce = 256 * 1024;
} // namespace

EntrySession::EntrySession(EntryEditorAdapter &editor, QLabel *counter, UserDefaults &defaults,
                           QObject *parent)
    : QObject(parent)
    , m_editor(editor)
    , m_counter(counter)
    , m_defaults(defaults)
{
    m_saveTimer.setSingleShot(true);
    m_saveTimer.setInterval(1000);
    connect(&m_saveTimer, &QTimer::timeout, this, &EntrySession::save);
    // Programs that save by replacing the file fire several events in a row: one look after
    // they are done.
    m_outsideChangeTimer.setSingleShot(true);
    m_outsideChangeTimer.setInterval(150);
    connect(&m_outsideChangeTimer, &QTimer::timeout, this, &EntrySession::checkOutsideChange);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this,
            [this] { m_outsideChangeTimer.start(); });
    // Loading an entry asks for a count of the text it leaves and of the one it shows: one
    // count, after the load.
    m_countTimer.setSingleShot(true);
    m_countTimer.setInterval(50);
    connect(&m_countTimer, &QTimer::timeout, this, &EntrySession::countInBackground);
}

void EntrySession::setSaveAsPathChooser(std::function<QString(const QString &)> chooser)
{
    m_saveAsChooser = std::move(chooser);
}

int EntrySession::language() const
{
    return MarkupLanguage::current(m_defaults);
}

void EntrySession::open(const EntryDocument &document, const QString &loadedText)
{
    m_doc = document;
    markClean(loadedText);
    watch();
}

void EntrySession::close()
{
    m_doc = EntryDocument();
    markClean(QString());
    watch();
}

void EntrySession::markClean(const QString &text)
{
    m_loadedString = text;
    m_currentDocumentHasEdits = false;
    m_saveFailed = false;
    m_conflict = false;
    m_saveTimer.stop();
    updateWordAndCharCounter();
    Q_EMIT saveSucceeded();
}

void EntrySession::watch()
{
    if (!m_watcher.files().isEmpty())
        m_watcher.removePaths(m_watcher.files());
    const QString path = m_doc.isValid() ? m_doc.textPath(language()) : QString();
    // An atomic save (ours or another program's) replaces the file, which ends the watch.
    if (!path.isEmpty() && QFileInfo::exists(path))
        m_watcher.addPath(path);
}

bool EntrySession::hasUnsavedText() const
{
    if (!m_editor.isEditable())
        return false;
    return m_saveTimer.isActive() || m_currentDocumentHasEdits || m_saveFailed || m_conflict ||
           !m_editor.holds(m_loadedString);
}

void EntrySession::textHasChanged()
{
    // The editor announces a change 0.1 s late; when those words were saved meanwhile, there
    // is nothing to do.
    if (m_editor.holds(m_loadedString) && !lastSaveFailed()) {
        updateWordAndCharCounter();
        return;
    }
    m_currentDocumentHasEdits = true;
    updateWordAndCharCounter();
    // A failed save is tried again with every change.
    m_saveTimer.start();
}

bool EntrySession::save()
{
    m_saveTimer.stop();
    if (m_saving)
        return false;
    if (!m_doc.isValid() || !m_editor.isEditable())
        return !hasUnsavedText();
    const QScopedValueRollback guard(m_saving, true);
    const QString text = m_editor.string();
    return handle(m_doc.save(text, m_editor.selectedLocation(), language()), text);
}

bool EntrySession::handle(const EntryDocument::Saved &result, const QString &text)
{
    switch (result.outcome) {
    case EntryDocument::Outcome::ChangedOnDisk:
        m_conflict = true;
        m_currentDocumentHasEdits = true;
        Q_EMIT changedOnDisk(m_doc.title());
        return false;
    case EntryDocument::Outcome::Failed:
        m_saveFailed = true;
        m_currentDocumentHasEdits = true;
        m_lastError = result.error;
        Q_EMIT saveFailed(m_doc.title(), result.error);
        return false;
    default:
        break;
    }
    markClean(text);
    watch();
    Q_EMIT saved(result.path, result.outcome == EntryDocument::Outcome::Created, m_flushing);
    return true;
}

bool EntrySession::flush()
{
    if (!hasUnsavedText())
        return true;
    if (m_saving)
        return false;
    const QScopedValueRollback guard(m_flushing, true);
    return save();
}

bool EntrySession::mayLeave()
{
    if (flush())
        return true;
    const QString title = m_doc.title();
    //% "Your changes are not saved"
    const QString heading = qtTrId("UNSAVED_CHANGES_TITLE");
    //% "The last changes to “%1” could not be saved. Save them somewhere else, discard them, or
    // stay with the entry?"
    const QString message = qtTrId("UNSAVED_CHANGES_MESSAGE").arg(title);
    //% "Save As…"
    const QString saveAs = qtTrId("UNSAVED_CHANGES_SAVE_AS");
    //% "Discard Changes"
    const QString discard = qtTrId("UNSAVED_CHANGES_DISCARD");
    //% "Cancel"
    const QString cancel = qtTrId("UNSAVED_CHANGES_CANCEL");
    const int answer = Alert::show(
        m_dialogParent,
        AlertRequest{QMessageBox::Warning, heading, message, {saveAs, discard, cancel}, 2});
    if (answer == 0) {
        const QString path = m_saveAsChooser
                                 ? m_saveAsChooser(m_doc.isValid() ? m_doc.fileName() : QString())
                                 : QString();
        if (path.isEmpty() || !saveCopyTo(path))
            return false;
    } else if (answer != 1) {
        return false;
    }
    // Saved elsewhere or given up by the user: this entry has nothing pending any more.
    markClean(m_editor.string());
    return true;
}

bool EntrySession::saveCopyTo(const QString &path)
{
    const EntrySaver::Result result = EntrySaver::saveCopy(path, m_editor.string(), m_doc.format());
    if (result.status != EntrySaver::Result::Saved) {
        qWarning().noquote() << QStringLiteral("FILEWRITING-ERROR: %1")
                                    .arg(path + QStringLiteral(": ") + result.error);
        Q_EMIT saveFailed(QFileInfo(path).fileName(), result.error);
        return false;
    }
    Q_EMIT copySavedAs(path);
    return true;
}

void EntrySession::reloadTheirs()
{
    const EntryDocument::Loaded loaded = m_doc.reload(language());
    if (!loaded.readable)
        return;
    const int location = m_editor.selectedLocation();
    const int length = m_editor.selectedLength();
    m_editor.setString(loaded.text);
    m_editor.setSelectedRange(location, length);
    markClean(loaded.text);
    watch();
    Q_EMIT reloaded(loaded.text, loaded.path);
}

void EntrySession::keepMine()
{
    const QScopedValueRollback guard(m_saving, true);
    const QString text = m_editor.string();
    QString keptAs;
    const bool ok =
        handle(m_doc.saveKeepingMine(text, m_editor.selectedLocation(), language(), &keptAs), text);
    if (ok && !keptAs.isEmpty())
        Q_EMIT theirsKeptAs(keptAs);
}

void EntrySession::checkOutsideChange()
{
    watch();
    if (!m_doc.isValid() || m_saving || !m_doc.changedOnDisk(language()))
        return;
    const QString path = m_doc.textPath(language());
    if (hasUnsavedText()) {
        m_conflict = true;
        Q_EMIT changedOnDisk(m_doc.title());
    } else if (QFileInfo(path).isFile()) {
        reloadTheirs();
    }
}

void EntrySession::keepRecoveryCopy()
{
    if (!hasUnsavedText() || flush())
        return;
    const QString folder = AppPaths::supportFolder() + QStringLiteral("/Recovered");
    QDir().mkpath(folder);
    const QString name = (m_doc.isValid() ? m_doc.title() : QStringLiteral("Untitled")).left(100);
    const QString path =
        folder + QLatin1Char('/') + name + QLatin1Char(' ') +
        QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH.mm.ss")) +
        QStringLiteral(".txt");
    if (saveCopyTo(path))
        qWarning().noquote()
            << QStringLiteral("ERROR: unsaved text of %1 kept in %2").arg(name, path);
}

void EntrySession::updateWordAndCharCounter()
{
    if (!m_counter)
        return;
    const bool black = m_defaults.value(Settings::UseBlackDocument);
    m_counter->setStyleSheet(black ? QStringLiteral("color: white;") : QString());
    ++m_countGeneration;
    m_countTimer.stop();
    if (!m_editor.isEditable()) {
        m_counter->setText(QStringLiteral("0:0"));
        return;
    }
    if (m_editor.length() <= kCountedAtOnce) {
        m_counter->setText(WordCounter::counterText(m_editor.string()));
        return;
    }
    m_countTimer.start();
}

void EntrySession::countInBackground()
{
    if (!m_counter || !m_editor.isEditable())
        return;
    const quint64 generation = m_countGeneration;
    // The copy is shared with the worker; the editor's document never leaves this thread.
    const QString text = m_editor.string();
    const QPointer<EntrySession> self(this);
    QThreadPool::globalInstance()->start([self, text, generation] {
        const QString counted = WordCounter::counterText(text);
        // Delivered through the application object, which outlives any session; none is
        // left when the app is ending, and then neither is the counter.
        QCoreApplication *app = QCoreApplication::instance();
        if (!app)
            return;
        QMetaObject::invokeMethod(
            app,
            [self, counted, generation] {
                if (self && self->m_counter && self->m_countGeneration == generation)
                    self->m_counter->setText(counted);
            },
            Qt::QueuedConnection);
    });
}

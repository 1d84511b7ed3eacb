#include "EntryController.h"

#include "core/AppPaths.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "library/CursorPositionStore.h"
#include "library/EntryNames.h"
#include "library/FileLock.h"
#include "library/widgets/BundleLanguageCheck.h"
#include "library/widgets/LockPrompt.h"
#include "render/MarkupLanguage.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QScopedValueRollback>

namespace {
QString hintText()
{
    //% "Enter a title to write a note"
    return qtTrId("EDITOR_HINT_ENTER_TITLE");
}

// The editor's text after loading this one: the same, unless it holds characters the
// editor's document turns into line breaks. Spares copying a big entry back out of the
// editor.
QString textAsShown(const QString &loaded, const EntryEditorAdapter &editor)
{
    for (const QChar c : loaded) {
        const char16_t u = c.unicode();
        if (u == u'\r' || u == QChar::ParagraphSeparator || u == 0xFDD0 || u == 0xFDD1)
            return editor.string();
    }
    return loaded;
}
} // namespace

EntryController::EntryController(QPlainTextEdit *editor, QLineEdit *titleField,
                                 QListView *entryList, QLabel *counter, UserDefaults &defaults,
                                 QObject *parent)
    : QObject(parent)
    , m_defaults(defaults)
    , m_editor(editor)
    , m_editorView(editor)
    , m_titleField(titleField)
    , m_list(new EntryListController(entryList, defaults, this))
    , m_session(new EntrySession(m_editor, counter, defaults, this))
{
    if (counter->accessibleName().isEmpty())
        //% "Words and characters"
        counter->setAccessibleName(qtTrId("WORD_COUNTER_ACCESSIBLE_NAME"));
    if (counter->toolTip().isEmpty())
        counter->setToolTip(qtTrId("WORD_COUNTER_ACCESSIBLE_NAME"));
    m_session->setDialogParent(titleField->window());
    connect(m_session, &EntrySession::saved, this, &EntryController::onSaved);
    connect(m_session, &EntrySession::reloaded, this, &EntryController::previewShouldRender);
    connect(m_list, &EntryListController::userSelectedRow, this,
            &EntryController::onUserSelectedRow);
    connect(m_list, &EntryListController::displayRowsRebuilt, this,
            &EntryController::displayRowsRebuilt);
    connect(m_titleField, &QLineEdit::textChanged, this, &EntryController::onTitleChanged);
    connect(editor, &QPlainTextEdit::textChanged, this, [this] {
        // Written in, it is the user's entry now and keeps its text like any other.
        if (!m_editor.isSettingString())
            m_openedByTitle = false;
    });

    NotificationCenter &center = NotificationCenter::defaultCenter();
    center.addObserver(this, Notifications::TextChangedShouldBeSaved,
                       [this](const Notification &n) {
                           // Only this window's editor: a side editor's changes are not this
                           // entry's.
                           if (n.sender() == m_editorView)
                               m_session->textHasChanged();
                       });
    center.addObserver(this, Notifications::ReloadFilesForSelectedNoticeBlock,
                       [this](const Notification &) { loadFilesForSelectedNoticeBlock(); });
    if (QCoreApplication *app = QCoreApplication::instance())
        connect(app, &QCoreApplication::aboutToQuit, m_session, &EntrySession::keepRecoveryCopy);
    showHint();
    m_session->updateWordAndCharCounter();
}

EntryController::~EntryController()
{
    // Widgets may already be gone when the window tears down first; its close saved then.
    if (m_list->view() && m_titleField && m_editorView)
        m_session->keepRecoveryCopy();
}

void EntryController::attachToWindow(QWidget *window)
{
    if (m_window)
        m_window->removeEventFilter(this);
    m_window = window;
    m_session->setDialogParent(window);
    if (window)
        window->installEventFilter(this);
}

bool EntryController::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_window) {
        if (event->type() == QEvent::Close && !mayLeaveEntry()) {
            event->ignore();
            return true;
        }
        if (event->type() == QEvent::WindowActivate)
            windowDidBecomeMain();
        else if (event->type() == QEvent::WindowDeactivate)
            windowDidResignMain();
    }
    return QObject::eventFilter(watched, event);
}

int EntryController::language() const
{
    return MarkupLanguage::current(m_defaults);
}

bool EntryController::setNotebookPath(const QString &pathWithTrailingSlash, bool relist)
{
    if (!mayLeaveEntry())
        return false;
    m_list->setNotebookPath(pathWithTrailingSlash);
    if (relist)
        loadFilesForSelectedNoticeBlock();
    return true;
}

bool EntryController::prepareNewEntry(const QString &title)
{
    if (!mayLeaveEntry())
        return false;
    {
        const QScopedValueRollback guard(m_ignoreTitle, true);
        m_titleField->setText(title);
    }
    m_list->clearSelection();
    m_session->open(EntryDocument(notebookPath(), title, m_list->extension()), QString());
    startNewEntry();
    return true;
}

void EntryController::showHint()
{
    m_editor.setString(hintText());
    m_editor.setEditable(false);
}

void EntryController::startNewEntry()
{
    m_openFileName.clear();
    m_openedByTitle = false;
    m_editor.setString(QString());
    setReadOnly(m_list->isFolderLocked() ? qtTrId("FOLDER_LOCKED_MESSAGE") : QString());
    m_session->open(m_session->document(), QString());
}

void EntryController::setReadOnly(const QString &reason)
{
    m_readOnlyReason = reason;
    m_editor.setEditable(reason.isEmpty());
    Q_EMIT readOnlyChanged(m_session->document().title(), reason);
}

// ---- listing -------------------------------------------------------------------------------

void EntryController::loadFilesForSelectedNoticeBlock()
{
    // Unsaved text the user chose to keep stays in the editor; only the list is renewed.
    const bool resetEditor = mayLeaveEntry();
    m_list->clearSelection();
    if (resetEditor) {
        {
            const QScopedValueRollback guard(m_ignoreTitle, true);
            m_titleField->clear();
        }
        m_openFileName.clear();
        showHint();
        m_session->close();
        Q_EMIT previewShouldBlank();
        NotificationCenter::defaultCenter().post(Notifications::SetnewDate, this,
                                                 {{Notifications::NewDateStringKey, QString()}});
    }
    if (m_list->checkFolderExists())
        m_list->checkFolderLock();
    m_list->relist();
}

void EntryController::loadFilesForSelectedNoticeBlockAndSelectItemWithFilename(const QString &name)
{
    m_list->relistAndSelect(name);
    // A row other than the open entry's is now selected: it is loaded like any selection.
    const QString selected = m_list->selectedFileName();
    if (!selected.isEmpty() && selected != m_openFileName && mayLeaveEntry())
        openEntry(selected);
}

// ---- loading ---------------------------------------------------------------------------------

void EntryController::onUserSelectedRow(int row)
{
    const QString wanted = m_list->listofFiles().value(row);
    if (!mayLeaveEntry()) {
        m_list->selectRow(m_list->rowOf(m_openFileName));
        return;
    }
    m_list->selectRow(m_list->rowOf(wanted));
    tableViewSelectionDidChange();
}

void EntryController::tableViewSelectionDidChange()
{
    m_openedByTitle = false;
    const QString name = m_list->selectedFileName();
    if (name.isEmpty()) {
        Q_EMIT spellingShouldBeChecked();
        return;
    }
    openEntry(name);
}

void EntryController::openEntry(const QString &fileName)
{
    const QString extension = m_list->extension();
    EntryDocument doc(notebookPath(), EntryDirectory::deletingPathExtension(fileName), extension);
    const int current = language();
    if (doc.isBundle())
        BundleLanguageCheck::warnIfMixed(m_titleField->window(), doc.entryPath(), current);
    const QString path = doc.textPath(current);
    const bool fileLocked = QFileInfo::exists(path) && checkFileLock(path);
    const EntryDocument::Loaded loaded = doc.load(current);
    if (!loaded.readable)
        qWarning().noquote() << QStringLiteral("ERROR: %1: %2").arg(path, loaded.error);

    m_openFileName = fileName;
    {
        const QScopedValueRollback guard(m_ignoreTitle, true);
        m_titleField->setText(doc.title());
    }
    m_session->open(doc, loaded.text);
    showText(loaded.text, getCursorPositionForDocument(path), 0);
    //% "“%1” could not be read (%2). It is shown read-only so nothing is written over it."
    QString reason =
        loaded.readable ? QString() : qtTrId("ENTRY_UNREADABLE").arg(doc.title(), loaded.error);
    if (reason.isEmpty() && m_list->isFolderLocked())
        reason = qtTrId("FOLDER_LOCKED_MESSAGE");
    //% "This entry is locked, so it cannot be changed. Unlock it?"
    if (reason.isEmpty() && fileLocked)
        reason = qtTrId("FILE_LOCKED_MESSAGE");
    setReadOnly(reason);
    m_session->updateWordAndCharCounter();
    NotificationCenter::defaultCenter().post(Notifications::SetnewDate, this,
                                             {{Notifications::NewDateStringKey, doc.title()}});
    Q_EMIT previewShouldRender(textAsShown(loaded.text, m_editor), path);
    Q_EMIT spellingShouldBeChecked();
}

void EntryController::showText(const QString &text, int location, int length)
{
    m_editor.setString(text);
    m_editor.setSelectedRange(location, length);
    m_editor.view()->viewport()->update();
}

bool EntryController::checkFileLock(const QString &path)
{
    if (!FileLock::isImmutable(path))
        return false;
    if (path == m_lockFileLastPathChecked)
        return true;
    m_lockFileLastPathChecked = path;
    return LockPrompt::keepsLocked(m_titleField->window(), path, LockPrompt::Kind::File);
}

// ---- titles and saving -------------------------------------------------------------------------

void EntryController::onTitleChanged(const QString &title)
{
    if (m_ignoreTitle || title == m_session->document().title())
        return;
    // The edits so far belong to the entry under the old title.
    const bool saved = m_session->flush();
    const QString problem =
        title.isEmpty()
            ? QString()
            : EntryNames::problemWithTitle(title, m_list->extension(), m_list->notebookFolder());
    Q_EMIT titleProblemChanged(problem);
    if (!problem.isEmpty()) {
        // Nowhere to save under such a name: the text waits in the editor for a usable one.
        m_session->document() = EntryDocument();
        if (!m_editor.isEditable() || m_openedByTitle)
            startNewEntry();
        return;
    }
    if (title.isEmpty()) {
        if (!saved)
            return;
        // No title, nowhere to save: back to the hint and the whole list.
        m_openFileName.clear();
        m_openedByTitle = false;
        m_session->close();
        showHint();
        m_session->updateWordAndCharCounter();
        m_list->clearSelection();
        m_list->view()->scrollToTop();
        return;
    }
    // A title that names an entry opens it: words typed next go into it, never over it.
    const QString fileName = title + QLatin1Char('.') + m_list->extension();
    int row = m_list->rowOf(fileName);
    if (row < 0 && QFileInfo::exists(AppPaths::expandTilde(notebookPath() + fileName))) {
        m_list->relistKeepingSelection();
        row = m_list->rowOf(fileName);
    }
    if (row >= 0 && fileName != m_openFileName && (saved || m_session->mayLeave())) {
        m_list->selectRow(row);
        tableViewSelectionDidChange();
        m_openedByTitle = true;
        return;
    }
    // Typing on past such a title starts the new entry afresh, without the opened one's text.
    const bool leavingOpenedEntry = m_openedByTitle;
    const bool startingNewEntry = !m_editor.isEditable() || leavingOpenedEntry;
    m_openedByTitle = false;
    const EntryDocument renamed(notebookPath(), title, m_list->extension());
    if (leavingOpenedEntry)
        m_list->clearSelection();
    if (startingNewEntry) {
        m_session->open(renamed, QString());
        startNewEntry();
    } else {
        // The text in the editor is saved under the new title from now on.
        m_session->document() = renamed;
        if (m_session->hasUnsavedText())
            m_session->textHasChanged();
    }
}

void EntryController::onSaved(const QString &path, bool created, bool whileFlushing)
{
    Q_EMIT entrySaved(path);
    if (created) {
        const EntryDocument &doc = m_session->document();
        if (whileFlushing) {
            m_list->relistKeepingSelection();
        } else {
            m_openFileName = doc.fileName();
            m_list->relistAndSelect(QFileInfo(path).fileName());
        }
    }
    m_list->rebuildRowsInBackground();
}

// ---- return to the window --------------------------------------------------------------------

void EntryController::windowDidBecomeMain()
{
    // Changed elsewhere while we were away: reloaded when nothing is unsaved here, reported
    // otherwise; never written over.
    m_session->checkOutsideChange();
    if (m_checkForFolderModificaion) {
        m_checkForFolderModificaion = false;
        const QFileInfo folder(m_list->notebookFolder());
        if (!notebookPath().isEmpty() && !folder.isDir()) {
            // The notebook folder went away: say so once, keep whatever is in the editor.
            m_list->checkFolderExists();
            m_list->relist();
        } else if (folder.lastModified() != m_folderLastModDateWhenLeaving) {
            m_list->relistAndSelect(m_titleField->text() + QLatin1Char('.') + m_list->extension());
        }
    }
    Q_EMIT spellingShouldBeChecked();
}

void EntryController::windowDidResignMain()
{
    // Words typed just before switching away go to disk now: whatever another program does
    // to the file meanwhile is then reloaded on return, instead of being written over.
    m_session->flush();
    m_checkForFolderModificaion = true;
    m_folderLastModDateWhenLeaving = QFileInfo(m_list->notebookFolder()).lastModified();
}

int EntryController::getCursorPositionForDocument(const QString &path)
{
    return CursorPositionStore::getCursorPositionForDocument(path);
}

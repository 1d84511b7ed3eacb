#include "EntryController.h"

#include "core/AppPaths.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "library/CursorPositionStore.h"
#include "library/EntryFile.h"
#include "library/EntryListModel.h"
#include "library/FileLock.h"
#include "library/TextBundle.h"
#include "library/TextEncoding.h"
#include "library/WordCounter.h"
#include "library/widgets/EntryListDelegate.h"
#include "render/MarkupLanguage.h"
#include "widgets/Alert.h"

#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QtConcurrent/QtConcurrentRun>

namespace {
const QString kExtensionKey = QStringLiteral("defaultFileExtensionForEntries");

UserDefaults &defaults()
{
    return UserDefaults::standard();
}

QString hintText()
{
    //% "Enter a title to write a note"
    return qtTrId("EDITOR_HINT_ENTER_TITLE");
}
} // namespace

EntryController::EntryController(QPlainTextEdit *editor, QLineEdit *titleField,
                                 QListView *entryList, QLabel *counter, QObject *parent)
    : QObject(parent)
    , m_editor(editor)
    , m_editorView(editor)
    , m_titleField(titleField)
    , m_list(entryList)
    , m_counter(counter)
    , m_model(new EntryListModel(this))
    , m_delegate(new EntryListDelegate(this))
{
    m_saveTimer.setSingleShot(true);
    m_saveTimer.setInterval(1000);
    connect(&m_saveTimer, &QTimer::timeout, this, &EntryController::saveEditedString);

    m_list->setModel(m_model);
    m_list->setItemDelegate(m_delegate);
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    m_list->setUniformItemSizes(true);
    if (m_list->accessibleName().isEmpty())
        //% "Entries"
        m_list->setAccessibleName(qtTrId("ENTRY_LIST_ACCESSIBLE_NAME"));
    if (m_list->toolTip().isEmpty())
        //% "The entries of this notebook"
        m_list->setToolTip(qtTrId("ENTRY_LIST_TOOLTIP"));
    if (m_counter->accessibleName().isEmpty())
        //% "Words and characters"
        m_counter->setAccessibleName(qtTrId("WORD_COUNTER_ACCESSIBLE_NAME"));
    if (m_counter->toolTip().isEmpty())
        m_counter->setToolTip(qtTrId("WORD_COUNTER_ACCESSIBLE_NAME"));
    connect(m_list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &EntryController::onSelectionChanged);

    connect(m_titleField, &QLineEdit::textChanged, this, &EntryController::onTitleChanged);
    // A keystroke counts as unsaved at once, before the editor's own announcement.
    connect(editor, &QPlainTextEdit::textChanged, this, [this] {
        if (!m_editor.isSettingString()) {
            m_editorDirty = true;
            // Written in, it is the user's entry now and keeps its text like any other.
            m_openedByTitle = false;
        }
    });

    connect(&m_rebuild, &QFutureWatcher<EntryDisplayList>::finished, this, [this] {
        if (m_rebuild.property("generation").toULongLong() != m_listGeneration)
            return;
        applyDisplayList(m_rebuild.result(), false);
        Q_EMIT displayRowsRebuilt();
    });

    NotificationCenter &center = NotificationCenter::defaultCenter();
    center.addObserver(this, Notifications::TextChangedShouldBeSaved,
                       [this](const Notification &) { textHasChangedAndShouldBeSaved(); });
    center.addObserver(this, Notifications::ReloadFilesForSelectedNoticeBlock,
                       [this](const Notification &) { loadFilesForSelectedNoticeBlock(); });
    if (QCoreApplication *app = QCoreApplication::instance())
        connect(app, &QCoreApplication::aboutToQuit, this, &EntryController::flushPendingSave);

    showHint();
    updateWordAndCharCounter();
}

EntryController::~EntryController()
{
    // Widgets may already be gone when the window tears down first; its close saved then.
    if (m_list && m_titleField && m_editorView)
        flushPendingSave();
    m_rebuild.waitForFinished();
}

void EntryController::attachToWindow(QWidget *window)
{
    if (m_window)
        m_window->removeEventFilter(this);
    m_window = window;
    if (window)
        window->installEventFilter(this);
}

bool EntryController::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_window) {
        switch (event->type()) {
        case QEvent::Close:
            flushPendingSave();
            break;
        case QEvent::WindowActivate:
            windowDidBecomeMain();
            break;
        case QEvent::WindowDeactivate:
            windowDidResignMain();
            break;
        default:
            break;
        }
    }
    return QObject::eventFilter(watched, event);
}

void EntryController::setNotebookPath(const QString &pathWithTrailingSlash, bool relist)
{
    flushPendingSave();
    m_notebookPath = pathWithTrailingSlash;
    if (relist)
        loadFilesForSelectedNoticeBlock();
}

void EntryController::prepareNewEntry(const QString &title)
{
    flushPendingSave();
    {
        const QScopedValueRollback guard(m_ignoreTitle, true);
        m_titleField->setText(title);
    }
    {
        const QScopedValueRollback guard(m_ignoreSelection, true);
        m_list->selectionModel()->clearSelection();
    }
    m_entryRef = {m_notebookPath, title, currentExtension()};
    m_openedByTitle = false;
    m_openFileName.clear();
    m_editor.setString(QString());
    m_editor.setEditable(true);
    m_loadedString.clear();
    m_editorDirty = false;
    m_currentDocumentHasEdits = false;
    updateWordAndCharCounter();
}

QString EntryController::currentExtension() const
{
    return defaults().stringForKey(kExtensionKey);
}

bool EntryController::isTextBundleMode(const QString &extension) const
{
    return extension == TextBundle::bundleExtension();
}

int EntryController::selectedRow() const
{
    const QModelIndexList rows = m_list->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
}

QString EntryController::selectedFileName() const
{
    const int row = selectedRow();
    return row >= 0 && row < m_listofFiles.size() ? m_listofFiles.at(row) : QString();
}

bool EntryController::hasUnsavedText() const
{
    if (!m_entryRef.isValid())
        return false;
    return m_saveTimer.isActive() || m_currentDocumentHasEdits ||
           (m_editorDirty && m_editor.isEditable());
}

void EntryController::showHint()
{
    m_editor.setString(hintText());
    m_editor.setEditable(false);
    m_editorDirty = false;
}

// ---- listing -------------------------------------------------------------------------------

void EntryController::loadFilesForSelectedNoticeBlock()
{
    flushPendingSave();
    {
        const QScopedValueRollback guard(m_ignoreSelection, true);
        m_list->selectionModel()->clearSelection();
    }
    {
        const QScopedValueRollback guard(m_ignoreTitle, true);
        m_titleField->clear();
    }
    m_entryRef = {};
    m_openedByTitle = false;
    m_openFileName.clear();
    m_saveTimer.stop();
    m_currentDocumentHasEdits = false;
    showHint();
    updateWordAndCharCounter();
    Q_EMIT previewShouldBlank();
    NotificationCenter::defaultCenter().post(Notifications::SetnewDate, this,
                                             {{Notifications::NewDateStringKey, QString()}});

    const QString folder = AppPaths::expandTilde(m_notebookPath);
    if (!QFileInfo(folder).isDir()) {
        //% "Notebook not found"
        const QString title = qtTrId("CRIT_NOTEBOOK_DOESNT_EXIST_TITLE");
        //% "The folder of this notebook does not exist anymore. It may have been moved, renamed or
        // be on a disk that is not connected."
        const QString message = qtTrId("CRIT_NOTEBOOK_DOESNT_EXIST_MESSAGE");
        Alert::show(m_list->window(),
                    AlertRequest{QMessageBox::Critical, title, message, {QStringLiteral("OK")}});
    } else if (folder != m_lockFolderLastPathChecked) {
        checkFolderLock(folder);
    }
    relistEntries();
}

void EntryController::checkFolderLock(const QString &folder)
{
    m_lockFolderLastPathChecked = folder;
    if (!FileLock::isImmutable(folder))
        return;
    const QString title = qtTrId("FOLDER_LOCKED");
    //% "The folder of this notebook is locked: no entry can be added, renamed or deleted in it.
    // Unlock it?"
    const QString message = qtTrId("FOLDER_LOCKED_MESSAGE");
    //% "Keep Locked"
    const QString keep = qtTrId("FOLDER_LOCKED_KEEP_LOCKED");
    //% "Unlock"
    const QString unlock = qtTrId("FOLDER_LOCKED_UNLOCK");
    const int answer = Alert::show(
        m_list->window(), AlertRequest{QMessageBox::Warning, title, message, {keep, unlock}});
    if (answer != 1)
        return;
    QString error;
    if (!FileLock::setImmutable(folder, false, &error))
        //% "The folder could not be unlocked"
        Alert::show(m_list->window(), AlertRequest{QMessageBox::Warning,
                                                   qtTrId("UNLOCK_FOLDER_FAILED"),
                                                   error,
                                                   {QStringLiteral("OK")}});
}

void EntryController::checkFileLock(const QString &path)
{
    m_lockFileLastPathChecked = path;
    if (!FileLock::isImmutable(path))
        return;
    //% "Entry is locked"
    const QString title = qtTrId("FILE_LOCKED");
    //% "This entry is locked, so your changes to it cannot be saved. Unlock it?"
    const QString message = qtTrId("FILE_LOCKED_MESSAGE");
    //% "Keep Locked"
    const QString keep = qtTrId("FILE_LOCKED_KEEP_LOCKED");
    //% "Unlock"
    const QString unlock = qtTrId("FILE_LOCKED_UNLOCK");
    const int answer = Alert::show(
        m_list->window(), AlertRequest{QMessageBox::Warning, title, message, {keep, unlock}});
    if (answer != 1)
        return;
    QString error;
    if (!FileLock::setImmutable(path, false, &error))
        //% "The entry could not be unlocked"
        Alert::show(m_list->window(), AlertRequest{QMessageBox::Warning,
                                                   qtTrId("UNLOCK_FILE_FAILED"),
                                                   error,
                                                   {QStringLiteral("OK")}});
}

void EntryController::relistEntries()
{
    ++m_listGeneration;
    m_listofFiles =
        EntryDirectory::listEntries(AppPaths::expandTilde(m_notebookPath), currentExtension());
    const EntryDisplayList list = EntryDirectory::formatTableItemsForDisplay(
        m_listofFiles, AppPaths::expandTilde(m_notebookPath),
        EntryListSettings::fromDefaults(defaults()), m_heightOfFileTableRow);
    const QScopedValueRollback guard(m_ignoreSelection, true);
    applyDisplayList(list, true);
}

void EntryController::applyDisplayList(const EntryDisplayList &list, bool reset)
{
    m_listofFilesDisplay = list.rows;
    m_heightOfFileTableRow = list.heightOfFileTableRow;
    if (reset)
        m_model->setRows(list);
    else
        m_model->updateRows(list);
}

void EntryController::formatTableItemsForDisplay()
{
    const EntryDisplayList list = EntryDirectory::formatTableItemsForDisplay(
        m_listofFiles, AppPaths::expandTilde(m_notebookPath),
        EntryListSettings::fromDefaults(defaults()), m_heightOfFileTableRow);
    applyDisplayList(list, false);
}

void EntryController::rebuildDisplayRowsInBackground()
{
    // The worker gets copies only; its result is applied on this thread, and dropped when
    // the list was rebuilt in the meantime.
    const QStringList files = m_listofFiles;
    const QString folder = AppPaths::expandTilde(m_notebookPath);
    const EntryListSettings settings = EntryListSettings::fromDefaults(defaults());
    const int height = m_heightOfFileTableRow;
    if (m_rebuild.isRunning())
        m_rebuild.waitForFinished();
    m_rebuild.setProperty("generation", m_listGeneration);
    m_rebuild.setFuture(QtConcurrent::run([files, folder, settings, height] {
        return EntryDirectory::formatTableItemsForDisplay(files, folder, settings, height);
    }));
}

void EntryController::selectRow(int row)
{
    if (row < 0 || row >= m_model->rowCount()) {
        m_list->selectionModel()->clearSelection();
        return;
    }
    const QModelIndex index = m_model->index(row);
    m_list->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    m_list->scrollTo(index);
}

void EntryController::loadFilesForSelectedNoticeBlockAndSelectItemWithFilename(const QString &name)
{
    flushPendingSave();
    const int previousRow = selectedRow();
    relistEntries();
    const int i = int(m_listofFiles.indexOf(name));
    const QScopedValueRollback guard(m_relisting, true);
    // A name at the top of the list is deliberately not selected by name: the row that was
    // selected before is selected again.
    if (i > 0) {
        selectRow(i);
    } else {
        m_list->selectionModel()->clearSelection();
        selectRow(previousRow);
    }
    if (selectedRow() >= 0)
        m_list->scrollTo(m_model->index(selectedRow()));
}

void EntryController::relistKeepingSelectedFile()
{
    const QString selected = selectedFileName();
    relistEntries();
    const QScopedValueRollback guard(m_ignoreSelection, true);
    selectRow(int(m_listofFiles.indexOf(selected)));
}

// ---- loading ---------------------------------------------------------------------------------

void EntryController::onSelectionChanged()
{
    if (m_ignoreSelection || m_blockFileLoad)
        return;
    // A relist that lands on the entry already in the editor leaves it alone.
    if (m_relisting && !m_openFileName.isEmpty() && selectedFileName() == m_openFileName)
        return;
    tableViewSelectionDidChange();
}

void EntryController::onTitleChanged(const QString &title)
{
    if (m_ignoreTitle || (m_entryRef.isValid() && title == m_entryRef.title))
        return;
    // The edits so far belong to the entry under the old title.
    flushPendingSave();
    if (title.isEmpty()) {
        // No title, nowhere to save: back to the hint and the whole list.
        m_entryRef = {};
        m_openedByTitle = false;
        m_openFileName.clear();
        showHint();
        updateWordAndCharCounter();
        {
            const QScopedValueRollback guard(m_ignoreSelection, true);
            m_list->selectionModel()->clearSelection();
        }
        m_list->scrollToTop();
        return;
    }
    // A title that names an entry opens it: words typed next go into it, never over it.
    const QString fileName = title + QLatin1Char('.') + currentExtension();
    int row = int(m_listofFiles.indexOf(fileName));
    if (row < 0 && QFileInfo::exists(AppPaths::expandTilde(m_notebookPath + fileName))) {
        relistKeepingSelectedFile();
        row = int(m_listofFiles.indexOf(fileName));
    }
    if (row >= 0 && fileName != m_openFileName) {
        selectRow(row);
        m_openedByTitle = true;
        return;
    }
    // Typing on past such a title starts the new entry afresh, without the opened one's text.
    const bool leavingOpenedEntry = m_openedByTitle;
    m_openedByTitle = false;
    const bool startingNewEntry = !m_editor.isEditable() || leavingOpenedEntry;
    m_entryRef = {m_notebookPath, title, currentExtension()};
    if (leavingOpenedEntry) {
        const QScopedValueRollback guard(m_ignoreSelection, true);
        m_list->selectionModel()->clearSelection();
    }
    if (startingNewEntry) {
        // A title typed while nothing is open starts a new entry: the hint must not become
        // its first words.
        m_openFileName.clear();
        m_editor.setString(QString());
        m_loadedString.clear();
        m_editorDirty = false;
        m_currentDocumentHasEdits = false;
        m_editor.setEditable(true);
        updateWordAndCharCounter();
    }
}

void EntryController::tableViewSelectionDidChange()
{
    m_openedByTitle = false;
    if (hasUnsavedText()) {
        const QString target = selectedFileName();
        {
            const QScopedValueRollback guard(m_ignoreSelection, true);
            flushPendingSave();
            selectRow(int(m_listofFiles.indexOf(target)));
        }
    }
    const int row = selectedRow();
    if (row < 0 || row >= m_listofFiles.size()) {
        Q_EMIT spellingShouldBeChecked();
        return;
    }
    m_editor.setEditable(true);

    const QString name = m_listofFiles.at(row);
    const QString extension = currentExtension();
    QString path = AppPaths::expandTilde(m_notebookPath + name);
    QString bundlePath;
    if (isTextBundleMode(extension)) {
        bundlePath = path;
        QString textName = TextBundle::textFileName(bundlePath);
        if (textName.isEmpty())
            textName =
                TextBundle::textFileNameForSaving(bundlePath, MarkupLanguage::current(defaults()));
        path = bundlePath + QLatin1Char('/') + textName;

        QString parseError;
        const int bundleLanguage = TextBundle::language(bundlePath, &parseError);
        if (!parseError.isEmpty())
            qWarning().noquote() << QStringLiteral("ERROR: %1").arg(parseError);
        const int current = MarkupLanguage::current(defaults());
        if (bundleLanguage != current) {
            //% "Different markup languages"
            const QString title = qtTrId("TEXTBUNDLE_MIXED_MARKUPS_TITLE");
            //% "This entry is written in %1, but %2 is selected. It is shown with %2."
            const QString message = qtTrId("TEXTBUNDLE_MIXED_MARKUPS_MESSAGE")
                                        .arg(MarkupLanguage::displayName(bundleLanguage),
                                             MarkupLanguage::displayName(current));
            Alert::show(m_list->window(),
                        AlertRequest{QMessageBox::Warning, title, message, {QStringLiteral("OK")}});
        }
    }

    QString text;
    bool readable = true;
    const QFileInfo info(path);
    if (info.exists()) {
        if (path != m_lockFileLastPathChecked)
            checkFileLock(path);
        const EntryFile::Loaded loaded =
            info.isFile() ? EntryFile::read(path) : EntryFile::Loaded{QString(), 4, false};
        if (loaded.readable) {
            text = loaded.text;
            m_selectedEncodingForFileSaving = loaded.encoding;
            m_lastModificationDateOfCurrentFile = EntryFile::modificationDate(path);
        } else {
            readable = false;
            qWarning().noquote() << QStringLiteral("ERROR: %1: cannot be read").arg(path);
        }
    }

    const QString title = EntryDirectory::deletingPathExtension(name);
    m_entryRef = {m_notebookPath, title, extension};
    m_openFileName = name;
    {
        const QScopedValueRollback guard(m_ignoreTitle, true);
        m_titleField->setText(title);
    }
    m_saveTimer.stop();
    m_editor.setString(text);
    // What cannot be read must not be overwritten by what the user types instead.
    m_editor.setEditable(readable);
    m_editor.setSelectedRange(getCursorPositionForDocument(path), 0);
    m_loadedString = text;
    updateWordAndCharCounter();
    m_editor.view()->viewport()->update();

    NotificationCenter::defaultCenter().post(Notifications::SetnewDate, this,
                                             {{Notifications::NewDateStringKey, title}});
    m_currentDocumentHasEdits = false;
    m_editorDirty = false;
    Q_EMIT previewShouldRender(m_editor.string(), path);
    Q_EMIT spellingShouldBeChecked();
}

// ---- saving ----------------------------------------------------------------------------------

void EntryController::textHasChangedAndShouldBeSaved()
{
    // The editor announces a change 0.1 s late; when those words were saved meanwhile (the
    // title changed, the window closed) a save now would copy them under the new title.
    if (!m_editorDirty && m_editor.string() == m_loadedString) {
        updateWordAndCharCounter();
        return;
    }
    m_currentDocumentHasEdits = true;
    updateWordAndCharCounter();
    m_saveTimer.start();
}

void EntryController::saveEditedString()
{
    if (!m_entryRef.isValid()) {
        m_saveTimer.stop();
        m_currentDocumentHasEdits = false;
        return;
    }
    saveEditedStringFor(m_entryRef);
}

bool EntryController::flushPendingSave()
{
    if (m_saving || !hasUnsavedText())
        return false;
    const QScopedValueRollback guard(m_flushing, true);
    saveEditedStringFor(m_entryRef);
    return true;
}

void EntryController::saveEditedStringFor(const EntryRef &ref)
{
    if (m_saving)
        return;
    const QScopedValueRollback guard(m_saving, true);
    m_saveTimer.stop();

    const int language = MarkupLanguage::current(defaults());
    const bool bundle = isTextBundleMode(ref.extension);
    QString bundlePath;
    QString path;
    if (bundle) {
        bundlePath =
            AppPaths::expandTilde(ref.notebookPath + ref.title + QStringLiteral(".textbundle"));
        path =
            bundlePath + QLatin1Char('/') + TextBundle::textFileNameForSaving(bundlePath, language);
    } else {
        path =
            AppPaths::expandTilde(ref.notebookPath + ref.title + QLatin1Char('.') + ref.extension);
    }

    const QString text = m_editor.string();
    bool ok = true;
    if (text.isEmpty()) {
        const QFileInfo info(path);
        if (info.exists() && info.isFile()) {
            updateWordAndCharCounter();
            ok = QFile::remove(path);
            if (!ok)
                qWarning().noquote()
                    << QStringLiteral("FILEWRITING-ERROR: %1: cannot be deleted").arg(path);
        }
    } else {
        const QString folder = QFileInfo(path).absolutePath();
        if (!QFileInfo(folder).isDir())
            QDir().mkpath(folder);
        QString error;
        const bool existing = QFileInfo::exists(path);
        if (existing) {
            const QDateTime now = QDateTime::currentDateTime();
            m_lastModificationDateOfCurrentFile = now;
            int used = m_selectedEncodingForFileSaving;
            ok = EntryFile::write(path, text, m_selectedEncodingForFileSaving, &used, &error);
            if (ok) {
                m_selectedEncodingForFileSaving = used;
                EntryFile::setModificationDate(path, now);
            }
        } else {
            ok = EntryFile::write(path, text, TextEncoding::UTF8, nullptr, &error);
            if (ok) {
                m_selectedEncodingForFileSaving = TextEncoding::UTF8;
                if (bundle && !TextBundle::createLayout(bundlePath, language, &error))
                    qWarning().noquote() << QStringLiteral("FILEWRITING-ERROR: %1").arg(error);
            }
        }
        saveCurrentCursorPostionAtIndex(m_editor.selectedLocation(), path);
        if (!ok)
            qWarning().noquote() << QStringLiteral("FILEWRITING-ERROR: %1").arg(error);
        if (ok && !existing) {
            const QString fileName = QFileInfo(path).fileName();
            if (m_flushing) {
                relistKeepingSelectedFile();
            } else {
                m_openFileName = bundle ? QFileInfo(bundlePath).fileName() : fileName;
                loadFilesForSelectedNoticeBlockAndSelectItemWithFilename(fileName);
            }
        }
    }

    if (ok) {
        m_loadedString = text;
        m_editorDirty = false;
        Q_EMIT entrySaved(path);
    }
    rebuildDisplayRowsInBackground();
    m_currentDocumentHasEdits = false;
}

// ---- cursor and counter ----------------------------------------------------------------------

void EntryController::saveCurrentCursorPostionAtIndex(int index, const QString &path)
{
    CursorPositionStore::saveCurrentCursorPostionAtIndex(index, path);
}

int EntryController::getCursorPositionForDocument(const QString &path)
{
    return CursorPositionStore::getCursorPositionForDocument(path);
}

void EntryController::updateWordAndCharCounter()
{
    if (!m_counter)
        return;
    const bool black = defaults().boolForKey(QStringLiteral("USEBLACKDOCUMENT"));
    m_counter->setText(m_editor.isEditable() ? WordCounter::counterText(m_editor.string())
                                             : QStringLiteral("0:0"));
    m_counter->setStyleSheet(black ? QStringLiteral("color: white;") : QString());
}

// ---- return to the window --------------------------------------------------------------------

void EntryController::windowDidBecomeMain()
{
    const QString extension = currentExtension();
    QString path =
        AppPaths::expandTilde(m_notebookPath + m_titleField->text() + QLatin1Char('.') + extension);
    if (!m_openFileName.isEmpty() && QFileInfo::exists(path)) {
        QString bundlePath;
        if (isTextBundleMode(extension)) {
            const QString selected = selectedFileName();
            bundlePath = AppPaths::expandTilde(m_notebookPath +
                                               (selected.isEmpty() ? m_openFileName : selected));
            path = bundlePath + QLatin1Char('/') + TextBundle::textFileName(bundlePath);
        }
        const QDateTime date = EntryFile::modificationDate(path);
        if (date.isValid() && date != m_lastModificationDateOfCurrentFile &&
            QFileInfo(path).isFile()) {
            // Words typed here go to disk before the file's new text replaces them.
            flushPendingSave();
            const QDateTime dateNow = EntryFile::modificationDate(path);
            if (dateNow != m_lastModificationDateOfCurrentFile) {
                const int location = m_editor.selectedLocation();
                const int length = m_editor.selectedLength();
                QString text;
                if (!EntryFile::readWithEncoding(path, m_selectedEncodingForFileSaving, &text)) {
                    const EntryFile::Loaded loaded = EntryFile::read(path);
                    text = loaded.text;
                    if (loaded.readable)
                        m_selectedEncodingForFileSaving = loaded.encoding;
                }
                m_lastModificationDateOfCurrentFile = dateNow;
                m_editor.setString(text);
                m_loadedString = text;
                m_editorDirty = false;
                updateWordAndCharCounter();
                m_editor.setSelectedRange(location, length);
                Q_EMIT previewShouldRender(text, path);
            }
        }
    }

    if (m_checkForFolderModificaion) {
        m_checkForFolderModificaion = false;
        const QDateTime folderDate =
            QFileInfo(AppPaths::expandTilde(m_notebookPath)).lastModified();
        if (folderDate != m_folderLastModDateWhenLeaving)
            loadFilesForSelectedNoticeBlockAndSelectItemWithFilename(m_titleField->text() +
                                                                     QLatin1Char('.') + extension);
    }
    Q_EMIT spellingShouldBeChecked();
}

void EntryController::windowDidResignMain()
{
    // Words typed just before switching away go to disk now: whatever another program does
    // to the file meanwhile is then reloaded on return, instead of being written over.
    flushPendingSave();
    m_checkForFolderModificaion = true;
    m_folderLastModDateWhenLeaving =
        QFileInfo(AppPaths::expandTilde(m_notebookPath)).lastModified();
}

#include "EntryOperationsController.h"

#include "core/AppPaths.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "editor/widgets/EnhancedTextView.h"
#include "library/DateTimeText.h"
#include "library/DesktopApplications.h"
#include "library/EntryDirectory.h"
#include "library/EntryFileOperations.h"
#include "library/NotebookRegistry.h"
#include "library/widgets/EntryController.h"
#include "library/widgets/FileBrowser.h"
#include "library/widgets/RenameSheet.h"
#include "library/widgets/SideFileEditor.h"
#include "render/MarkupLanguage.h"
#include "widgets/MessageBar.h"

#include <QApplication>
#include <QFileInfo>
#include <QLineEdit>
#include <QListView>

namespace {
const QString kTopic = QStringLiteral("entry-operations");
}

EntryOperationsController::EntryOperationsController(EntryController *entries,
                                                     NotebookRegistry &registry,
                                                     MessageBar *messageBar, UserDefaults &defaults,
                                                     QObject *parent)
    : QObject(parent)
    , m_entries(entries)
    , m_registry(registry)
    , m_messageBar(messageBar)
    , m_defaults(defaults)
{
    // Swipes and other windows step through the entries the same way.
    NotificationCenter &center = NotificationCenter::defaultCenter();
    center.addObserver(this, Notifications::SelectNext,
                       [this](const Notification &) { selectNextItemInTable(); });
    center.addObserver(this, Notifications::SelectPrevious,
                       [this](const Notification &) { selectPreviousItemInTable(); });
}

QString EntryOperationsController::targetFileName() const
{
    const int row = m_contextRow >= 0 ? m_contextRow : m_entries->selectedRow();
    return m_entries->listofFiles().value(row);
}

QString EntryOperationsController::pathOf(const QString &fileName) const
{
    return AppPaths::expandTilde(m_entries->notebookPath() + fileName);
}

void EntryOperationsController::beep()
{
    QApplication::beep();
    Q_EMIT beeped();
}

void EntryOperationsController::fail(const QString &text)
{
    if (m_messageBar)
        m_messageBar->showMessage(kTopic, MessageBar::Warning, text);
}

void EntryOperationsController::clearMessage()
{
    if (m_messageBar)
        m_messageBar->removeMessage(kTopic);
}

bool EntryOperationsController::isOpen(const QString &fileName) const
{
    const EntryDocument &doc = m_entries->document();
    return doc.isValid() && doc.fileName() == fileName &&
           doc.notebookPath() == m_entries->notebookPath();
}

bool EntryOperationsController::flushIfOpen(const QString &fileName)
{
    if (!isOpen(fileName) || m_entries->flushPendingSave())
        return true;
    //% "“%1” was left as it is: its latest changes could not be saved first."
    fail(qtTrId("ENTRY_OPERATION_UNSAVED").arg(EntryDirectory::deletingPathExtension(fileName)));
    return false;
}

// ---- next and previous ---------------------------------------------------------------------

void EntryOperationsController::selectNextItemInTable()
{
    const int target = m_entries->selectedRow() + 1;
    if (target >= m_entries->listofFiles().size()) {
        beep();
        return;
    }
    if (!m_entries->mayLeaveEntry())
        return;
    m_entries->list()->selectRow(target);
    m_entries->tableViewSelectionDidChange();
}

void EntryOperationsController::selectPreviousItemInTable()
{
    const int selected = m_entries->selectedRow();
    if (selected < 1) {
        beep();
        return;
    }
    if (!m_entries->mayLeaveEntry())
        return;
    m_entries->list()->selectRow(selected - 1);
    m_entries->tableViewSelectionDidChange();
}

// ---- rename ----------------------------------------------------------------------------------

RenameSheet *EntryOperationsController::tableviewContextRenameFile()
{
    const QString fileName = targetFileName();
    if (fileName.isEmpty()) {
        beep();
        return nullptr;
    }
    QWidget *window = m_entries->list()->view()->window();
    auto *sheet = new RenameSheet(fileName, m_entries->listofFiles(),
                                  m_defaults.value(Settings::DefaultFileExtensionForEntries),
                                  m_entries->list()->notebookFolder(), window);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    connect(sheet, &RenameSheet::renameRequested, this, &EntryOperationsController::renameEntry);
    sheet->open();
    return sheet;
}

bool EntryOperationsController::renameEntry(const QString &fileName, const QString &newTitle)
{
    if (!flushIfOpen(fileName))
        return false;
    const bool wasOpen = isOpen(fileName);
    const EntryFileOperations::Outcome outcome =
        EntryFileOperations::rename(pathOf(fileName), newTitle);
    if (!outcome.ok) {
        //% "“%1” could not be renamed (%2). It keeps its name."
        fail(qtTrId("ENTRY_RENAME_FAILED")
                 .arg(EntryDirectory::deletingPathExtension(fileName), outcome.error));
        return false;
    }
    clearMessage();
    const QString newName = QFileInfo(outcome.path).fileName();
    m_entries->loadFilesForSelectedNoticeBlockAndSelectItemWithFilename(newName);
    if (wasOpen && m_entries->selectedFileName() != newName) {
        // The editor must not go on saving to the old name, even where the relist selects
        // nothing at the top of the list: the renamed entry is opened under its new one.
        m_entries->list()->selectRow(m_entries->list()->rowOf(newName));
        m_entries->tableViewSelectionDidChange();
    }
    return true;
}

// ---- move and duplicate ----------------------------------------------------------------------

bool EntryOperationsController::moveEntry(const QString &fileName, int notebookIndex)
{
    return tableViewContextFileMoveAction(fileName, notebookIndex, true);
}

bool EntryOperationsController::duplicateEntry(const QString &fileName, int notebookIndex)
{
    return tableViewContextFileMoveAction(fileName, notebookIndex, false);
}

bool EntryOperationsController::tableViewContextFileMoveAction(const QString &fileName,
                                                               int notebookIndex,
                                                               bool deleteOriginal)
{
    if (fileName.isEmpty() || notebookIndex < 0 || notebookIndex >= m_registry.count()) {
        beep();
        return false;
    }
    if (!flushIfOpen(fileName))
        return false;
    const QString target = AppPaths::expandTilde(
        m_registry.record(notebookIndex).value(NotebookRegistry::PathKey).toString());
    const EntryFileOperations::Outcome outcome =
        EntryFileOperations::copyTo(pathOf(fileName), target, deleteOriginal);
    const QString title = EntryDirectory::deletingPathExtension(fileName);
    if (!outcome.ok && outcome.path.isEmpty()) {
        //% "“%1” could not be copied to the other notebook (%2). It stays where it is."
        fail(qtTrId("ENTRY_COPY_FAILED").arg(title, outcome.error));
        return false;
    }
    if (!outcome.ok) {
        //% "“%1” was copied to the other notebook, but could not be removed from this one
        // (%2)."
        fail(qtTrId("ENTRY_MOVE_SOURCE_KEPT").arg(title, outcome.error));
    } else {
        clearMessage();
    }
    const bool intoThisNotebook =
        QFileInfo(target) == QFileInfo(m_entries->list()->notebookFolder());
    if (deleteOriginal && outcome.ok)
        m_entries->loadFilesForSelectedNoticeBlock();
    else if (intoThisNotebook)
        m_entries->list()->relistKeepingSelection();
    return outcome.ok;
}

// ---- delete ----------------------------------------------------------------------------------

bool EntryOperationsController::deleteEntry(const QString &fileName)
{
    const QStringList files = m_entries->listofFiles();
    const int clicked = int(files.indexOf(fileName));
    if (fileName.isEmpty() || clicked < 0) {
        beep();
        return false;
    }
    if (!flushIfOpen(fileName))
        return false;
    const int selected = m_entries->selectedRow();
    QString nameToSelect;
    if (files.size() > 1) {
        if (clicked != selected)
            nameToSelect = files.value(selected);
        else if (selected == 0)
            nameToSelect = files.value(1);
        else
            nameToSelect = files.value(selected - 1);
    }
    const EntryFileOperations::Outcome outcome = EntryFileOperations::moveToTrash(pathOf(fileName));
    if (!outcome.ok) {
        //% "“%1” could not be moved to the trash (%2). It is still in the notebook."
        fail(qtTrId("ENTRY_TRASH_FAILED")
                 .arg(EntryDirectory::deletingPathExtension(fileName), outcome.error));
        return false;
    }
    clearMessage();
    // The editor lets go of a trashed entry: its next save would bring the file back.
    if (isOpen(fileName) || nameToSelect.isEmpty() || clicked == selected)
        m_entries->loadFilesForSelectedNoticeBlock();
    m_entries->loadFilesForSelectedNoticeBlockAndSelectItemWithFilename(nameToSelect);
    return true;
}

// ---- side editor ----------------------------------------------------------------------------

SideFileEditor *EntryOperationsController::tableviewContextOpenFile(const QString &fileName)
{
    if (fileName.isEmpty()) {
        beep();
        return nullptr;
    }
    // The main window's pending words go first, so the side window starts from them.
    flushIfOpen(fileName);
    const EntryDocument doc(m_entries->notebookPath(),
                            EntryDirectory::deletingPathExtension(fileName),
                            EntryDirectory::pathExtension(fileName));
    auto *editor = new SideFileEditor(m_defaults, m_entries->list()->view()->window());
    editor->loadFrameWithContentsOfPath(
        AppPaths::expandTilde(doc.textPath(MarkupLanguage::current(m_defaults))), fileName);
    return editor;
}

// ---- other applications -------------------------------------------------------------------

QString EntryOperationsController::openWithPath(const QString &fileName) const
{
    if (fileName.isEmpty())
        return QString();
    const EntryDocument doc(m_entries->notebookPath(),
                            EntryDirectory::deletingPathExtension(fileName),
                            EntryDirectory::pathExtension(fileName));
    return AppPaths::expandTilde(doc.isBundle() ? doc.textPath(MarkupLanguage::current(m_defaults))
                                                : doc.entryPath());
}

bool EntryOperationsController::editCurrentEntryInAnotherEditor(const QString &fileName,
                                                                const QString &applicationId)
{
    const QString path = openWithPath(fileName);
    if (applicationId.isEmpty() || path.isEmpty() || !QFileInfo::exists(path)) {
        beep();
        return false;
    }
    // The other application starts from the words typed here.
    flushIfOpen(fileName);
    QString error;
    if (!DesktopApplications::launch(applicationId, path, &error)) {
        //% "“%1” could not be opened in the other application (%2)."
        fail(qtTrId("ENTRY_OPEN_WITH_FAILED")
                 .arg(EntryDirectory::deletingPathExtension(fileName), error));
        return false;
    }
    return true;
}

// ---- file browser and date -------------------------------------------------------------------

void EntryOperationsController::showFileInFileBrowser(const QString &fileName)
{
    const QString path = pathOf(fileName);
    if (fileName.isEmpty() || !QFileInfo::exists(path)) {
        beep();
        return;
    }
    FileBrowser::showItem(path);
    Q_EMIT revealed(path);
}

void EntryOperationsController::showAttachmentsInFileBrowser(const QString &fileName)
{
    const QString path = pathOf(fileName);
    const QString folder = EntryDirectory::pathExtension(fileName) == QLatin1String("textbundle")
                               ? path + QStringLiteral("/assets")
                               : EntryFileOperations::attachmentsFolderBeside(path);
    if (fileName.isEmpty() || !QFileInfo(folder).isDir()) {
        beep();
        return;
    }
    FileBrowser::openFolder(folder);
    Q_EMIT revealed(folder);
}

void EntryOperationsController::insertCurrentDateAndTime()
{
    EntryEditorAdapter &editor = m_entries->editor();
    if (!editor.isEditable()) {
        beep();
        return;
    }
    const QString text = DateTimeText::mediumDateShortTime(QDateTime::currentDateTime());
    if (auto *view = qobject_cast<EnhancedTextView *>(editor.view())) {
        view->undoCustomInsertionInRange(view->selectedRange(), text);
        return;
    }
    editor.view()->insertPlainText(text);
}

#include "EntryListController.h"

#include "core/AppPaths.h"
#include "core/UserDefaults.h"
#include "library/EntryListModel.h"
#include "library/FileLock.h"
#include "library/widgets/EntryListDelegate.h"
#include "library/widgets/LockPrompt.h"
#include "widgets/Alert.h"

#include <QFileInfo>
#include <QListView>
#include <QScopedValueRollback>
#include <QtConcurrent/QtConcurrentRun>

EntryListController::EntryListController(QListView *list, UserDefaults &defaults, QObject *parent)
    : QObject(parent)
    , m_list(list)
    , m_defaults(defaults)
    , m_model(new EntryListModel(this))
    , m_delegate(new EntryListDelegate(this))
{
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
    connect(m_list->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (!m_quiet)
            Q_EMIT userSelectedRow(selectedRow());
    });
    connect(&m_rebuild, &QFutureWatcher<EntryDisplayList>::finished, this, [this] {
        if (m_rebuild.property("generation").toULongLong() != m_generation)
            return;
        applyDisplayList(m_rebuild.result(), false);
        Q_EMIT displayRowsRebuilt();
    });
}

EntryListController::~EntryListController()
{
    m_rebuild.waitForFinished();
}

void EntryListController::setNotebookPath(const QString &pathWithTrailingSlash)
{
    m_notebookPath = pathWithTrailingSlash;
}

QString EntryListController::notebookFolder() const
{
    return AppPaths::expandTilde(m_notebookPath);
}

QString EntryListController::extension() const
{
    return m_defaults.value(Settings::DefaultFileExtensionForEntries);
}

bool EntryListController::checkFolderExists()
{
    // A notebook without a folder has nowhere to list from or write to: it counts as missing.
    if (!m_notebookPath.isEmpty() && QFileInfo(notebookFolder()).isDir())
        return true;
    //% "Notebook not found"
    const QString title = qtTrId("CRIT_NOTEBOOK_DOESNT_EXIST_TITLE");
    //% "The folder of this notebook does not exist anymore. It may have been moved, renamed or
    // be on a disk that is not connected."
    const QString message = qtTrId("CRIT_NOTEBOOK_DOESNT_EXIST_MESSAGE");
    Alert::show(m_list->window(),
                AlertRequest{QMessageBox::Critical, title, message, {QStringLiteral("OK")}});
    return false;
}

bool EntryListController::isFolderLocked() const
{
    return !m_notebookPath.isEmpty() && FileLock::isImmutable(notebookFolder());
}

bool EntryListController::checkFolderLock()
{
    const QString folder = notebookFolder();
    if (m_notebookPath.isEmpty() || folder == m_lockFolderLastPathChecked)
        return isFolderLocked();
    m_lockFolderLastPathChecked = folder;
    if (!FileLock::isImmutable(folder))
        return false;
    return LockPrompt::keepsLocked(m_list->window(), folder, LockPrompt::Kind::Folder);
}

void EntryListController::relist()
{
    ++m_generation;
    m_narrowed = false;
    const QString folder = notebookFolder();
    m_listofFiles =
        m_notebookPath.isEmpty() ? QStringList() : EntryDirectory::listEntries(folder, extension());
    const EntryDisplayList list = EntryDirectory::formatTableItemsForDisplay(
        m_listofFiles, folder, EntryListSettings::fromDefaults(m_defaults), m_heightOfFileTableRow);
    const QScopedValueRollback guard(m_quiet, true);
    applyDisplayList(list, true);
}

void EntryListController::showOnly(const QStringList &names)
{
    ++m_generation;
    m_narrowed = true;
    m_listofFiles = names;
    const EntryDisplayList list = EntryDirectory::formatTableItemsForDisplay(
        m_listofFiles, notebookFolder(), EntryListSettings::fromDefaults(m_defaults),
        m_heightOfFileTableRow);
    const QScopedValueRollback guard(m_quiet, true);
    applyDisplayList(list, true);
}

void EntryListController::relistAndSelect(const QString &name)
{
    const int previousRow = selectedRow();
    relist();
    const int i = rowOf(name);
    selectRow(i > 0 ? i : previousRow);
}

void EntryListController::relistKeepingSelection()
{
    const QString selected = selectedFileName();
    relist();
    selectRow(rowOf(selected));
}

void EntryListController::applyDisplayList(const EntryDisplayList &list, bool reset)
{
    m_listofFilesDisplay = list.rows;
    m_heightOfFileTableRow = list.heightOfFileTableRow;
    if (reset)
        m_model->setRows(list);
    else
        m_model->updateRows(list);
}

void EntryListController::formatTableItemsForDisplay()
{
    applyDisplayList(EntryDirectory::formatTableItemsForDisplay(
                         m_listofFiles, notebookFolder(),
                         EntryListSettings::fromDefaults(m_defaults), m_heightOfFileTableRow),
                     false);
}

void EntryListController::rebuildRowsInBackground()
{
    // The worker gets copies only; its result is applied on this thread, and dropped when
    // the list was rebuilt in the meantime.
    const QStringList files = m_listofFiles;
    const QString folder = notebookFolder();
    const EntryListSettings settings = EntryListSettings::fromDefaults(m_defaults);
    const int height = m_heightOfFileTableRow;
    if (m_rebuild.isRunning())
        m_rebuild.waitForFinished();
    m_rebuild.setProperty("generation", m_generation);
    m_rebuild.setFuture(QtConcurrent::run([files, folder, settings, height] {
        return EntryDirectory::formatTableItemsForDisplay(files, folder, settings, height);
    }));
}

void EntryListController::selectRow(int row)
{
    const QScopedValueRollback guard(m_quiet, true);
    if (row < 0 || row >= m_model->rowCount()) {
        m_list->selectionModel()->clearSelection();
        return;
    }
    const QModelIndex index = m_model->index(row);
    m_list->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    m_list->scrollTo(index);
}

void EntryListController::clearSelection()
{
    selectRow(-1);
}

int EntryListController::selectedRow() const
{
    const QModelIndexList rows = m_list->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
}

QString EntryListController::selectedFileName() const
{
    const int row = selectedRow();
    return row >= 0 && row < m_listofFiles.size() ? m_listofFiles.at(row) : QString();
}

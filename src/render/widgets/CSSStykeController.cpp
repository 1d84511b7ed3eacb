#include "CSSStykeController.h"

#include "core/AppPaths.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QTimer>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

namespace {
const char kDialogName[] = "CSSStyleCopyDialog";
} // namespace

CSSStykeController::CSSStykeController(UserDefaults &defaults, QWidget *parent)
    : QWidget(parent, Qt::Tool)
    , m_defaults(defaults)
{
    //% "Preview Styles"
    setWindowTitle(qtTrId("CSSSTYLE_PANEL_TITLE"));
    //% "Preview styles"
    setAccessibleName(qtTrId("CSSSTYLE_PANEL_ACCESSIBLE_NAME"));
    setObjectName(QStringLiteral("CSSStyleSelectorHudPanel"));

    m_cssStyleTable = new QListWidget(this);
    m_cssStyleTable->setObjectName(QStringLiteral("cssStyleTable"));
    m_cssStyleTable->setSelectionMode(QAbstractItemView::SingleSelection);
    m_cssStyleTable->setUniformItemSizes(true);
    m_cssStyleTable->setAlternatingRowColors(true);
    //% "Styles"
    m_cssStyleTable->setAccessibleName(qtTrId("CSSSTYLE_LIST_ACCESSIBLE_NAME"));
    //% "The style sheets in your styles folder; the selected one styles the preview"
    m_cssStyleTable->setToolTip(qtTrId("CSSSTYLE_LIST_TOOLTIP"));

    auto makeButton = [this](const QString &icon, const QString &fallback, const QString &name,
                             const QString &tip) {
        auto *button = new QToolButton(this);
        button->setIcon(QIcon::fromTheme(icon));
        if (button->icon().isNull())
            button->setText(fallback);
        button->setAccessibleName(name);
        button->setToolTip(tip);
        button->setAutoRaise(true);
        return button;
    };
    //% "Add Style"
    const QString addName = qtTrId("CSSSTYLE_ADD_ACCESSIBLE_NAME");
    //% "Copy style sheets (.css) into your styles folder"
    const QString addTip = qtTrId("CSSSTYLE_ADD_TOOLTIP");
    //% "Remove Style"
    const QString removeName = qtTrId("CSSSTYLE_REMOVE_ACCESSIBLE_NAME");
    //% "Move the selected style sheet from your styles folder to the trash"
    const QString removeTip = qtTrId("CSSSTYLE_REMOVE_TOOLTIP");
    //% "Open Styles Folder"
    const QString folderName = qtTrId("CSSSTYLE_FOLDER_ACCESSIBLE_NAME");
    //% "Show the styles folder in the file manager, to edit or add style sheets"
    const QString folderTip = qtTrId("CSSSTYLE_FOLDER_TOOLTIP");
    m_addButton = makeButton(QStringLiteral("list-add"), QStringLiteral("+"), addName, addTip);
    m_removeButton =
        makeButton(QStringLiteral("list-remove"), QStringLiteral("\u2212"), removeName, removeTip);
    m_folderButton =
        makeButton(QStringLiteral("folder-open"), QStringLiteral("\u2026"), folderName, folderTip);

    auto *buttons = new QHBoxLayout;
    buttons->setContentsMargins(0, 0, 0, 0);
    buttons->setSpacing(2);
    buttons->addWidget(m_addButton);
    buttons->addWidget(m_removeButton);
    buttons->addStretch(1);
    buttons->addWidget(m_folderButton);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->setSpacing(4);
    layout->addWidget(m_cssStyleTable, 1);
    layout->addLayout(buttons);
    resize(240, 300);

    connect(m_cssStyleTable, &QListWidget::itemSelectionChanged, this,
            &CSSStykeController::tableViewSelectionDidChange);
    connect(m_addButton, &QToolButton::clicked, this, &CSSStykeController::addNewCSSStyle);
    connect(m_removeButton, &QToolButton::clicked, this, &CSSStykeController::removeCSSStyle);
    connect(m_folderButton, &QToolButton::clicked, this, [] {
        const QString folder = AppPaths::cssStyleFolder();
        QDir().mkpath(folder);
        QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
    });

    m_watcher = new QFileSystemWatcher(this);
    m_folderChangeTimer = new QTimer(this);
    m_folderChangeTimer->setSingleShot(true);
    m_folderChangeTimer->setInterval(200);
    connect(m_folderChangeTimer, &QTimer::timeout, this, &CSSStykeController::styleFolderChanged);
    connect(m_watcher, &QFileSystemWatcher::directoryChanged, m_folderChangeTimer,
            qOverload<>(&QTimer::start));
    connect(m_watcher, &QFileSystemWatcher::fileChanged, this, [this] {
        m_chosenStyleEdited = true;
        m_folderChangeTimer->start();
    });

    loadItems();
}

void CSSStykeController::watchStyleFolder()
{
    const QStringList watched = m_watcher->files() + m_watcher->directories();
    if (!watched.isEmpty())
        m_watcher->removePaths(watched);
    const QString folder = AppPaths::cssStyleFolder();
    if (!QFileInfo::exists(folder))
        return;
    m_watcher->addPath(folder);
    const QString chosen = folder + m_defaults.value(Settings::SelectedCSSStyle);
    if (QFileInfo(chosen).isFile())
        m_watcher->addPath(chosen);
}

void CSSStykeController::styleFolderChanged()
{
    const QStringList before = m_displayItems;
    const QDir folder(AppPaths::cssStyleFolder());
    const QStringList now = folder.entryList(
        QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System, QDir::Unsorted);
    if (now != before) {
        loadItems();
    } else if (m_chosenStyleEdited) {
        watchStyleFolder();
        NotificationCenter::defaultCenter().post(Notifications::CSSStyleChangePerformReload, this);
    }
    m_chosenStyleEdited = false;
}

void CSSStykeController::showCSSStyleSelectorHudPanel()
{
    show();
    raise();
    activateWindow();
    m_cssStyleTable->setFocus();
}

void CSSStykeController::loadItems()
{
    const QDir folder(AppPaths::cssStyleFolder());
    const QStringList items = folder.entryList(
        QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System, QDir::Unsorted);

    const QString chosen = m_defaults.value(Settings::SelectedCSSStyle);
    const int row = qMax(0, int(items.lastIndexOf(chosen)));

    m_displayItems = items;
    {
        const QSignalBlocker blocker(m_cssStyleTable);
        m_cssStyleTable->clear();
        for (int i = 0; i < numberOfRowsInTableView(); ++i)
            m_cssStyleTable->addItem(tableView(i));
        if (row < m_cssStyleTable->count()) {
            m_cssStyleTable->setCurrentRow(row, QItemSelectionModel::ClearAndSelect);
            m_cssStyleTable->scrollToItem(m_cssStyleTable->item(row));
        }
    }
    // Selecting a row is a choice like any other: it is stored and the preview follows, which
    // makes the first listed file the chosen style when the old one has gone.
    tableViewSelectionDidChange();
}

int CSSStykeController::numberOfRowsInTableView() const
{
    return int(m_displayItems.size());
}

QString CSSStykeController::tableView(int row) const
{
    return m_displayItems.value(row);
}

int CSSStykeController::selectedRow() const
{
    const QList<QListWidgetItem *> selected = m_cssStyleTable->selectedItems();
    return selected.isEmpty() ? -1 : m_cssStyleTable->row(selected.first());
}

void CSSStykeController::updateButtons()
{
    m_removeButton->setEnabled(selectedRow() >= 0);
}

void CSSStykeController::tableViewSelectionDidChange()
{
    updateButtons();
    const int row = selectedRow();
    // An empty folder leaves the stored choice alone; the preview is still rebuilt so it
    // stops showing a style that no longer exists.
    if (row >= 0 && row < numberOfRowsInTableView())
        m_defaults.setValue(Settings::SelectedCSSStyle, tableView(row));
    watchStyleFolder();
    NotificationCenter::defaultCenter().post(Notifications::CSSStyleChangePerformReload, this);
}

QFileDialog *CSSStykeController::openFileDialog() const
{
    return findChild<QFileDialog *>(QLatin1String(kDialogName));
}

void CSSStykeController::addNewCSSStyle()
{
    if (QFileDialog *open = openFileDialog()) {
        open->raise();
        open->activateWindow();
        return;
    }
    auto *dialog = new QFileDialog(this);
    dialog->setObjectName(QLatin1String(kDialogName));
    dialog->setAttribute(Qt::WA_DeleteOnClose, true);
    dialog->setOption(QFileDialog::DontUseNativeDialog, true);
    dialog->setWindowModality(Qt::WindowModal);
    dialog->setFileMode(QFileDialog::ExistingFiles);
    dialog->setAcceptMode(QFileDialog::AcceptOpen);
    //% "Style sheets (*.css)"
    dialog->setNameFilter(qtTrId("CSSSTYLE_COPY_FILTER"));
    dialog->setDirectory(QDir::homePath());
    //% "Add Styles"
    dialog->setWindowTitle(qtTrId("CSSSTYLE_COPY_TITLE"));
    //% "Choose style sheets to copy into your styles folder."
    auto *message = new QLabel(qtTrId("CSSSTYLE_COPY_MESSAGE"), dialog);
    message->setWordWrap(true);
    if (auto *grid = qobject_cast<QGridLayout *>(dialog->layout()))
        grid->addWidget(message, grid->rowCount(), 0, 1, grid->columnCount());
    connect(dialog, &QFileDialog::filesSelected, this,
            [this](const QStringList &files) { copyStylesIntoFolder(files); });
    dialog->open();
}

void CSSStykeController::copyStylesIntoFolder(const QStringList &files)
{
    const QString folder = AppPaths::cssStyleFolder();
    QDir().mkpath(folder);
    for (const QString &file : files) {
        const QFileInfo source(file);
        if (!source.isFile() || source.suffix().compare(QLatin1String("css"), Qt::CaseInsensitive))
            continue;
        // QFile::copy never overwrites: a style of that name already there stays as it is.
        QFile::copy(source.absoluteFilePath(), folder + source.fileName());
    }
    loadItems();
}

void CSSStykeController::removeCSSStyle()
{
    const int row = selectedRow();
    if (row < 0 || row >= numberOfRowsInTableView()) {
        QApplication::beep();
        return;
    }
    // No confirmation is asked, so the file goes to the trash where a mistake can be undone.
    const QString path = AppPaths::cssStyleFolder() + tableView(row);
    QString inTrash;
    if (!QFile::moveToTrash(path, &inTrash) || !QFileInfo(inTrash).isAbsolute())
        QFile::remove(path);
    loadItems();
}

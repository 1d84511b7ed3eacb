#include "StatusBarSearch.h"

#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "library/NotebookRegistry.h"
#include "menubar/EntryNameSearch.h"
#include "widgets/NotebookIcon.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QVBoxLayout>
#include <QtConcurrent>

namespace {
constexpr int SearchDelayMs = 300;
constexpr int IconSize = 15;
} // namespace

StatusBarSearch::StatusBarSearch(UserDefaults &defaults, QWidget *parent)
    : QWidget(parent)
    , m_defaults(defaults)
    , m_notebookSelection(new QComboBox(this))
    , m_searchForField(new QLineEdit(this))
    , m_noteItems(new QListWidget(this))
    , m_contentView(new QPlainTextEdit(this))
{
    setObjectName(QStringLiteral("statusBarSearch"));
    //% "Search"
    setAccessibleName(qtTrId("STATUSBAR_SEARCH_PANE"));
    m_notebookSelection->setObjectName(QStringLiteral("statusBarSearchNotebooks"));
    m_notebookSelection->setIconSize(QSize(IconSize, IconSize));
    //% "Notebook to search"
    m_notebookSelection->setAccessibleName(qtTrId("STATUSBAR_SEARCH_NOTEBOOK"));
    //% "The notebook whose entries are listed"
    m_notebookSelection->setToolTip(qtTrId("STATUSBAR_SEARCH_NOTEBOOK_TIP"));
    m_searchForField->setObjectName(QStringLiteral("statusBarSearchField"));
    m_searchForField->setClearButtonEnabled(true);
    //% "Search entry names"
    m_searchForField->setPlaceholderText(qtTrId("STATUSBAR_SEARCH_FIELD"));
    m_searchForField->setAccessibleName(m_searchForField->placeholderText());
    //% "Shows the entries whose names contain this text"
    m_searchForField->setToolTip(qtTrId("STATUSBAR_SEARCH_FIELD_TIP"));
    m_noteItems->setObjectName(QStringLiteral("statusBarSearchEntries"));
    //% "Entries"
    m_noteItems->setAccessibleName(qtTrId("STATUSBAR_SEARCH_ENTRIES"));
    //% "Select an entry to read it"
    m_noteItems->setToolTip(qtTrId("STATUSBAR_SEARCH_ENTRIES_TIP"));
    m_contentView->setObjectName(QStringLiteral("statusBarSearchContent"));
    m_contentView->setReadOnly(true);
    //% "Entry text"
    m_contentView->setAccessibleName(qtTrId("STATUSBAR_SEARCH_CONTENT"));
    //% "The selected entry's text, read-only"
    m_contentView->setToolTip(qtTrId("STATUSBAR_SEARCH_CONTENT_TIP"));
    setFocusProxy(m_searchForField);

    auto *splitter = new QSplitter(Qt::Vertical, this);
    splitter->addWidget(m_noteItems);
    splitter->addWidget(m_contentView);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_notebookSelection);
    layout->addWidget(m_searchForField);
    layout->addWidget(splitter, 1);

    m_searchTimer.setSingleShot(true);
    m_searchTimer.setInterval(SearchDelayMs);
    connect(&m_searchTimer, &QTimer::timeout, this, &StatusBarSearch::performStatusBarSearch);
    connect(m_searchForField, &QLineEdit::textChanged, this, &StatusBarSearch::performSearch);
    connect(m_notebookSelection, &QComboBox::activated, this, &StatusBarSearch::selectNotebook);
    connect(m_noteItems, &QListWidget::itemSelectionChanged, this,
            &StatusBarSearch::tableViewSelectionDidChange);
    connect(&m_listing, &QFutureWatcher<QStringList>::finished, this, [this] {
        m_items = m_listing.result();
        m_noteItems->clear();
        for (const QString &name : std::as_const(m_items)) {
            auto *row = new QListWidgetItem(EntryNameSearch::displayName(name), m_noteItems);
            row->setData(Qt::UserRole, name);
        }
        Q_EMIT itemsChanged();
    });
    connect(&m_reading, &QFutureWatcher<QString>::finished, this, [this] {
        m_contentView->setPlainText(m_reading.result());
        Q_EMIT entryShown();
    });

    NotificationCenter::defaultCenter().addObserver(
        this, Notifications::DiaryCollectionUpdated,
        [this](const Notification &) { reloadEverything(); });
    reloadEverything();
}

StatusBarSearch::~StatusBarSearch()
{
    // The workers only read; let them finish rather than leave them writing into a dead
    // watcher.
    m_listing.waitForFinished();
    m_reading.waitForFinished();
}

void StatusBarSearch::reloadEverything()
{
    diaryMenuInit();
    loadFiles();
}

void StatusBarSearch::diaryMenuInit()
{
    const int previous = m_notebookSelection->currentIndex();
    m_notebookSelection->clear();
    const NotebookRegistry registry(m_defaults);
    for (const QVariantMap &record : registry.records()) {
        const QString folder = record.value(NotebookRegistry::PathKey).toString();
        const QImage icon =
            NotebookIcon::forFolder(NotebookRegistry::iconForFolder(folder), folder, IconSize);
        m_notebookSelection->addItem(QPixmap::fromImage(icon),
                                     record.value(NotebookRegistry::NameKey).toString());
    }
    if (previous > 0 && previous < m_notebookSelection->count())
        m_notebookSelection->setCurrentIndex(previous);
}

QString StatusBarSearch::currentFolder() const
{
    const NotebookRegistry registry(m_defaults);
    const int index = m_notebookSelection->currentIndex();
    if (index < 0 || index >= registry.count())
        return QString();
    return registry.record(index).value(NotebookRegistry::PathKey).toString();
}

void StatusBarSearch::list(const QString &filterText, bool filtered)
{
    const quint64 generation = ++m_listGeneration;
    const QString folder = currentFolder();
    const QString extension = m_defaults.value(Settings::DefaultFileExtensionForEntries);
    m_listing.setFuture(QtConcurrent::run([=, this]() -> QStringList {
        if (generation != m_listGeneration)
            return {};
        const QStringList names = EntryNameSearch::listEntries(folder, extension);
        return filtered ? EntryNameSearch::filter(names, filterText) : names;
    }));
}

void StatusBarSearch::loadFiles()
{
    list(QString(), false);
}

void StatusBarSearch::selectNotebook(int)
{
    m_searchTimer.stop();
    ++m_readGeneration;
    m_noteItems->clearSelection();
    m_contentView->clear();
    loadFiles();
}

void StatusBarSearch::performSearch()
{
    m_searchTimer.stop();
    if (EntryNameSearch::isBlank(m_searchForField->text())) {
        loadFiles();
        return;
    }
    m_searchTimer.start();
}

void StatusBarSearch::performStatusBarSearch()
{
    list(m_searchForField->text(), true);
}

void StatusBarSearch::tableViewSelectionDidChange()
{
    const QList<QListWidgetItem *> selected = m_noteItems->selectedItems();
    const quint64 generation = ++m_readGeneration;
    if (selected.isEmpty())
        return;
    const QString folder = currentFolder();
    const QString name = selected.first()->data(Qt::UserRole).toString();
    m_reading.setFuture(QtConcurrent::run([=, this]() -> QString {
        if (generation != m_readGeneration)
            return {};
        return EntryNameSearch::readEntryText(folder, name);
    }));
}

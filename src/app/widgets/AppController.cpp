#include "AppController.h"

#include "AppearanceWiring.h"
#include "AttachmentsWiring.h"
#include "EntryOperationsWiring.h"
#include "ExportWiring.h"
#include "FirstRunPanel.h"
#include "MainWindow.h"
#include "MenubarWiring.h"
#include "NotesWiring.h"
#include "PreferencesController.h"
#include "core/AppPaths.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "editor/widgets/EditorCommands.h"
#include "editor/widgets/OneClickStyleEditorController.h"
#include "editor/widgets/Vellox_EnhancedTextView.h"
#include "library/NotebookRegistry.h"
#include "library/widgets/EntryController.h"
#include "library/widgets/EntryMessages.h"
#include "render/MarkupLanguage.h"
#include "render/widgets/CSSStykeController.h"
#include "render/widgets/PreviewController.h"
#include "render/widgets/PreviewHost.h"
#include "widgets/FolderChooser.h"
#include "widgets/IconChooserDialog.h"
#include "widgets/MenuBuilder.h"
#include "widgets/MessageBar.h"
#include "widgets/NotebookIcon.h"
#include "widgets/NotebookSideBar.h"

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStackedWidget>

namespace {
const QString kPopUpFont = QStringLiteral("Helvetica Neue");
constexpr int kPopUpPointSize = 30;
constexpr int kSideBarRows = 7; // rows 0..6; row 7 shows an overflow notebook
} // namespace

AppController::AppController(UserDefaults &defaults, QObject *parent)
    : QObject(parent)
    , m_defaults(defaults)
    , m_registry(new NotebookRegistry(defaults))
{
    // The first record is taken as it is: on a first run there is none yet and the path
    // stays empty until the first-run panel sets it.
    const auto records = m_registry->records();
    if (!records.isEmpty()) {
        m_myPersonalSavePath = m_registry->savePathForIndex(0);
        m_securityScopeBookmarkData =
            records.first().value(NotebookRegistry::SecUrlKey).toByteArray();
    }
    m_menuRebuildTimer.setSingleShot(true);
    m_menuRebuildTimer.setInterval(1000);
    connect(&m_menuRebuildTimer, &QTimer::timeout, this, &AppController::diaryMenuInit);
}

AppController::~AppController()
{
    delete m_registry;
    delete m_window;
}

bool AppController::awakeFromNib()
{
    IconChooserDialog::ensureIconTheme();
    m_window = new MainWindow;
    if (m_defaults.value(Settings::DocklessWindowMode)) {
        // No taskbar entry: the window is reached from the tray item instead.
        m_window->setWindowFlag(Qt::Tool, true);
    }
    if (m_defaults.value(Settings::UseBlackDocument))
        setupDarkDocument();
    buildEditor();

    if (!m_registry->exists() && !runFirstRunPanel())
        return false;

    buildEntriesAndPreview();
    buildMenus();
    wireWindow();
    wireSubsystems();
    observeNotifications();
    m_fullscreenActive = false;
    return true;
}

void AppController::wireSubsystems()
{
    // Each subsystem's window controller is made and connected in a wiring file of its own
    // (SubsystemWiring.h), one line here each, so this controller stays about notebooks.
    wireNotes(*this);
    wireEntryOperations(*this);
    wireExport(*this);
    wireMenubar(*this);
    wireAttachments(*this);
    wireAppearance(*this);
}

void AppController::setupDarkDocument()
{
    m_window->applyDarkAppearance(true);
}

void AppController::buildEditor()
{
    m_editor = new Vellox_EnhancedTextView(m_defaults);
    m_window->setEditor(m_editor);
    // Only a selected or newly titled entry makes the editor writable.
    m_editor->setEditable(false);
    m_editor->setPlaceholderText(qtTrId("EDITOR_HINT_NO_ENTRY"));
}

void AppController::buildEntriesAndPreview()
{
    m_entries = new EntryController(m_editor, m_window->titleField(), m_window->entryList(),
                                    m_window->wordCounter(), m_defaults, this);
    new EntryMessages(m_entries, m_window->messageBar(), m_window->titleField(), m_entries);
    // Closing the window saves; activation changes run the return-to-window checks.
    m_entries->attachToWindow(m_window);
    connect(this, &AppController::currentNotebookChanged, m_entries,
            [this](const QString &path) { m_entries->setNotebookPath(path, false); });

    m_preview = new PreviewController(m_defaults, this);
    m_preview->setEditorTextProvider([this] { return m_editor->string(); });
    m_preview->setSelectedEntryPathProvider([this] { return selectedEntryPath(); });
    m_window->setPreviewWidget(m_preview->view());
    m_preview->setContentStack(m_window->contentStack(), m_editor);
    connect(m_entries, &EntryController::previewShouldRender, m_preview,
            &PreviewController::renderText);
    connect(m_entries, &EntryController::previewShouldBlank, m_preview, &PreviewController::blank);
}

QString AppController::selectedEntryPath() const
{
    if (!m_entries)
        return QString();
    if (m_entries->selectedRow() >= 0)
        return AppPaths::expandTilde(m_myPersonalSavePath + m_entries->selectedFileName());
    // An entry being written need not be selected (a relist never selects the top row by
    // name); the preview still belongs to it.
    const QString title = m_window->titleField()->text();
    if (title.isEmpty() || !m_editor->isEditable())
        return QString();
    return AppPaths::expandTilde(m_myPersonalSavePath + title + QLatin1Char('.') +
                                 m_defaults.value(Settings::DefaultFileExtensionForEntries));
}

QString AppController::loadedString() const
{
    return m_entries ? m_entries->loadedString() : QString();
}

void AppController::buildMenus()
{
    // Undo and redo name the step they act on, so the editor makes them.
    m_window->actions()->replaceAction(QStringLiteral("actionUndo"),
                                       m_editor->createUndoAction(m_window));
    m_window->actions()->replaceAction(QStringLiteral("actionRedo"),
                                       m_editor->createRedoAction(m_window));
    // The editor handles the clipboard keys itself; the menu items are for the mouse. Its
    // own cut and paste go through its history.
    connect(m_window->action(QStringLiteral("actionCut")), &QAction::triggered, this,
            [this] { m_editor->cut(); });
    connect(m_window->action(QStringLiteral("actionCopy")), &QAction::triggered, this,
            [this] { m_editor->copy(); });
    connect(m_window->action(QStringLiteral("actionPaste")), &QAction::triggered, this,
            [this] { m_editor->paste(); });
    connect(m_window->action(QStringLiteral("actionSelectAll")), &QAction::triggered, this,
            [this] { m_editor->selectAll(); });

    m_editorCommands = new EditorCommands(m_window->actions(), this);
    m_editorCommands->setTextView(m_editor);
    connect(m_window->action(QStringLiteral("actionTabActions")), &QAction::triggered, this,
            &AppController::showTabActionEditor);
    connect(m_window->action(QStringLiteral("actionShowEditor")), &QAction::triggered, this,
            &AppController::showEditorView);
    connect(m_window->action(QStringLiteral("actionShowPreview")), &QAction::triggered, this,
            &AppController::showPreviewView);
    QAction *attachments = m_window->action(QStringLiteral("actionShowAttachments"));
    connect(attachments, &QAction::toggled, m_window, &MainWindow::setAttachmentAreaVisible);
    connect(m_window->attachmentButton(), &QToolButton::toggled, attachments, &QAction::setChecked);
    connect(m_window->action(QStringLiteral("actionPreviewStyles")), &QAction::triggered, this,
            &AppController::showCSSStyleSelectorHudPanel);
}

void AppController::showEditorView()
{
    m_window->showEditor();
    m_preview->contentViewSegmentChanged(0);
    m_editor->setFocus();
}

void AppController::showPreviewView()
{
    m_window->showPreview();
    m_preview->contentViewSegmentChanged(1);
}

void AppController::reloadPreviewWithNewCSSStyle()
{
    m_preview->reloadPreviewWithNewCSSStyle();
}

CSSStykeController *AppController::cssStyles()
{
    // Built when first asked for: loading its list stores the selected style, and a launch
    // that never opens the panel should leave the settings file as the user left it.
    if (!m_cssStyles)
        m_cssStyles = new CSSStykeController(m_defaults, m_window);
    return m_cssStyles;
}

void AppController::showCSSStyleSelectorHudPanel()
{
    CSSStykeController *panel = cssStyles();
    if (!panel->isVisible() && !panel->property("placed").toBool()) {
        // The first time, the panel floats just below the button that opened it.
        QToolButton *button = m_window->styleButton();
        panel->adjustSize();
        const QPoint below = button->mapToGlobal(QPoint(button->width(), button->height() + 6));
        panel->move(below.x() - panel->width(), below.y());
        panel->setProperty("placed", true);
    }
    panel->showCSSStyleSelectorHudPanel();
}

OneClickStyleEditorController *AppController::tabActionEditor()
{
    if (!m_tabActionEditor)
        m_tabActionEditor = new OneClickStyleEditorController(m_defaults, m_window);
    return m_tabActionEditor;
}

void AppController::showTabActionEditor()
{
    tabActionEditor()->showWindow();
}

void AppController::wireWindow()
{
    connect(m_window->notebookPopUp(), &QComboBox::activated, this,
            [this](int index) { selectDiary(index); });
    connect(m_window->sideBar(), &NotebookSideBar::didSelectButton, this,
            &AppController::sideBarDidSelectButton);
    connect(m_window->editModeButton(), &QToolButton::clicked, this,
            &AppController::showEditorView);
    connect(m_window->previewModeButton(), &QToolButton::clicked, this,
            &AppController::showPreviewView);
    connect(m_window->styleButton(), &QToolButton::clicked, this,
            &AppController::showCSSStyleSelectorHudPanel);
    connect(m_window->attachmentButton(), &QToolButton::toggled, m_window,
            &MainWindow::setAttachmentAreaVisible);
    // A new entry starts with its title: empty the field and let the user type one.
    connect(m_window->addEntryButton(), &QToolButton::clicked, this, [this] {
        if (!m_entries->mayLeaveEntry())
            return;
        m_window->titleField()->clear();
        m_window->titleField()->setFocus();
    });
    connect(m_window->titleField(), &QLineEdit::returnPressed, this, [this] {
        if (m_editor->isEditable())
            m_editor->setFocus();
    });
    for (int number = 1; number <= MarkupLanguage::Count; ++number) {
        QAction *action = m_window->markupLanguageAction(MarkupLanguage::menuTag(number));
        connect(action, &QAction::triggered, this,
                [this, action] { selectMarkupLanguage(action); });
    }
}

void AppController::observeNotifications()
{
    NotificationCenter &center = NotificationCenter::defaultCenter();
    // Only the preferences change the notebook list; the menu-bar search observes the same
    // name for its own purposes.
    center.addObserver(this, Notifications::DiaryCollectionUpdated,
                       [this](const Notification &note) {
                           if (qobject_cast<PreferencesController *>(note.sender()))
                               diaryMenuInitFromNotification();
                       });
    // The entry controller observes the relist notification and the change notice itself;
    // the preview controller observes the style change.
}

void AppController::startTheGame()
{
    // Building the menus publishes the current notebook, and that lists its entries: once.
    diaryMenuInit();
    m_window->sideBar()->clearSelection();
    reportDamagedSettings();
}

void AppController::reportDamagedSettings()
{
    const QString backup = m_defaults.damagedFileBackup();
    if (backup.isEmpty())
        return;
    //% "Your settings file was damaged. Vellox uses what it could read; the original is kept
    // as “%1”."
    m_window->messageBar()->showMessage(QStringLiteral("settings"), MessageBar::Warning,
                                        qtTrId("SETTINGS_DAMAGED").arg(backup));
}

void AppController::showCurrentNotebookSelected()
{
    for (int i = 0; i < m_registry->count(); ++i) {
        if (m_registry->savePathForIndex(i) != m_myPersonalSavePath)
            continue;
        const QSignalBlocker popUpBlocker(m_window->notebookPopUp());
        const QSignalBlocker sideBarBlocker(m_window->sideBar());
        m_window->notebookPopUp()->setCurrentIndex(i);
        if (i < kSideBarRows)
            m_window->sideBar()->selectRow(i);
        return;
    }
}

void AppController::startSecurityScopeSandBox()
{
    // Folders the user chose are always reachable here; the bracket stays so every folder
    // operation keeps one place to ask for access should that ever change.
    m_securityScopeUrl = QUrl::fromLocalFile(m_myPersonalSavePath);
}

void AppController::stopSecurityScopeSandBox() {}

QImage AppController::convertImageToGrayScale(const QImage &image)
{
    return NotebookIcon::grayScale(image);
}

QImage AppController::notebookIcon(const QString &folder, int size)
{
    return NotebookIcon::forFolder(NotebookRegistry::iconForFolder(folder), folder, size);
}

void AppController::diaryMenuInit()
{
    QComboBox *popUp = m_window->notebookPopUp();
    NotebookSideBar *sideBar = m_window->sideBar();
    int selected = popUp->currentIndex();
    popUp->clear();
    QMenu *moveTo = m_window->moveToMenu();
    QMenu *duplicateTo = m_window->duplicateToMenu();
    moveTo->clear();
    duplicateTo->clear();

    const auto records = m_registry->records();
    for (int i = 0; i < records.size(); ++i) {
        const QString name = records.at(i).value(NotebookRegistry::NameKey).toString();
        const QString path = records.at(i).value(NotebookRegistry::PathKey).toString();
        startSecurityScopeSandBox();
        const QImage icon = notebookIcon(path, 50);
        stopSecurityScopeSandBox();
        const QIcon small(
            QPixmap::fromImage(icon.scaled(20, 20, Qt::KeepAspectRatio, Qt::SmoothTransformation)));
        // The item's data is the notebook's index (EntryOperationsWiring acts on it).
        moveTo->addAction(small, name)->setData(i);
        duplicateTo->addAction(small, name)->setData(i);

        popUp->addItem(QIcon(QPixmap::fromImage(icon)), name);
        popUp->setItemData(i, name, Qt::ToolTipRole);
        if (i < kSideBarRows) {
            if (i < sideBar->rowCount())
                sideBar->setRow(i, name, icon, convertImageToGrayScale(icon));
            else
                sideBar->addRow(name, icon, convertImageToGrayScale(icon));
        }
    }
    while (sideBar->rowCount() > records.size())
        sideBar->removeLastRow();

    if (selected < 0 || selected >= popUp->count())
        selected = 0;
    popUp->setCurrentIndex(selected);
    applyCurrentNotebookTitle(selected);

    NotificationCenter::defaultCenter().post(Notifications::DiaryNewSelectedReloadNotes, this);
    if (selected < records.size()) {
        m_myPersonalSavePath =
            records.at(selected).value(NotebookRegistry::PathKey).toString() + QLatin1Char('/');
        m_securityScopeBookmarkData =
            records.at(selected).value(NotebookRegistry::SecUrlKey).toByteArray();
    }
    Q_EMIT currentNotebookChanged(m_myPersonalSavePath);
    NotificationCenter::defaultCenter().post(Notifications::ReloadFilesForSelectedNoticeBlock,
                                             this);
    sideBar->update();
}

void AppController::applyCurrentNotebookTitle(int index)
{
    QComboBox *popUp = m_window->notebookPopUp();
    QFont font(kPopUpFont);
    font.setPointSize(kPopUpPointSize);
    popUp->setFont(font);
    const QString name = popUp->itemText(index);
    m_window->setWindowTitle(name.isEmpty() ? QStringLiteral("Vellox") : name);
}

void AppController::diaryMenuInitFromNotification()
{
    if (m_window->notebookPopUp()->count() > m_registry->count())
        selectDiary(-1);
    m_menuRebuildTimer.start();
}

void AppController::selectDiary(int index)
{
    // The open entry's pending edits belong to the notebook we are leaving; text that cannot
    // be saved keeps us here when the user says so.
    if (m_entries && !m_entries->mayLeaveEntry()) {
        showCurrentNotebookSelected();
        return;
    }
    QComboBox *popUp = m_window->notebookPopUp();
    int n = index;
    if (n < 0) {
        n = 0;
        popUp->setCurrentIndex(0);
    }
    m_myPersonalSavePath = m_registry->savePathForIndex(n);
    m_securityScopeBookmarkData =
        m_registry->record(n).value(NotebookRegistry::SecUrlKey).toByteArray();
    resetEditorForNotebookChange();
    applyCurrentNotebookTitle(n);
    diaryMenuInit();
    loadFilesForSelectedNoticeBlock();
    m_window->entryList()->clearSelection();
    if (n > kSideBarRows - 1)
        prepareToSelectSideNavigationWithIndex(n);
    else
        m_window->sideBar()->selectRow(n);
    NotificationCenter::defaultCenter().post(Notifications::DiaryNewSelectedReloadNotes, this);
}

void AppController::sideBarDidSelectButton(int row)
{
    // The open entry's pending edits belong to the notebook we are leaving.
    if (m_entries && !m_entries->mayLeaveEntry()) {
        showCurrentNotebookSelected();
        return;
    }
    QComboBox *popUp = m_window->notebookPopUp();
    int n = row;
    if (row > kSideBarRows - 1)
        n = popUp->findText(m_window->sideBar()->rowToolTip(row), Qt::MatchExactly);
    if (n < 0)
        return;
    popUp->setCurrentIndex(n);
    m_myPersonalSavePath = m_registry->savePathForIndex(n);
    m_securityScopeBookmarkData =
        m_registry->record(n).value(NotebookRegistry::SecUrlKey).toByteArray();
    resetEditorForNotebookChange();
    applyCurrentNotebookTitle(n);
    diaryMenuInit();
    loadFilesForSelectedNoticeBlock();
    m_window->entryList()->clearSelection();
    NotificationCenter::defaultCenter().post(Notifications::DiaryNewSelectedReloadNotes, this);
}

void AppController::prepareToSelectSideNavigationWithIndex(int index)
{
    startSecurityScopeSandBox();
    const QVariantMap record = m_registry->record(index);
    const QString name = record.value(NotebookRegistry::NameKey).toString();
    const QImage icon = notebookIcon(record.value(NotebookRegistry::PathKey).toString(), 50);
    NotebookSideBar *sideBar = m_window->sideBar();
    if (sideBar->rowCount() > kSideBarRows)
        sideBar->setRow(kSideBarRows, name, icon, convertImageToGrayScale(icon));
    else
        sideBar->addRow(name, icon, convertImageToGrayScale(icon));
    sideBar->selectRow(kSideBarRows);
    stopSecurityScopeSandBox();
}

void AppController::resetEditorForNotebookChange()
{
    if (m_preview)
        m_preview->blank();
    m_window->titleField()->clear();
}

void AppController::loadFilesForSelectedNoticeBlock()
{
    if (m_entries)
        m_entries->loadFilesForSelectedNoticeBlock();
}

void AppController::windowDidBecomeMain()
{
    if (m_entries)
        m_entries->windowDidBecomeMain();
}

void AppController::windowDidResignMain()
{
    if (m_entries)
        m_entries->windowDidResignMain();
}

void AppController::selectMarkupLanguage(QAction *item)
{
    if (!item)
        return;
    for (int number = 1; number <= MarkupLanguage::Count; ++number) {
        if (QAction *action = m_window->markupLanguageAction(MarkupLanguage::menuTag(number)))
            action->setChecked(false);
    }
    MarkupLanguage::select(m_defaults, item->data().toInt());
    item->setChecked(true);
}

void AppController::tickCurrentMarkupLanguage()
{
    const int tag = MarkupLanguage::MenuTagBase + MarkupLanguage::current(m_defaults);
    if (QAction *action = m_window->markupLanguageAction(tag))
        action->setChecked(true);
}

// First run ----------------------------------------------------------------------------

bool AppController::runFirstRunPanel()
{
    m_firstRunPanel = new FirstRunPanel;
    FirstRunPanel *panel = m_firstRunPanel;
    connect(panel->nameField(), &QLineEdit::textChanged, this,
            &AppController::setFirstRun_DiaryNameString);
    connect(panel->chooseButton(), &QPushButton::clicked, this,
            &AppController::firstRun_selectFirstDiarySavePath);
    connect(panel->okButton(), &QPushButton::clicked, this, &AppController::firstRun_setupDiary);
    connect(panel->cancelButton(), &QPushButton::clicked, this,
            &AppController::firstRun_cancelAndQuit);
    connect(panel, &FirstRunPanel::cancelRequested, this, &AppController::firstRun_cancelAndQuit);
    checkIfOKButtonCanbeReleased();
    const int result = panel->exec();
    delete panel;
    return result == QDialog::Accepted && !m_firstRunCancelled;
}

void AppController::setFirstRun_DiaryNameString(const QString &name)
{
    m_firstRun_DiaryNameString = name;
    checkIfOKButtonCanbeReleased();
}

void AppController::checkIfOKButtonCanbeReleased()
{
    if (!m_firstRunPanel)
        return;
    const QString folder = m_firstRunPanel->folderField()->text();
    const bool ok = !m_firstRun_DiaryNameString.trimmed().isEmpty() && !folder.isEmpty() &&
                    QFileInfo(folder).isDir();
    m_firstRunPanel->okButton()->setEnabled(ok);
}

void AppController::firstRun_selectFirstDiarySavePath()
{
    FolderChooser::open(m_firstRunPanel, this,
                        [this](const QString &folder) { firstRun_setFolder(folder); });
}

void AppController::firstRun_setFolder(const QString &folder)
{
    if (!m_firstRunPanel || folder.isEmpty())
        return;
    m_firstRunPanel->folderField()->setText(QDir::cleanPath(folder));
    checkIfOKButtonCanbeReleased();
}

void AppController::firstRun_setupDiary()
{
    if (!m_firstRunPanel || !m_firstRunPanel->okButton()->isEnabled())
        return;
    const QString path = m_firstRunPanel->folderField()->text();
    m_registry->storeFirstNotebook(m_firstRun_DiaryNameString, path);
    m_myPersonalSavePath = path + QLatin1Char('/');
    m_firstRunPanel->accept();
}

void AppController::firstRun_cancelAndQuit()
{
    m_firstRunCancelled = true;
    if (m_firstRunPanel)
        m_firstRunPanel->done(QDialog::Rejected);
}

#include "OneClickStyleEditorController.h"

#include "TabActionFileDialog.h"
#include "core/UserDefaults.h"
#include "editor/TabActionStore.h"
#include "editor/TabActionTableModel.h"
#include "widgets/Alert.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFontInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QHideEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QShowEvent>
#include <QSplitter>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

namespace {
const QString kNewTabActionName = QStringLiteral("NewTabAction");
const QString kNewTabActionExpansion = QStringLiteral("Empty");
const QString kExternalSuffix = QStringLiteral("tabActions");

QFont expansionFont()
{
    QFont font(QStringLiteral("Menlo"), 13);
    font.setStyleHint(QFont::TypeWriter);
    font.setFixedPitch(true);
    if (!QFontInfo(font).fixedPitch()) {
        font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
        font.setPointSize(13);
    }
    return font;
}

QString withSuffix(const QString &path)
{
    if (QFileInfo(path).suffix() == kExternalSuffix)
        return path;
    return path + QLatin1Char('.') + kExternalSuffix;
}
} // namespace

OneClickStyleEditorController::OneClickStyleEditorController(UserDefaults &defaults,
                                                             QWidget *parent)
    : QWidget(parent, Qt::Window)
    , m_defaults(defaults)
    , m_model(new TabActionTableModel(this))
{
    setObjectName(QStringLiteral("OneClickStyleEditorController"));
    //% "Tab Actions"
    setWindowTitle(qtTrId("TAB_ACTIONS_WINDOW_TITLE"));
    setAccessibleName(windowTitle());
    buildInterface();

    // The rename is handled once the name editor has closed, so an alert never pops up in the
    // middle of the table's own commit.
    connect(m_model, &TabActionTableModel::renameRequested, this,
            &OneClickStyleEditorController::renameTabAction, Qt::QueuedConnection);
    // A row dragged out carries the text as it stands in the text area, saved or not.
    connect(m_styleEditTextView, &QPlainTextEdit::textChanged, this, [this] {
        if (!m_shownName.isEmpty())
            m_model->setExpansion(m_shownName, textAreaContent());
    });
    connect(&m_defaults, &UserDefaults::valueChanged, this,
            &OneClickStyleEditorController::settingChanged);

    setPathToTabActions();
    loadTabActions();
}

// Quitting the application destroys the window without closing it first.
OneClickStyleEditorController::~OneClickStyleEditorController()
{
    saveNewStyle();
}

void OneClickStyleEditorController::buildInterface()
{
    m_stylesTable = new QTableView(this);
    m_stylesTable->setObjectName(QStringLiteral("stylesTable"));
    m_stylesTable->setModel(m_model);
    m_stylesTable->horizontalHeader()->setObjectName(TabActionTableModel::ColumnIdentifier);
    m_stylesTable->horizontalHeader()->setStretchLastSection(true);
    m_stylesTable->horizontalHeader()->setAccessibleName(qtTrId("TAB_ACTION_COLUMN_TITLE"));
    //% "Tab actions are listed alphabetically, ignoring case"
    m_stylesTable->horizontalHeader()->setToolTip(qtTrId("TAB_ACTION_COLUMN_TIP"));
    m_stylesTable->verticalHeader()->hide();
    m_stylesTable->setShowGrid(false);
    m_stylesTable->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_stylesTable->setSelectionMode(QAbstractItemView::SingleSelection);
    m_stylesTable->setEditTriggers(QAbstractItemView::DoubleClicked |
                                   QAbstractItemView::EditKeyPressed |
                                   QAbstractItemView::SelectedClicked);
    m_stylesTable->setDragEnabled(true);
    m_stylesTable->setDragDropMode(QAbstractItemView::DragOnly);
    m_stylesTable->setDefaultDropAction(Qt::CopyAction);
    //% "Abbreviations"
    m_stylesTable->setAccessibleName(qtTrId("TAB_ACTION_TABLE_NAME"));
    //% "Type an abbreviation in the editor and press Tab to replace it with its text. "
    //% "Double-click a name to rename it; drag a row out to use its text elsewhere."
    m_stylesTable->setToolTip(qtTrId("TAB_ACTION_TABLE_TIP"));
    connect(m_stylesTable->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (m_updatingSelection)
            return;
        storeShownExpansion();
        saveStyleCollection();
        updateSelectedMarkupStyleItem();
    });

    auto *removeShortcut = new QAction(m_stylesTable);
    removeShortcut->setShortcuts({QKeySequence::Delete, QKeySequence(Qt::Key_Backspace)});
    removeShortcut->setShortcutContext(Qt::WidgetShortcut);
    connect(removeShortcut, &QAction::triggered, this, &OneClickStyleEditorController::removeStyle);
    m_stylesTable->addAction(removeShortcut);

    m_styleEditTextView = new QPlainTextEdit(this);
    m_styleEditTextView->setObjectName(QStringLiteral("styleEditTextView"));
    m_styleEditTextView->setFont(expansionFont());
    m_styleEditTextView->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    // White text needs a dark ground in every desktop theme.
    QPalette palette = m_styleEditTextView->palette();
    for (auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        palette.setColor(group, QPalette::Base, QColor(0x26, 0x26, 0x26));
        palette.setColor(group, QPalette::Text, Qt::white);
    }
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0x3a, 0x3a, 0x3a));
    m_styleEditTextView->setPalette(palette);
    //% "Expansion"
    m_styleEditTextView->setAccessibleName(qtTrId("TAB_ACTION_EXPANSION_NAME"));
    //% "The text that replaces the selected abbreviation. Write {*} where the cursor should "
    //% "stand afterwards."
    m_styleEditTextView->setToolTip(qtTrId("TAB_ACTION_EXPANSION_TIP"));

    //% "{*} marks where the cursor goes after the expansion."
    auto *hint = new QLabel(qtTrId("TAB_ACTION_CARET_HINT"), this);
    hint->setAccessibleName(hint->text());
    hint->setToolTip(m_styleEditTextView->toolTip());
    hint->setWordWrap(true);

    auto *editorColumn = new QWidget(this);
    auto *editorLayout = new QVBoxLayout(editorColumn);
    editorLayout->setContentsMargins(0, 0, 0, 0);
    editorLayout->addWidget(m_styleEditTextView, 1);
    editorLayout->addWidget(hint);

    auto *splitter = new QSplitter(Qt::Horizontal, this);
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(m_stylesTable);
    splitter->addWidget(editorColumn);
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 2);

    m_addButton = new QToolButton(this);
    m_addButton->setObjectName(QStringLiteral("addNewStyle"));
    m_addButton->setText(QStringLiteral("+"));
    //% "Add Tab Action"
    m_addButton->setAccessibleName(qtTrId("TAB_ACTION_ADD"));
    m_addButton->setToolTip(m_addButton->accessibleName());
    connect(m_addButton, &QToolButton::clicked, this, &OneClickStyleEditorController::addNewStyle);

    m_removeButton = new QToolButton(this);
    m_removeButton->setObjectName(QStringLiteral("removeStyle"));
    m_removeButton->setText(QString(QChar(0x2212)));
    //% "Remove Tab Action"
    m_removeButton->setAccessibleName(qtTrId("TAB_ACTION_REMOVE"));
    m_removeButton->setToolTip(m_removeButton->accessibleName());
    connect(m_removeButton, &QToolButton::clicked, this,
            &OneClickStyleEditorController::removeStyle);

    //% "Use a file of my own"
    m_useExternalBox = new QCheckBox(qtTrId("TAB_ACTION_USE_EXTERNAL"), this);
    m_useExternalBox->setObjectName(QStringLiteral("useExternalFile"));
    m_useExternalBox->setAccessibleName(m_useExternalBox->text());
    //% "Keep the tab actions in a .tabActions file you choose, for example in a synchronised "
    //% "folder"
    m_useExternalBox->setToolTip(qtTrId("TAB_ACTION_USE_EXTERNAL_TIP"));
    connect(m_useExternalBox, &QCheckBox::toggled, this,
            &OneClickStyleEditorController::setUseExternalFile);

    //% "New File…"
    m_newFileButton = new QPushButton(qtTrId("TAB_ACTION_NEW_FILE"), this);
    m_newFileButton->setObjectName(QStringLiteral("setNewTabActionFile"));
    m_newFileButton->setAccessibleName(m_newFileButton->text());
    //% "Start a new, empty tab-action file and use it"
    m_newFileButton->setToolTip(qtTrId("TAB_ACTION_NEW_FILE_TIP"));
    connect(m_newFileButton, &QPushButton::clicked, this,
            &OneClickStyleEditorController::setNewTabActionFile);

    //% "Choose File…"
    m_chooseFileButton = new QPushButton(qtTrId("TAB_ACTION_CHOOSE_FILE"), this);
    m_chooseFileButton->setObjectName(QStringLiteral("chooseTabActionFile"));
    m_chooseFileButton->setAccessibleName(m_chooseFileButton->text());
    //% "Use an existing tab-action file"
    m_chooseFileButton->setToolTip(qtTrId("TAB_ACTION_CHOOSE_FILE_TIP"));
    connect(m_chooseFileButton, &QPushButton::clicked, this,
            &OneClickStyleEditorController::chooseTabActionFile);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_addButton);
    buttons->addWidget(m_removeButton);
    buttons->addStretch(1);
    buttons->addWidget(m_useExternalBox);
    buttons->addWidget(m_newFileButton);
    buttons->addWidget(m_chooseFileButton);

    m_pathLabel = new QLabel(this);
    m_pathLabel->setObjectName(QStringLiteral("pathLabel"));
    m_pathLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    //% "The file that holds the tab actions"
    m_pathLabel->setAccessibleName(qtTrId("TAB_ACTION_PATH_NAME"));
    m_pathLabel->setToolTip(m_pathLabel->accessibleName());

    m_problemLabel = new QLabel(this);
    m_problemLabel->setObjectName(QStringLiteral("problemLabel"));
    m_problemLabel->setWordWrap(true);
    m_problemLabel->setStyleSheet(QStringLiteral("color: #b3261e;"));
    //% "Problem with the tab-action file"
    m_problemLabel->setAccessibleName(qtTrId("TAB_ACTION_PROBLEM_NAME"));
    m_problemLabel->setToolTip(m_problemLabel->accessibleName());
    m_problemLabel->hide();

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(splitter, 1);
    layout->addLayout(buttons);
    layout->addWidget(m_pathLabel);
    layout->addWidget(m_problemLabel);
    resize(680, 440);
}

QString OneClickStyleEditorController::fileProblem() const
{
    return m_problemLabel->isHidden() ? QString() : m_problemLabel->text();
}

void OneClickStyleEditorController::showWindow()
{
    if (isVisible())
        reloadFromFile();
    else
        show();
    raise();
    activateWindow();
}

void OneClickStyleEditorController::showEvent(QShowEvent *event)
{
    // Shown again, also from the task bar: the file may have been changed or deleted since.
    reloadFromFile();
    QWidget::showEvent(event);
}

void OneClickStyleEditorController::reloadFromFile()
{
    // Text typed here and not yet stored is the user's; it goes to the file first.
    saveNewStyle();
    setPathToTabActions();
    loadTabActions();
}

QString OneClickStyleEditorController::fileStamp() const
{
    const QFileInfo info(m_pathToTabActionsfile);
    return info.exists() ? info.lastModified().toString(Qt::ISODateWithMs) + QLatin1Char(' ') +
                               QString::number(info.size())
                         : QString();
}

// Closing hides the window, so this covers it too.
void OneClickStyleEditorController::hideEvent(QHideEvent *event)
{
    if (!event->spontaneous())
        saveNewStyle();
    QWidget::hideEvent(event);
}

void OneClickStyleEditorController::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::ActivationChange && isVisible()) {
        if (!isActiveWindow())
            saveNewStyle();
        else if (fileStamp() != m_fileStamp)
            reloadFromFile();
    }
    QWidget::changeEvent(event);
}

void OneClickStyleEditorController::setPathToTabActions()
{
    m_pathToTabActionsfile =
        TabActionStore::pathInUse(TabActionStore::FileSettings::from(m_defaults));
    refreshFileControls();
}

void OneClickStyleEditorController::refreshFileControls()
{
    const QSignalBlocker blocker(m_useExternalBox);
    m_useExternalBox->setChecked(m_defaults.value(Settings::TabActionUseExternalFile));
    m_pathLabel->setText(QDir::toNativeSeparators(m_pathToTabActionsfile));
    m_pathLabel->setToolTip(m_pathToTabActionsfile);
}

void OneClickStyleEditorController::loadTabActions()
{
    QString problem;
    m_listOfTabActions = TabActionStore::load(m_pathToTabActionsfile, &problem);
    m_savedTabActions = m_listOfTabActions;
    m_fileStamp = fileStamp();
    const bool exists = QFileInfo::exists(m_pathToTabActionsfile);
    if (problem.isEmpty()) {
        showFileProblem(QString());
    } else if (exists) {
        //% "%1 could not be read (%2). The list is empty; the file stays as it is until you "
        //% "change the list."
        showFileProblem(qtTrId("TAB_ACTION_FILE_UNREADABLE").arg(m_pathToTabActionsfile, problem));
    } else if (m_pathToTabActionsfile != TabActionStore::internalPath()) {
        //% "%1 does not exist. The list is empty; adding a tab action creates the file again."
        showFileProblem(qtTrId("TAB_ACTION_FILE_MISSING").arg(m_pathToTabActionsfile));
    } else {
        // No internal file simply means no tab actions yet.
        showFileProblem(QString());
    }
    const QString keep = m_listOfTabActions.contains(m_shownName)
                             ? m_shownName
                             : TabActionStore::sortedAbbreviations(m_listOfTabActions).value(0);
    m_shownName.clear();
    rebuildDisplay(keep);
    updateSelectedMarkupStyleItem();
}

bool OneClickStyleEditorController::saveStyleCollection()
{
    if (m_listOfTabActions == m_savedTabActions)
        return true;
    QString error;
    if (!TabActionStore::save(m_pathToTabActionsfile, m_listOfTabActions, &error)) {
        //% "Your changes could not be saved to %1: %2"
        showFileProblem(qtTrId("TAB_ACTION_FILE_NOT_SAVED").arg(m_pathToTabActionsfile, error));
        return false;
    }
    m_savedTabActions = m_listOfTabActions;
    m_fileStamp = fileStamp();
    showFileProblem(QString());
    return true;
}

void OneClickStyleEditorController::saveNewStyle()
{
    storeShownExpansion();
    saveStyleCollection();
}

void OneClickStyleEditorController::storeShownExpansion()
{
    if (m_shownName.isEmpty() || !m_listOfTabActions.contains(m_shownName))
        return;
    // Only edited text is taken back: an untouched expansion keeps every character exactly
    // as the file has it, even those a text widget would normalise.
    if (!m_styleEditTextView->document()->isModified())
        return;
    m_listOfTabActions.insert(m_shownName, textAreaContent());
    m_styleEditTextView->document()->setModified(false);
}

QString OneClickStyleEditorController::textAreaContent() const
{
    // The raw text keeps no-break spaces (plain text would turn them into spaces); paragraph
    // and line separators (Return, Shift+Return) become ordinary line breaks.
    QString text = m_styleEditTextView->document()->toRawText();
    text.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    text.replace(QChar::LineSeparator, QLatin1Char('\n'));
    return text;
}

void OneClickStyleEditorController::updateSelectedMarkupStyleItem()
{
    const int row = selectedRow();
    m_shownName = row >= 0 ? m_tableDisplayArray.at(row) : QString();
    const QVariant value = m_listOfTabActions.value(m_shownName);
    const QSignalBlocker blocker(m_styleEditTextView);
    m_styleEditTextView->setPlainText(value.toString());
    m_styleEditTextView->document()->setModified(false);
    m_styleEditTextView->setEnabled(row >= 0);
    // Entries that are not text (from a hand-made file) are shown but left as they are.
    m_styleEditTextView->setReadOnly(row >= 0 && value.typeId() != QMetaType::QString);
    m_removeButton->setEnabled(row >= 0);
}

int OneClickStyleEditorController::selectedRow() const
{
    const QModelIndexList rows = m_stylesTable->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
}

void OneClickStyleEditorController::selectName(const QString &name)
{
    const QScopedValueRollback guard(m_updatingSelection, true);
    const int row = m_model->rowOfName(name);
    if (row < 0) {
        m_stylesTable->clearSelection();
        return;
    }
    const QModelIndex index = m_model->index(row, 0);
    m_stylesTable->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                                QItemSelectionModel::Rows);
    m_stylesTable->scrollTo(index);
}

void OneClickStyleEditorController::rebuildDisplay(const QString &nameToSelect)
{
    const QScopedValueRollback guard(m_updatingSelection, true);
    m_tableDisplayArray = TabActionStore::sortedAbbreviations(m_listOfTabActions);
    m_model->setTabActions(m_tableDisplayArray, m_listOfTabActions);
    selectName(nameToSelect);
}

void OneClickStyleEditorController::addNewStyle()
{
    saveNewStyle();
    // A pending new action whose text the user already wrote is reopened, not reset: its
    // text would otherwise be lost before it ever got a name.
    const QVariant existing = m_listOfTabActions.value(kNewTabActionName);
    if (!existing.isValid() || existing.toString() == kNewTabActionExpansion ||
        existing.toString().isEmpty())
        m_listOfTabActions.insert(kNewTabActionName, kNewTabActionExpansion);
    rebuildDisplay(kNewTabActionName);
    updateSelectedMarkupStyleItem();
    saveStyleCollection();
    const QModelIndex index = m_model->index(m_model->rowOfName(kNewTabActionName), 0);
    m_stylesTable->setFocus();
    m_stylesTable->scrollTo(index);
    m_stylesTable->edit(index);
}

void OneClickStyleEditorController::removeStyle()
{
    const int row = selectedRow();
    if (row < 0) {
        QApplication::beep();
        return;
    }
    m_listOfTabActions.remove(m_tableDisplayArray.at(row));
    // The removed action's unsaved text goes with it.
    m_shownName.clear();
    // After a failed save the list stays as the user left it, beside the message saying so.
    if (saveStyleCollection())
        loadTabActions();
    else
        rebuildDisplay(QString());
    if (!m_tableDisplayArray.isEmpty())
        selectName(m_tableDisplayArray.at(qMin(row, int(m_tableDisplayArray.size()) - 1)));
    updateSelectedMarkupStyleItem();
}

void OneClickStyleEditorController::renameTabAction(int row, const QString &newName)
{
    if (row < 0 || row >= m_tableDisplayArray.size())
        return;
    const QString oldName = m_tableDisplayArray.at(row);
    switch (TabActionStore::checkNewName(newName, m_tableDisplayArray)) {
    case TabActionStore::NameCheck::Empty:
        // Clearing the name is taken as changing one's mind.
        return;
    case TabActionStore::NameCheck::ContainsBlank:
        //% "Blanks are not allowed"
        Alert::show(this, qtTrId("TAB_ACTION_WHITHE_TITLE"),
                    //% "An abbreviation is one word: typing a space or tab ends it. Please "
                    //% "choose a name without blanks."
                    qtTrId("TAB_ACTION_WHITE_MESSAGE"), {QStringLiteral("OK")});
        reopenNameEditor(row);
        return;
    case TabActionStore::NameCheck::Duplicate:
        //% "This name is already taken"
        Alert::show(this, qtTrId("TAB_ACTION_DUPLICATE_TITLE"),
                    //% "Every abbreviation must be unique, and this one is already in the list. "
                    //% "Please choose another name."
                    qtTrId("TAB_ACTION_DUPLICATE_MESSAGE"), {QStringLiteral("OK")});
        reopenNameEditor(row);
        return;
    case TabActionStore::NameCheck::Acceptable:
        break;
    }
    {
        const QScopedValueRollback guard(m_updatingSelection, true);
        m_stylesTable->clearSelection();
    }
    // The text area belongs to the shown action (the renamed one when it was selected, as
    // usual); store it there first so the rename carries the latest text.
    storeShownExpansion();
    const QVariant expansion = m_listOfTabActions.take(oldName);
    m_listOfTabActions.insert(newName, expansion);
    if (m_shownName == oldName)
        m_shownName = newName;
    rebuildDisplay(newName);
    updateSelectedMarkupStyleItem();
    saveStyleCollection();
}

void OneClickStyleEditorController::reopenNameEditor(int row)
{
    const QModelIndex index = m_model->index(row, 0);
    if (!index.isValid() || m_stylesTable->indexWidget(index))
        return;
    m_stylesTable->scrollTo(index);
    m_stylesTable->setFocus();
    m_stylesTable->edit(index);
}

void OneClickStyleEditorController::setNewTabActionFile()
{
    const QString path = TabActionFileDialog::chooseNewFile(this, kExternalSuffix);
    if (!path.isEmpty())
        createExternalTabActionFile(path);
}

void OneClickStyleEditorController::chooseTabActionFile()
{
    const QString path = TabActionFileDialog::chooseExistingFile(this);
    if (!path.isEmpty())
        useExternalTabActionFile(path);
}

void OneClickStyleEditorController::createExternalTabActionFile(const QString &path)
{
    saveNewStyle();
    const QString target = withSuffix(path);
    QString error;
    if (!TabActionStore::save(target, QVariantMap(), &error)) {
        showFileProblem(qtTrId("TAB_ACTION_FILE_NOT_SAVED").arg(target, error));
        return;
    }
    useExternalTabActionFile(target);
}

void OneClickStyleEditorController::useExternalTabActionFile(const QString &path)
{
    saveNewStyle();
    m_defaults.setValue(Settings::TabActionExternFilePath, path);
    // No security-scoped bookmark exists on this platform; the path is all that is needed.
    m_defaults.remove(Settings::TabActionExternFilePathSecScope);
    m_defaults.setValue(Settings::TabActionUseExternalFile, true);
    setPathToTabActions();
    loadTabActions();
}

void OneClickStyleEditorController::setUseExternalFile(bool on)
{
    saveNewStyle();
    if (on && m_defaults.value(Settings::TabActionExternFilePath).isEmpty()) {
        chooseTabActionFile();
        refreshFileControls();
        return;
    }
    m_defaults.setValue(Settings::TabActionUseExternalFile, on);
    setPathToTabActions();
    loadTabActions();
}

// The preferences may switch files while the window is open: the open list is saved where
// it came from before the other file is shown.
void OneClickStyleEditorController::settingChanged(const QString &key)
{
    if (key != Settings::TabActionUseExternalFile.name() &&
        key != Settings::TabActionExternFilePath.name())
        return;
    if (TabActionStore::pathInUse(TabActionStore::FileSettings::from(m_defaults)) ==
        m_pathToTabActionsfile) {
        refreshFileControls();
        return;
    }
    saveNewStyle();
    setPathToTabActions();
    loadTabActions();
}

void OneClickStyleEditorController::showFileProblem(const QString &message)
{
    m_problemLabel->setText(message);
    m_problemLabel->setVisible(!message.isEmpty());
}

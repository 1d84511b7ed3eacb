#include "MainWindow.h"

#include "render/MarkupLanguage.h"
#include "widgets/MenuBuilder.h"
#include "widgets/MessageBar.h"
#include "widgets/NotebookSideBar.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QRegularExpressionValidator>
#include <QSplitter>
#include <QStackedWidget>
#include <QStyledItemDelegate>
#include <QToolButton>
#include <QVBoxLayout>

namespace {
QString text(const char *id)
{
    return qtTrId(id);
}
} // namespace

MainWindow::MainWindow(QWidget *parent)
    : QMainWindow(parent)
    , m_sideBar(new NotebookSideBar)
    , m_notebookPopUp(new QComboBox)
    , m_titleField(new QLineEdit)
    , m_entryList(new QListView)
    , m_editor(new QPlainTextEdit)
    , m_previewArea(new QWidget)
    , m_contentStack(new QStackedWidget)
    , m_messageBar(new MessageBar)
    , m_attachmentArea(new QFrame)
    , m_wordCounter(new QLabel(QStringLiteral("0:0")))
    , m_actions(new MenuBuilder(this, this))
{
    setObjectName(QStringLiteral("mainWindow"));
    setWindowIcon(QIcon(QStringLiteral(":/icons/vellox.svg")));
    setAccessibleName(text("MAIN_WINDOW_NAME"));

    m_notebookPopUp->setObjectName(QStringLiteral("notebookPopUp"));
    m_notebookPopUp->setAccessibleName(text("NOTEBOOK_POPUP_NAME"));
    m_notebookPopUp->setToolTip(text("NOTEBOOK_POPUP_TIP"));
    m_notebookPopUp->setIconSize(QSize(32, 32));
    m_notebookPopUp->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    // The open list draws each notebook's name beside its icon in the list's own colours;
    // the menu-style default painted the names in the closed pop-up's white.
    m_notebookPopUp->setItemDelegate(new QStyledItemDelegate(m_notebookPopUp));

    m_titleField->setObjectName(QStringLiteral("titleField"));
    m_titleField->setAccessibleName(text("TITLE_FIELD_NAME"));
    m_titleField->setToolTip(text("TITLE_FIELD_TIP"));
    m_titleField->setPlaceholderText(text("THE_CURRENT_FILENAME_PLACEHOLDER"));
    QFont titleFont = m_titleField->font();
    titleFont.setPointSize(17);
    m_titleField->setFont(titleFont);
    m_titleField->setClearButtonEnabled(true);
    // The title is the entry's file name: a slash would put the entry into a subfolder where
    // the list never shows it.
    m_titleField->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[^/]*")), m_titleField));

    m_entryList->setObjectName(QStringLiteral("entryList"));
    m_entryList->setAccessibleName(text("ENTRY_LIST_NAME"));
    m_entryList->setToolTip(text("ENTRY_LIST_TIP"));
    m_entryList->setSelectionMode(QAbstractItemView::SingleSelection);
    m_entryList->setContextMenuPolicy(Qt::ActionsContextMenu);
    m_entryList->setUniformItemSizes(true);
    m_entryList->setAlternatingRowColors(true);

    m_editor->setObjectName(QStringLiteral("editor"));
    m_editor->setAccessibleName(text("EDITOR_NAME"));
    m_editor->setToolTip(text("EDITOR_TIP"));

    m_previewArea->setObjectName(QStringLiteral("previewArea"));
    m_previewArea->setAccessibleName(text("PREVIEW_NAME"));
    m_previewArea->setToolTip(text("PREVIEW_TIP"));

    m_contentStack->setObjectName(QStringLiteral("contentStack"));
    m_contentStack->addWidget(m_editor);
    m_contentStack->addWidget(m_previewArea);

    auto *attachmentFrame = static_cast<QFrame *>(m_attachmentArea);
    attachmentFrame->setFrameShape(QFrame::StyledPanel);
    m_attachmentArea->setObjectName(QStringLiteral("attachmentArea"));
    m_attachmentArea->setAccessibleName(text("ATTACHMENT_AREA_NAME"));
    m_attachmentArea->setToolTip(text("ATTACHMENT_AREA_TIP"));
    m_attachmentArea->setMinimumWidth(180);
    auto *attachmentLayout = new QVBoxLayout(m_attachmentArea);
    auto *attachmentHint = new QLabel(text("ATTACHMENT_AREA_EMPTY"), m_attachmentArea);
    attachmentHint->setWordWrap(true);
    attachmentHint->setAlignment(Qt::AlignCenter);
    attachmentHint->setAccessibleName(attachmentHint->text());
    attachmentHint->setToolTip(text("ATTACHMENT_AREA_TIP"));
    attachmentLayout->addWidget(attachmentHint);
    m_attachmentArea->hide();

    m_wordCounter->setObjectName(QStringLiteral("wordCounter"));
    m_wordCounter->setAccessibleName(text("WORD_COUNTER_NAME"));
    m_wordCounter->setToolTip(text("WORD_COUNTER_TIP"));

    // Layout: side bar | entries (title field above the list) | editor or preview | attachments
    auto *listColumn = new QWidget;
    auto *listLayout = new QVBoxLayout(listColumn);
    listLayout->setContentsMargins(0, 0, 0, 0);
    listLayout->setSpacing(4);
    listLayout->addWidget(m_titleField);
    listLayout->addWidget(m_entryList, 1);

    auto *contentColumn = new QWidget;
    auto *contentLayout = new QVBoxLayout(contentColumn);
    contentLayout->setContentsMargins(0, 0, 0, 0);
    contentLayout->addWidget(m_messageBar);
    contentLayout->addWidget(m_contentStack, 1);

    m_splitter = new QSplitter(Qt::Horizontal);
    m_splitter->setObjectName(QStringLiteral("mainSplitter"));
    m_splitter->addWidget(listColumn);
    m_splitter->addWidget(contentColumn);
    m_splitter->addWidget(m_attachmentArea);
    m_splitter->setStretchFactor(0, 2);
    m_splitter->setStretchFactor(1, 5);
    m_splitter->setStretchFactor(2, 1);
    m_splitter->setSizes({280, 700, 0});

    auto *body = new QWidget;
    auto *bodyLayout = new QHBoxLayout(body);
    bodyLayout->setContentsMargins(0, 0, 8, 0);
    bodyLayout->setSpacing(6);
    bodyLayout->addWidget(m_sideBar);
    bodyLayout->addWidget(m_splitter, 1);

    auto *bottomBar = new QWidget;
    bottomBar->setFixedHeight(36);
    auto *bottomLayout = new QHBoxLayout(bottomBar);
    bottomLayout->setContentsMargins(72, 0, 12, 0);
    bottomLayout->addStretch(1);
    bottomLayout->addWidget(m_wordCounter);

    auto *central = new QWidget;
    auto *centralLayout = new QVBoxLayout(central);
    centralLayout->setContentsMargins(0, 0, 0, 0);
    centralLayout->setSpacing(0);
    centralLayout->addWidget(buildTopBar());
    centralLayout->addWidget(body, 1);
    centralLayout->addWidget(bottomBar);
    setCentralWidget(central);

    buildMenus();
    resize(1180, 760);
}

QToolButton *MainWindow::makeToolButton(const QString &name, const QString &tip,
                                        const QString &icon)
{
    auto *button = new QToolButton;
    button->setObjectName(icon + QStringLiteral("Button"));
    button->setAccessibleName(name);
    button->setToolTip(tip);
    // The header is dark in both appearances, so its buttons always carry the white icons.
    button->setIcon(themedIcon(icon, true));
    button->setIconSize(QSize(20, 20));
    button->setAutoRaise(true);
    button->setProperty("iconBase", icon);
    return button;
}

QWidget *MainWindow::buildTopBar()
{
    auto *bar = new QWidget;
    bar->setObjectName(QStringLiteral("topBar"));
    bar->setAttribute(Qt::WA_StyledBackground, true);
    bar->setStyleSheet(QStringLiteral(
        "#topBar { background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #37414f,"
        "  stop:1 #2b333e); }"
        "#topBar QComboBox#notebookPopUp { color: #ffffff; background: transparent;"
        "  border: none; padding: 0 6px; }"
        "#topBar QComboBox#notebookPopUp QAbstractItemView { color: #000000;"
        "  background: #ffffff; selection-background-color: #3f7fbf;"
        "  selection-color: #ffffff; }"
        "#topBar QToolButton { border: none; border-radius: 4px; padding: 4px; }"
        "#topBar QToolButton:hover { background: rgba(255, 255, 255, 0.12); }"
        "#topBar QToolButton:checked { background: rgba(255, 255, 255, 0.22); }"));
    auto *layout = new QHBoxLayout(bar);
    layout->setContentsMargins(8, 6, 8, 6);
    m_addEntryButton =
        makeToolButton(text("ADD_ENTRY_NAME"), text("ADD_ENTRY_TIP"), QStringLiteral("add"));
    m_removeEntryButton = makeToolButton(text("REMOVE_ENTRY_NAME"), text("REMOVE_ENTRY_TIP"),
                                         QStringLiteral("remove"));
    m_editModeButton =
        makeToolButton(text("EDIT_MODE_NAME"), text("EDIT_MODE_TIP"), QStringLiteral("editMode"));
    m_previewModeButton = makeToolButton(text("PREVIEW_MODE_NAME"), text("PREVIEW_MODE_TIP"),
                                         QStringLiteral("previewMode"));
    m_editModeButton->setCheckable(true);
    m_previewModeButton->setCheckable(true);
    m_editModeButton->setChecked(true);
    m_attachmentButton =
        makeToolButton(text("ATTACHMENTS_BUTTON_NAME"), text("ATTACHMENTS_BUTTON_TIP"),
                       QStringLiteral("attachments"));
    m_attachmentButton->setCheckable(true);
    m_styleButton = makeToolButton(text("STYLES_BUTTON_NAME"), text("STYLES_BUTTON_TIP"),
                                   QStringLiteral("styles"));
    m_settingsButton = makeToolButton(text("SETTINGS_BUTTON_NAME"), text("SETTINGS_BUTTON_TIP"),
                                      QStringLiteral("gear"));
    layout->addWidget(m_notebookPopUp);
    layout->addSpacing(12);
    layout->addWidget(m_addEntryButton);
    layout->addWidget(m_removeEntryButton);
    layout->addStretch(1);
    layout->addWidget(m_editModeButton);
    layout->addWidget(m_previewModeButton);
    layout->addSpacing(12);
    layout->addWidget(m_styleButton);
    layout->addWidget(m_attachmentButton);
    layout->addWidget(m_settingsButton);
    return bar;
}

void MainWindow::buildMenus()
{
    m_actions->setTextProvider([](const ActionEntry &entry) {
        return MarkupLanguage::displayName(entry.tag - MarkupLanguage::MenuTagBase);
    });
    m_actions->buildMenuBar(menuBar());
    auto *group = new QActionGroup(this);
    group->setExclusive(true);
    for (int number = 1; number <= MarkupLanguage::Count; ++number)
        group->addAction(markupLanguageAction(MarkupLanguage::menuTag(number)));
    m_entryList->addActions(m_actions->actionsIn(QStringLiteral("contextMenuEntryList")));
}

QAction *MainWindow::action(const QString &objectName) const
{
    return m_actions->action(objectName);
}

QMenu *MainWindow::menu(const QString &objectName) const
{
    return m_actions->menu(objectName);
}

QAction *MainWindow::markupLanguageAction(int tag) const
{
    return m_actions->actionWithTag(tag);
}

void MainWindow::setEditor(QPlainTextEdit *editor)
{
    if (!editor || editor == m_editor)
        return;
    const int index = m_contentStack->indexOf(m_editor);
    m_contentStack->insertWidget(index, editor);
    m_contentStack->removeWidget(m_editor);
    m_editor->deleteLater();
    m_editor = editor;
    if (m_editor->objectName().isEmpty())
        m_editor->setObjectName(QStringLiteral("editor"));
    if (m_editor->accessibleName().isEmpty())
        m_editor->setAccessibleName(text("EDITOR_NAME"));
    if (m_editor->toolTip().isEmpty())
        m_editor->setToolTip(text("EDITOR_TIP"));
    showEditor();
}

void MainWindow::setPreviewWidget(QWidget *preview)
{
    if (!preview || preview == m_previewArea)
        return;
    const int index = m_contentStack->indexOf(m_previewArea);
    m_contentStack->insertWidget(index, preview);
    m_contentStack->removeWidget(m_previewArea);
    m_previewArea->deleteLater();
    m_previewArea = preview;
}

void MainWindow::showEditor()
{
    m_contentStack->setCurrentWidget(m_editor);
    m_editModeButton->setChecked(true);
    m_previewModeButton->setChecked(false);
}

void MainWindow::showPreview()
{
    m_contentStack->setCurrentWidget(m_previewArea);
    m_editModeButton->setChecked(false);
    m_previewModeButton->setChecked(true);
}

void MainWindow::setAttachmentAreaVisible(bool visible)
{
    m_attachmentArea->setVisible(visible);
    m_attachmentButton->setChecked(visible);
    if (visible && m_splitter->sizes().value(2) == 0) {
        QList<int> sizes = m_splitter->sizes();
        sizes[1] = qMax(200, sizes[1] - 220);
        sizes[2] = 220;
        m_splitter->setSizes(sizes);
    }
}

QIcon MainWindow::themedIcon(const QString &baseName, bool white)
{
    return QIcon(QStringLiteral(":/icons/%1%2.svg")
                     .arg(baseName, white ? QStringLiteral("White") : QStringLiteral("Template")));
}

void MainWindow::applyDarkAppearance(bool dark)
{
    m_dark = dark;
    const QList<QToolButton *> buttons = {
        m_addEntryButton,   m_removeEntryButton, m_editModeButton, m_previewModeButton,
        m_attachmentButton, m_styleButton,       m_settingsButton};
    Q_UNUSED(buttons);
    m_sideBar->setDarkAppearance(dark);
    if (dark) {
        setStyleSheet(QStringLiteral(
            "QMainWindow, #topBar, QSplitter, QWidget#mainWindow > QWidget { background: #232323; }"
            "QListView#entryList { background: #000000; color: #ffffff;"
            "  alternate-background-color: #101010; border: none; }"
            "QLineEdit#titleField { background: #2d2d2d; color: #ffffff; border: 1px solid #444;"
            "  padding: 4px; }"
            "QLabel#wordCounter { color: #ffffff; }"
            "QComboBox#notebookPopUp { color: #ffffff; background: #2d2d2d; }"
            "QToolButton { color: #ffffff; }"
            "QWidget#quickNotesView QLabel { color: #ffffff; }"
            "QWidget#quickNotesView QToolButton { background: #2d2d2d; border: 1px solid #555;"
            "  padding: 1px 5px; }"));
    } else {
        setStyleSheet(QString());
    }
}

void MainWindow::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::ActivationChange)
        Q_EMIT activationChanged(isActiveWindow());
    QMainWindow::changeEvent(event);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    Q_EMIT closing();
    QMainWindow::closeEvent(event);
}

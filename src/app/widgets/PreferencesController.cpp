#include "PreferencesController.h"

#include "EditorPreferencePanes.h"
#include "NotebookOrderModel.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "library/NotebookRegistry.h"
#include "widgets/Alert.h"
#include "widgets/FolderChooser.h"
#include "widgets/IconChooserDialog.h"

#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QImageReader>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {
QPushButton *makeButton(const QString &textKey, const QString &tipKey, QWidget *parent)
{
    auto *button = new QPushButton(qtTrId(textKey.toUtf8().constData()), parent);
    button->setAccessibleName(button->text());
    button->setToolTip(qtTrId(tipKey.toUtf8().constData()));
    return button;
}
} // namespace

PreferencesController::PreferencesController(UserDefaults &defaults, QObject *parent)
    : QObject(parent)
    , m_defaults(defaults)
    , m_registry(new NotebookRegistry(defaults))
{
    buildWindow();
    NotificationCenter::defaultCenter().addObserver(
        this, Notifications::SelectedIcon,
        [this](const Notification &note) { loadIcon(note.object.toString()); });
    loadDiaries();
}

PreferencesController::~PreferencesController()
{
    delete m_registry;
    delete m_window;
}

void PreferencesController::showWindow()
{
    loadDiaries();
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

void PreferencesController::buildWindow()
{
    m_window = new QDialog;
    m_window->setWindowTitle(qtTrId("PREFERENCES_WINDOW_TITLE"));
    m_window->setAccessibleName(m_window->windowTitle());
    m_window->setObjectName(QStringLiteral("preferencesWindow"));
    m_tabs = new QTabWidget(m_window);
    m_tabs->setAccessibleName(qtTrId("PREFERENCES_PANES"));
    m_tabs->setToolTip(qtTrId("PREFERENCES_PANES"));
    m_tabs->addTab(buildNotebookPane(), qtTrId("PREFERENCES_NOTEBOOKS_PANE"));
    EditorPreferencePanes::addTo(m_tabs, m_defaults);
    auto *layout = new QVBoxLayout(m_window);
    layout->addWidget(m_tabs);
    m_window->resize(640, 460);
}

QWidget *PreferencesController::buildNotebookPane()
{
    auto *pane = new QWidget;
    pane->setAccessibleName(qtTrId("PREFERENCES_NOTEBOOKS_PANE"));

    m_selector = new QComboBox(pane);
    m_selector->setAccessibleName(qtTrId("PREFERENCES_NOTEBOOK_SELECTOR"));
    m_selector->setToolTip(qtTrId("PREFERENCES_NOTEBOOK_SELECTOR_TIP"));
    connect(m_selector, &QComboBox::activated, this,
            &PreferencesController::selectAnotherDiaryOption);

    m_nameField = new QLineEdit(pane);
    m_nameField->setAccessibleName(qtTrId("PREFERENCES_NOTEBOOK_NAME"));
    m_nameField->setToolTip(qtTrId("PREFERENCES_NOTEBOOK_NAME_TIP"));

    m_locationField = new QLineEdit(pane);
    m_locationField->setReadOnly(true);
    m_locationField->setAccessibleName(qtTrId("PREFERENCES_NOTEBOOK_LOCATION"));
    m_locationField->setToolTip(qtTrId("PREFERENCES_NOTEBOOK_LOCATION_TIP"));
    auto *changeLocation = makeButton(QStringLiteral("PREFERENCES_CHANGE_LOCATION"),
                                      QStringLiteral("PREFERENCES_CHANGE_LOCATION_TIP"), pane);
    connect(changeLocation, &QPushButton::clicked, this,
            &PreferencesController::diaryChangeLocation);

    m_iconWell = new QLabel(pane);
    m_iconWell->setFixedSize(72, 72);
    m_iconWell->setFrameShape(QFrame::StyledPanel);
    m_iconWell->setAlignment(Qt::AlignCenter);
    m_iconWell->setAccessibleName(qtTrId("PREFERENCES_NOTEBOOK_ICON"));
    m_iconWell->setToolTip(qtTrId("PREFERENCES_NOTEBOOK_ICON_TIP"));
    auto *iconFile = makeButton(QStringLiteral("PREFERENCES_CHANGE_ICON"),
                                QStringLiteral("PREFERENCES_CHANGE_ICON_TIP"), pane);
    connect(iconFile, &QPushButton::clicked, this, &PreferencesController::diaryChangeIcon);
    auto *iconTheme = makeButton(QStringLiteral("PREFERENCES_ICON_FROM_THEME"),
                                 QStringLiteral("PREFERENCES_ICON_FROM_THEME_TIP"), pane);
    connect(iconTheme, &QPushButton::clicked, this, &PreferencesController::showIconChooser);

    auto *create = makeButton(QStringLiteral("PREFERENCES_NEW_NOTEBOOK"),
                              QStringLiteral("PREFERENCES_NEW_NOTEBOOK_TIP"), pane);
    connect(create, &QPushButton::clicked, this, &PreferencesController::diaryCreateNew);
    auto *remove = makeButton(QStringLiteral("PREFERENCES_DELETE_NOTEBOOK"),
                              QStringLiteral("PREFERENCES_DELETE_NOTEBOOK_TIP"), pane);
    connect(remove, &QPushButton::clicked, this, &PreferencesController::diaryDdeleteSelected);
    auto *save = makeButton(QStringLiteral("PREFERENCES_SAVE_NOTEBOOK"),
                            QStringLiteral("PREFERENCES_SAVE_NOTEBOOK_TIP"), pane);
    save->setDefault(true);
    connect(save, &QPushButton::clicked, this, &PreferencesController::diarySaveChangeForSelected);

    m_orderModel = new NotebookOrderModel(this);
    connect(m_orderModel, &NotebookOrderModel::rowDropped, this, &PreferencesController::acceptDrop,
            Qt::QueuedConnection);
    m_orderTable = new QListView(pane);
    m_orderTable->setModel(m_orderModel);
    m_orderTable->setDragEnabled(true);
    m_orderTable->setAcceptDrops(true);
    m_orderTable->setDropIndicatorShown(true);
    m_orderTable->setDragDropMode(QAbstractItemView::DragDrop);
    m_orderTable->setDefaultDropAction(Qt::MoveAction);
    m_orderTable->setAccessibleName(qtTrId("PREFERENCES_NOTEBOOK_ORDER"));
    m_orderTable->setToolTip(qtTrId("PREFERENCES_NOTEBOOK_ORDER_TIP"));

    auto *form = new QFormLayout;
    form->addRow(qtTrId("PREFERENCES_NOTEBOOK_LABEL"), m_selector);
    form->addRow(qtTrId("PREFERENCES_NAME_LABEL"), m_nameField);
    auto *locationRow = new QHBoxLayout;
    locationRow->addWidget(m_locationField, 1);
    locationRow->addWidget(changeLocation);
    form->addRow(qtTrId("PREFERENCES_LOCATION_LABEL"), locationRow);
    auto *iconRow = new QHBoxLayout;
    iconRow->addWidget(m_iconWell);
    auto *iconButtons = new QVBoxLayout;
    iconButtons->addWidget(iconFile);
    iconButtons->addWidget(iconTheme);
    iconButtons->addStretch(1);
    iconRow->addLayout(iconButtons);
    iconRow->addStretch(1);
    form->addRow(qtTrId("PREFERENCES_ICON_LABEL"), iconRow);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(create);
    buttons->addWidget(remove);
    buttons->addStretch(1);
    buttons->addWidget(save);

    auto *left = new QVBoxLayout;
    left->addLayout(form);
    left->addStretch(1);
    left->addLayout(buttons);

    auto *orderBox = new QGroupBox(qtTrId("PREFERENCES_ORDER_LABEL"), pane);
    auto *orderLayout = new QVBoxLayout(orderBox);
    orderLayout->addWidget(m_orderTable);

    auto *layout = new QHBoxLayout(pane);
    layout->addLayout(left, 3);
    layout->addWidget(orderBox, 2);
    return pane;
}

QStringList PreferencesController::getDiaryTitles() const
{
    return m_registry->getDiaryTitles();
}

int PreferencesController::selectedIndex() const
{
    return m_selector->currentIndex();
}

void PreferencesController::loadDiaries()
{
    m_selector->clear();
    m_selector->addItems(getDiaryTitles());
    setDiarySelectedWithIndex(0);
    refreshOrderTable();
}

void PreferencesController::refreshOrderTable()
{
    m_orderModel->setTitles(getDiaryTitles());
}

void PreferencesController::selectAnotherDiaryOption(int index)
{
    setDiarySelectedWithIndex(index);
}

void PreferencesController::setDiarySelectedWithIndex(int index)
{
    if (index < 0 || index >= m_selector->count()) {
        m_nameField->clear();
        m_locationField->clear();
        setIconWellImage(QImage());
        return;
    }
    if (m_selector->currentIndex() != index)
        m_selector->setCurrentIndex(index);
    const QVariantMap record = m_registry->record(index);
    m_nameField->setText(record.value(NotebookRegistry::NameKey).toString());
    const QString path = record.value(NotebookRegistry::PathKey).toString();
    if (!path.isEmpty()) {
        m_locationField->setText(path);
        setIconWellImage(NotebookRegistry::iconForFolder(path));
    } else {
        m_locationField->clear();
        setIconWellImage(QImage());
    }
}

void PreferencesController::setIconWellImage(const QImage &image)
{
    m_iconImage = image;
    if (image.isNull()) {
        m_iconWell->clear();
        return;
    }
    m_iconWell->setPixmap(
        QPixmap::fromImage(image.scaled(64, 64, Qt::KeepAspectRatio, Qt::SmoothTransformation)));
}

void PreferencesController::diaryCreateNew()
{
    const int index = m_registry->createNew(qtTrId("PREFERENCES_NEW_UNNAMED_NOTEBOOK"));
    loadDiaries();
    setDiarySelectedWithIndex(index);
}

void PreferencesController::diaryDdeleteSelected()
{
    if (m_registry->count() < 2) {
        Alert::show(m_window, qtTrId("LAST_NOTEBOOK_CANT_BE_DELETED_TITLE"),
                    qtTrId("LAST_NOTEBOOK_CANT_BE_DELETED_MESSAGE"),
                    {qtTrId("LAST_NOTEBOOK_CANT_BE_DELETED_OKBUTTON")});
        return;
    }
    // Only the record goes: the folder, its entries and its icon stay where they are.
    m_registry->remove(selectedIndex());
    NotificationCenter::defaultCenter().post(Notifications::DiaryCollectionUpdated, this);
    loadDiaries();
    setDiarySelectedWithIndex(0);
}

void PreferencesController::diaryChangeLocation()
{
    FolderChooser::open(m_window, this,
                        [this](const QString &folder) { applyChosenLocation(folder); });
}

void PreferencesController::applyChosenLocation(const QString &folder)
{
    if (folder.isEmpty())
        return;
    const QString path = QDir::cleanPath(folder);
    m_locationField->setText(path);
    const QString icon = NotebookRegistry::iconPathForFolder(path);
    if (QFileInfo::exists(icon))
        setIconWellImage(QImage(icon));
    if (m_nameField->text().contains(qtTrId("PREFERENCES_NEW_UNNAMED_NOTEBOOK"),
                                     Qt::CaseInsensitive))
        m_nameField->setText(QFileInfo(path).fileName());
}

void PreferencesController::diaryChangeIcon()
{
    // The same title as the folder chooser: both ask where the notebook's things come from.
    auto *dialog =
        new QFileDialog(m_window, qtTrId("PREFERENCES_SELECT_DIARY_SAVEDESTIONATION_TITLE"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    QStringList patterns;
    for (const QByteArray &format : QImageReader::supportedImageFormats())
        patterns << QStringLiteral("*.") + QString::fromLatin1(format);
    dialog->setNameFilter(qtTrId("PREFERENCES_IMAGE_FILES") + QStringLiteral(" (") +
                          patterns.join(QLatin1Char(' ')) + QLatin1Char(')'));
    dialog->setToolTip(qtTrId("PREFERENCES_SELECT_DIARY_SAVEDESTIONATION_MESSAGE"));
    dialog->setAccessibleName(dialog->windowTitle());
    dialog->setWindowModality(Qt::WindowModal);
    connect(dialog, &QFileDialog::fileSelected, this, &PreferencesController::applyChosenIconFile);
    dialog->open();
}

void PreferencesController::applyChosenIconFile(const QString &imagePath)
{
    loadIcon(imagePath);
}

void PreferencesController::loadIcon(const QString &imagePath)
{
    const QImage image(imagePath);
    if (!image.isNull())
        setIconWellImage(image);
}

void PreferencesController::showIconChooser()
{
    auto *chooser = new IconChooserDialog(m_window);
    chooser->setAttribute(Qt::WA_DeleteOnClose);
    chooser->open();
}

void PreferencesController::diarySaveChangeForSelected()
{
    const int index = selectedIndex();
    const QString path = m_locationField->text();
    const auto result = m_registry->saveRecord(index, m_nameField->text(), path);
    if (result == NotebookRegistry::SaveResult::NoLocation) {
        Alert::show(m_window, QStringLiteral("No save-destination selected"),
                    QStringLiteral("You need to set a location to save your settings"));
        return;
    }
    if (result == NotebookRegistry::SaveResult::NameExists) {
        Alert::show(m_window, QStringLiteral("Name already exists"),
                    QStringLiteral("A diary with that name already exists. Please choose "
                                   "another name."));
        return;
    }
    if (!m_iconImage.isNull()) {
        // Not atomic and not checked: a notebook without its icon still works.
        m_iconImage.save(NotebookRegistry::iconPathForFolder(path), "PNG");
    }
    NotificationCenter::defaultCenter().post(Notifications::DiaryCollectionUpdated, this);
    loadDiaries();
    setDiarySelectedWithIndex(index);
}

void PreferencesController::acceptDrop(int from, int to)
{
    m_registry->move(from, to);
    NotificationCenter::defaultCenter().post(Notifications::DiaryCollectionUpdated, this);
    const QString selectedTitle = m_selector->currentText();
    loadDiaries();
    const int again = int(getDiaryTitles().indexOf(selectedTitle));
    setDiarySelectedWithIndex(again < 0 ? 0 : again);
    refreshOrderTable();
}

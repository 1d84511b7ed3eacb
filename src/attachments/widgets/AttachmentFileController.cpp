#include "AttachmentFileController.h"

#include "AttachmentListModel.h"
#include "AttachmentPanel.h"
#include "AttachmentTableView.h"
#include "PseudoQuicklook.h"
#include "attachments/AttachmentDownload.h"
#include "attachments/AttachmentFolder.h"
#include "attachments/AttachmentMarkup.h"
#include "attachments/AttachmentNames.h"
#include "attachments/AttachmentStore.h"
#include "attachments/ThumbnailLoader.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "widgets/Alert.h"
#include "widgets/MessageBar.h"

#include <QBuffer>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QImage>
#include <QMimeData>
#include <QNetworkAccessManager>
#include <QToolButton>

namespace {
QByteArray droppedImageBytes(const QMimeData *mime)
{
    // The bytes as they came, whatever their format; decoded data only when nothing else.
    for (const QString &format : mime->formats())
        if (format.startsWith(QLatin1String("image/"))) {
            const QByteArray bytes = mime->data(format);
            if (!bytes.isEmpty())
                return bytes;
        }
    if (!mime->hasImage())
        return QByteArray();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    qvariant_cast<QImage>(mime->imageData()).save(&buffer, "JPEG", 95);
    return bytes;
}
} // namespace

AttachmentFileController::AttachmentFileController(UserDefaults &defaults, QWidget *window,
                                                   QObject *parent)
    : QObject(parent)
    , m_defaults(defaults)
    , m_window(window)
    , m_panel(new AttachmentPanel)
    , m_model(new AttachmentListModel(this))
    , m_thumbnails(new ThumbnailLoader(this))
    , m_network(new QNetworkAccessManager(this))
{
    m_model->setMarkupProvider([this](const QString &name) {
        const QString prefix = AttachmentFolder::markupPrefix(
            m_defaults.value(Settings::DefaultFileExtensionForEntries));
        return AttachmentMarkup::forAttachment(
            m_defaults.value(Settings::TypographyUseMarkupLanguage), prefix, name);
    });
    AttachmentTableView *list = m_panel->list();
    list->setModel(m_model);
    m_thumbnails->setDisplaySize(AttachmentListModel::PictureSize);
    connect(m_thumbnails, &ThumbnailLoader::thumbnailReady, m_model,
            [this](int, const QString &path, const QImage &image) {
                m_model->setThumbnail(path, image);
            });
    connect(list, &AttachmentTableView::dropped, this, &AttachmentFileController::acceptDrop);
    connect(list, &AttachmentTableView::quickLookRequested, this,
            &AttachmentFileController::quicklookSelectedAttachment);
    connect(list, &AttachmentTableView::quickLookCloseRequested, this, [this] {
        if (isQuickLookVisible())
            closeQuicklook();
    });
    connect(list, &AttachmentTableView::selectedRowChanged, this, [this] {
        updateButtons();
        pseudoquicklookItemDidChange();
    });
    connect(list, &QAbstractItemView::doubleClicked, this,
            &AttachmentFileController::openSelectedAttachmentWithDefaultApplication);
    connect(m_panel->addButton(), &QToolButton::clicked, this,
            &AttachmentFileController::addNewAttachmentsToDate);
    connect(m_panel->removeButton(), &QToolButton::clicked, this,
            &AttachmentFileController::removeSelectedAttachment);
    connect(m_panel->previewButton(), &QToolButton::clicked, this,
            &AttachmentFileController::quicklookSelectedAttachment);
    connect(m_panel->openButton(), &QToolButton::clicked, this,
            &AttachmentFileController::openSelectedAttachmentWithDefaultApplication);
    connect(m_panel->revealButton(), &QToolButton::clicked, this,
            &AttachmentFileController::showSelecedtedAttachmentImFinder);
    connect(m_panel->cancelDownloadButton(), &QToolButton::clicked, this,
            &AttachmentFileController::cancelDownloads);

    NotificationCenter &center = NotificationCenter::defaultCenter();
    center.addObserver(this, Notifications::SetnewDate, [this](const Notification &n) {
        receiveNewDateNotification(n.userInfo.value(Notifications::NewDateStringKey).toString());
    });
    center.addObserver(this, Notifications::CopyNewAttachmentFile, [this](const Notification &n) {
        performAddingOfFiles(n.userInfo.value(Notifications::FilesToAddKey).toStringList(), false);
    });
}

AttachmentFileController::~AttachmentFileController()
{
    cancelDownloads();
    if (m_panel && !m_panel->parent())
        delete m_panel;
    delete m_quickLook;
}

void AttachmentFileController::setMessageBar(MessageBar *bar)
{
    m_messageBar = bar;
}

AttachmentPanel *AttachmentFileController::panel() const
{
    return m_panel;
}

PseudoQuicklook *AttachmentFileController::quickLook() const
{
    return m_quickLook;
}

QFileDialog *AttachmentFileController::fileChooser() const
{
    return m_chooser;
}

QStringList AttachmentFileController::attachments() const
{
    return m_model->names();
}

int AttachmentFileController::selectedRow() const
{
    return m_panel->list()->selectedRow();
}

void AttachmentFileController::selectRow(int row)
{
    m_panel->list()->selectRow(row);
}

QString AttachmentFileController::selectedPath() const
{
    return m_model->pathAt(selectedRow());
}

// ---- the current entry and its folder --------------------------------------------------------

void AttachmentFileController::receiveNewDateNotification(const QString &entryName)
{
    setPathSTringToAttchmentsWithNewDate(entryName);
    loadContents();
    if (!m_model->names().isEmpty())
        selectRow(0);
    pseudoquicklookItemDidChange();
}

void AttachmentFileController::setPathSTringToAttchmentsWithNewDate(const QString &entryName)
{
    const QString notebook = m_notebook ? m_notebook() : QString();
    if (entryName.isEmpty() || notebook.isEmpty()) {
        m_pathString.clear();
        return;
    }
    m_pathString = AttachmentFolder::forEntry(
        notebook, entryName, m_defaults.value(Settings::DefaultFileExtensionForEntries));
}

void AttachmentFileController::loadContents()
{
    const QStringList names = AttachmentStore::list(m_pathString);
    m_model->setFolder(m_pathString, names);
    QStringList paths;
    for (int row = 0; row < names.size(); ++row)
        paths << m_model->pathAt(row);
    m_thumbnails->load(paths);
    if (!m_pathString.isEmpty() && m_defaults.value(Settings::AutoToggleAttachmentView)) {
        NotificationCenter::defaultCenter().post(names.isEmpty()
                                                     ? Notifications::AutoCloseAttachmentView
                                                     : Notifications::AutoOpenAttachmentView,
                                                 this);
    }
    updateButtons();
    Q_EMIT contentsLoaded();
}

void AttachmentFileController::relistKeepingSelection()
{
    const QString selected = m_model->names().value(selectedRow());
    loadContents();
    const int row = m_model->names().indexOf(selected);
    if (row >= 0)
        selectRow(row);
    pseudoquicklookItemDidChange();
}

void AttachmentFileController::updateButtons()
{
    m_panel->setState(!m_pathString.isEmpty(), selectedRow() >= 0);
}

void AttachmentFileController::report(const QString &text, int kind)
{
    if (m_messageBar)
        m_messageBar->showMessage(MessageTopic, MessageBar::Kind(kind), text);
}

bool AttachmentFileController::needsFolder()
{
    if (!m_pathString.isEmpty())
        return false;
    //% "Choose or name an entry first: attachments belong to an entry."
    report(qtTrId("ATTACHMENT_NO_ENTRY"), MessageBar::Information);
    return true;
}

// ---- adding ------------------------------------------------------------------------------------

void AttachmentFileController::addNewAttachmentsToDate()
{
    if (needsFolder())
        return;
    if (m_chooser) {
        m_chooser->raise();
        return;
    }
    auto *chooser = new QFileDialog(m_window);
    m_chooser = chooser;
    chooser->setAttribute(Qt::WA_DeleteOnClose);
    chooser->setObjectName(QStringLiteral("attachmentChooser"));
    //% "Add Attachments"
    chooser->setWindowTitle(qtTrId("SELECT_FILE_FOLDER_SHEET_TITLE"));
    //% "Choose the files to attach to this entry."
    chooser->setAccessibleDescription(qtTrId("SELECT_FILE_FOLDER_SHEET_MESSAGE"));
    chooser->setToolTip(chooser->accessibleDescription());
    chooser->setFileMode(QFileDialog::ExistingFiles);
    chooser->setAcceptMode(QFileDialog::AcceptOpen);
    chooser->setDirectory(QDir::homePath());
    const QString folder = m_pathString;
    connect(chooser, &QFileDialog::filesSelected, this, [this, folder](const QStringList &files) {
        // The files go to the entry the chooser was opened for.
        if (folder == m_pathString)
            performAddingOfFiles(files, false);
    });
    chooser->open();
}

void AttachmentFileController::performAddingOfFiles(const QStringList &paths, bool fromDragDrop)
{
    if (paths.isEmpty() || needsFolder())
        return;
    QString error;
    if (!AttachmentStore::ensureFolder(m_pathString, &error)) {
        report(error, MessageBar::Error);
        return;
    }
    const bool trashSources = fromDragDrop && m_defaults.value(Settings::DeleteSourceAttachments);
    for (const QString &source : paths) {
        if (!QFileInfo::exists(source))
            continue;
        const AttachmentStore::CopyResult copied = AttachmentStore::copyIn(m_pathString, source);
        if (!copied.ok) {
            Alert::show(m_window, QStringLiteral("Error"), copied.error, {QStringLiteral("OK")},
                        QMessageBox::Critical);
            continue;
        }
        if (trashSources && !AttachmentStore::moveToTrash(source, &error))
            report(error, MessageBar::Warning);
    }
    relistKeepingSelection();
}

bool AttachmentFileController::acceptDrop(const QMimeData *mime)
{
    if (!mime || needsFolder())
        return false;
    QStringList files;
    for (const QUrl &url : mime->urls())
        if (url.isLocalFile())
            files << url.toLocalFile();
    if (!files.isEmpty()) {
        performAddingOfFiles(files, true);
        return true;
    }
    const QByteArray image = droppedImageBytes(mime);
    if (!image.isEmpty()) {
        const QString name = AttachmentNames::droppedImageName(mime->urls().value(0));
        QString error;
        if (!AttachmentStore::writeNew(m_pathString, name, image, &error))
            report(error, MessageBar::Warning);
        relistKeepingSelection();
        return true;
    }
    QUrl link = mime->urls().value(0);
    if (!link.isValid())
        link = QUrl(mime->text().trimmed());
    if (!AttachmentTableView::isDownloadable(link))
        return false;
    performAddingOfURLFile(link);
    return true;
}

void AttachmentFileController::performAddingOfURLFile(const QUrl &url)
{
    if (needsFolder())
        return;
    auto *download = new AttachmentDownload(m_network, url, m_pathString, this);
    m_downloads << download;
    connect(download, &AttachmentDownload::progress, this,
            [this, download](qint64 received, qint64 total) {
                download->setProperty("received", received);
                download->setProperty("total", total);
                updateDownloadProgress();
            });
    connect(download, &AttachmentDownload::finished, this,
            [this, download](bool ok, const QString &path, const QString &error) {
                m_downloads.removeAll(download);
                download->deleteLater();
                updateDownloadProgress();
                if (!ok)
                    report(error, MessageBar::Warning);
                else if (download->folder() == m_pathString)
                    relistKeepingSelection();
                Q_EMIT downloadFinished(ok, path);
            });
    download->start();
    updateDownloadProgress();
}

void AttachmentFileController::cancelDownloads()
{
    const QList<AttachmentDownload *> running = m_downloads;
    for (AttachmentDownload *download : running)
        download->cancel();
}

void AttachmentFileController::updateDownloadProgress()
{
    if (!m_panel)
        return;
    qint64 received = 0;
    qint64 total = 0;
    for (AttachmentDownload *download : std::as_const(m_downloads)) {
        received += download->property("received").toLongLong();
        const qint64 size = download->property("total").toLongLong();
        total = (size <= 0 || total < 0) ? -1 : total + size;
    }
    m_panel->showDownloadProgress(int(m_downloads.size()), received, total);
}

// ---- acting on the selected attachment ---------------------------------------------------------

void AttachmentFileController::removeSelectedAttachment()
{
    const int row = selectedRow();
    if (row < 0)
        return;
    const int count = int(m_model->names().size());
    const bool bundle = m_defaults.value(Settings::DefaultFileExtensionForEntries) ==
                        AttachmentFolder::BundleExtension;
    AttachmentStore::remove(m_pathString, m_model->names().at(row), !bundle && count == 1);
    loadContents();
    const int rows = int(m_model->names().size());
    selectRow(row < rows ? row : rows - 1);
    pseudoquicklookItemDidChange();
}

void AttachmentFileController::showSelecedtedAttachmentImFinder()
{
    const QString path = selectedPath();
    if (path.isEmpty())
        return;
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    call << QStringList{QUrl::fromLocalFile(path).toString()} << QString();
    auto *watcher =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, path] {
        watcher->deleteLater();
        if (!watcher->isError())
            return;
        // No file manager answers on the bus: its folder opens instead.
        if (!QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(path).path())))
            //% "No file manager could show “%1”."
            report(qtTrId("ATTACHMENT_REVEAL_FAILED").arg(path), MessageBar::Warning);
    });
}

void AttachmentFileController::openSelectedAttachmentWithDefaultApplication()
{
    const QString path = selectedPath();
    if (path.isEmpty())
        return;
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(path)))
        //% "No application could open “%1”."
        report(qtTrId("ATTACHMENT_OPEN_FAILED").arg(QFileInfo(path).fileName()),
               MessageBar::Warning);
}

// ---- the preview window ----------------------------------------------------------------------

bool AttachmentFileController::isQuickLookVisible() const
{
    return m_quickLook && m_quickLook->isVisible();
}

void AttachmentFileController::quicklookSelectedAttachment()
{
    if (isQuickLookVisible()) {
        closeQuicklook();
        return;
    }
    if (selectedRow() < 0)
        return;
    if (!m_quickLook) {
        m_quickLook = new PseudoQuicklook(m_window);
        connect(m_quickLook, &PseudoQuicklook::goingUp, this, &AttachmentFileController::goItemUp);
        connect(m_quickLook, &PseudoQuicklook::goingDown, this,
                &AttachmentFileController::goItemDown);
        connect(m_quickLook, &PseudoQuicklook::closeRequested, this,
                &AttachmentFileController::closeQuicklook);
    }
    m_quickLook->show();
    m_quickLook->raise();
    m_quickLook->activateWindow();
    // Shown afresh: the file may have changed since the window last showed it.
    m_quickLook->showItem(selectedPath());
}

void AttachmentFileController::closeQuicklook()
{
    if (m_quickLook)
        m_quickLook->hide();
    m_panel->list()->setFocus();
}

void AttachmentFileController::pseudoquicklookItemDidChange()
{
    const QString path = selectedPath();
    if (!isQuickLookVisible() || path.isEmpty() || path == m_quickLook->currentPath())
        return;
    m_quickLook->showItem(path);
}

void AttachmentFileController::goItemUp()
{
    const int row = selectedRow();
    if (row <= 0)
        return;
    selectRow(row - 1);
    pseudoquicklookItemDidChange();
}

void AttachmentFileController::goItemDown()
{
    const int row = selectedRow();
    if (row < 0 || row + 1 >= int(m_model->names().size()))
        return;
    selectRow(row + 1);
    pseudoquicklookItemDidChange();
}

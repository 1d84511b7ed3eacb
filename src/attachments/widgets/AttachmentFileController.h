#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QUrl>

#include <functional>

class AttachmentDownload;
class AttachmentListModel;
class AttachmentPanel;
class MessageBar;
class PseudoQuicklook;
class QFileDialog;
class QMimeData;
class QNetworkAccessManager;
class ThumbnailLoader;
class UserDefaults;

// The attachments of the current entry: follows the entry named by "SetnewDateNotification",
// lists its attachment folder with thumbnails, and adds (chooser, drops, downloads), removes,
// opens, reveals and previews its files. An existing attachment is never replaced; what
// fails is said in the window's message bar (a failed copy also in its "Error" alert).
class AttachmentFileController : public QObject
{
    Q_OBJECT
public:
    // The current notebook's folder ("" when there is none).
    using NotebookProvider = std::function<QString()>;
    static inline const QString MessageTopic = QStringLiteral("attachments");

    AttachmentFileController(UserDefaults &defaults, QWidget *window, QObject *parent = nullptr);
    ~AttachmentFileController() override;

    void setNotebookProvider(NotebookProvider provider) { m_notebook = std::move(provider); }
    void setMessageBar(MessageBar *bar);

    // Made here, without a parent: the window puts it where the attachments go.
    AttachmentPanel *panel() const;
    AttachmentListModel *model() const { return m_model; }
    ThumbnailLoader *thumbnails() const { return m_thumbnails; }
    PseudoQuicklook *quickLook() const;
    QFileDialog *fileChooser() const;
    QNetworkAccessManager *network() const { return m_network; }

    // The attachment folder with a trailing slash, "" without a current entry.
    QString pathString() const { return m_pathString; }
    QStringList attachments() const;
    int selectedRow() const;
    void selectRow(int row);
    bool isQuickLookVisible() const;
    int runningDownloads() const { return int(m_downloads.size()); }

public Q_SLOTS:
    void receiveNewDateNotification(const QString &entryName);
    void setPathSTringToAttchmentsWithNewDate(const QString &entryName);
    void loadContents();

    void addNewAttachmentsToDate();
    void performAddingOfFiles(const QStringList &paths, bool fromDragDrop);
    // A drop from another window: files, picture data, or a link to download.
    bool acceptDrop(const QMimeData *mime);
    void performAddingOfURLFile(const QUrl &url);
    void cancelDownloads();

    void removeSelectedAttachment();
    void showSelecedtedAttachmentImFinder();
    void openSelectedAttachmentWithDefaultApplication();
    void quicklookSelectedAttachment();
    void closeQuicklook();
    void goItemUp();
    void goItemDown();

Q_SIGNALS:
    void contentsLoaded();
    void downloadFinished(bool ok, const QString &path);

private:
    QString selectedPath() const;
    void relistKeepingSelection();
    void pseudoquicklookItemDidChange();
    void updateButtons();
    void updateDownloadProgress();
    void report(const QString &text, int kind);
    bool needsFolder();

    UserDefaults &m_defaults;
    QPointer<QWidget> m_window;
    QPointer<MessageBar> m_messageBar;
    NotebookProvider m_notebook;
    QPointer<AttachmentPanel> m_panel;
    AttachmentListModel *m_model;
    ThumbnailLoader *m_thumbnails;
    QNetworkAccessManager *m_network;
    QPointer<PseudoQuicklook> m_quickLook;
    QPointer<QFileDialog> m_chooser;
    QList<AttachmentDownload *> m_downloads;
    QString m_pathString;
};

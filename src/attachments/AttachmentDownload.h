#pragma once

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QUrl>

class QNetworkAccessManager;
class QNetworkReply;

// Fetches a dropped link into an attachment folder. Redirects are followed; a transfer that
// stalls for 60 s fails. The file appears only once the whole body has arrived, written
// atomically, so a failure or a cancel never leaves half a file (nor a new empty folder).
class AttachmentDownload : public QObject
{
    Q_OBJECT
public:
    static constexpr int TimeoutMs = 60000;

    AttachmentDownload(QNetworkAccessManager *network, const QUrl &url, const QString &folder,
                       QObject *parent = nullptr);
    ~AttachmentDownload() override;

    QUrl url() const { return m_url; }
    QString folder() const { return m_folder; }
    // The name the file gets in the folder.
    QString fileName() const { return m_fileName; }
    void start();
    void cancel();

Q_SIGNALS:
    // total is -1 while unknown.
    void progress(qint64 received, qint64 total);
    // ok: the file is in place at path; otherwise error says why, for the user.
    void finished(bool ok, const QString &path, const QString &error);

private:
    void onFinished();
    void finish(bool ok, const QString &path, const QString &error);

    QPointer<QNetworkAccessManager> m_network;
    QPointer<QNetworkReply> m_reply;
    QUrl m_url;
    QString m_folder;
    QString m_fileName;
    bool m_done = false;
};

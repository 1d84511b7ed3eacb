#include "AttachmentDownload.h"

#include "AttachmentNames.h"
#include "AttachmentStore.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>

AttachmentDownload::AttachmentDownload(QNetworkAccessManager *network, const QUrl &url,
                                       const QString &folder, QObject *parent)
    : QObject(parent)
    , m_network(network)
    , m_url(url)
    , m_folder(folder)
    , m_fileName(AttachmentNames::downloadName(url))
{}

AttachmentDownload::~AttachmentDownload()
{
    if (m_reply) {
        m_reply->disconnect(this);
        m_reply->abort();
        m_reply->deleteLater();
    }
}

void AttachmentDownload::start()
{
    if (!m_network || m_reply || m_done)
        return;
    QNetworkRequest request(m_url);
    request.setTransferTimeout(TimeoutMs);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::NoLessSafeRedirectPolicy);
    m_reply = m_network->get(request);
    connect(m_reply, &QNetworkReply::downloadProgress, this, &AttachmentDownload::progress);
    connect(m_reply, &QNetworkReply::finished, this, &AttachmentDownload::onFinished);
}

void AttachmentDownload::cancel()
{
    if (m_done)
        return;
    if (m_reply) {
        m_reply->disconnect(this);
        m_reply->abort();
        m_reply->deleteLater();
        m_reply = nullptr;
    }
    //% "The download of %1 was cancelled."
    finish(false, QString(), qtTrId("ATTACHMENT_DOWNLOAD_CANCELLED").arg(m_url.toDisplayString()));
}

void AttachmentDownload::onFinished()
{
    QNetworkReply *reply = m_reply;
    m_reply = nullptr;
    if (!reply)
        return;
    reply->deleteLater();
    if (reply->error() != QNetworkReply::NoError) {
        //% "%1 could not be downloaded: %2"
        finish(false, QString(),
               qtTrId("ATTACHMENT_DOWNLOAD_FAILED")
                   .arg(m_url.toDisplayString(), reply->errorString()));
        return;
    }
    const QByteArray body = reply->readAll();
    QString error;
    if (!AttachmentStore::writeNew(m_folder, m_fileName, body, &error)) {
        finish(false, QString(), error);
        return;
    }
    QString folder = m_folder;
    if (!folder.endsWith(QLatin1Char('/')))
        folder += QLatin1Char('/');
    finish(true, folder + m_fileName, QString());
}

void AttachmentDownload::finish(bool ok, const QString &path, const QString &error)
{
    m_done = true;
    Q_EMIT finished(ok, path, error);
}

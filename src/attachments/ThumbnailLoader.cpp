#include "ThumbnailLoader.h"

#include "ThumbnailMaker.h"

#include <QCoreApplication>
#include <QThreadPool>
#include <QtConcurrent/QtConcurrentMap>

namespace {
// A pool of our own: Qt's painting also hands work to the global pool and waits for it, so
// a queue of pictures there would stall every repaint of the window until they were done.
QThreadPool *g_pool = nullptr;

// Pictures still queued when the application ends are dropped, and the ones being made are
// waited for, so no worker outlives the objects it draws with.
void stopPool()
{
    if (!g_pool)
        return;
    g_pool->clear();
    g_pool->waitForDone();
}

QThreadPool &pool()
{
    if (!g_pool) {
        g_pool = new QThreadPool;
        g_pool->setMaxThreadCount(qMax(1, QThread::idealThreadCount()));
        g_pool->setExpiryTimeout(5000);
        qAddPostRoutine(stopPool);
    }
    return *g_pool;
}
} // namespace

ThumbnailLoader::ThumbnailLoader(QObject *parent)
    : QObject(parent)
{}

ThumbnailLoader::~ThumbnailLoader()
{
    cancel();
}

void ThumbnailLoader::cancel()
{
    if (!m_watcher)
        return;
    // The running pictures finish in the pool; nobody listens to them any more.
    m_watcher->disconnect(this);
    m_watcher->cancel();
    m_watcher->deleteLater();
    m_watcher = nullptr;
}

bool ThumbnailLoader::isRunning() const
{
    return m_watcher && m_watcher->isRunning();
}

void ThumbnailLoader::load(const QStringList &paths)
{
    cancel();
    if (paths.isEmpty()) {
        Q_EMIT finished();
        return;
    }
    auto *watcher = new QFutureWatcher<QImage>(this);
    m_watcher = watcher;
    connect(watcher, &QFutureWatcher<QImage>::resultReadyAt, this, [this, watcher, paths](int i) {
        Q_EMIT thumbnailReady(i, paths.value(i), watcher->resultAt(i));
    });
    connect(watcher, &QFutureWatcher<QImage>::finished, this, [this, watcher] {
        if (m_watcher == watcher) {
            m_watcher = nullptr;
            watcher->deleteLater();
        }
        Q_EMIT finished();
    });
    const ThumbnailCache cache(m_cacheRoot);
    const int size = m_displaySize;
    watcher->setFuture(QtConcurrent::mapped(&pool(), paths, [cache, size](const QString &path) {
        QImage image = ThumbnailMaker::thumbnailFor(path, cache);
        if (size > 0 && (image.width() > size || image.height() > size))
            image = image.scaled(size, size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        return image;
    }));
}

#pragma once

#include "ThumbnailCache.h"

#include <QFutureWatcher>
#include <QImage>
#include <QObject>
#include <QPointer>
#include <QStringList>

// Makes the thumbnails of one folder's files off the main thread. Only the newest request
// counts: starting another one, or cancel(), drops whatever the older one still delivers.
class ThumbnailLoader : public QObject
{
    Q_OBJECT
public:
    explicit ThumbnailLoader(QObject *parent = nullptr);
    ~ThumbnailLoader() override;

    // cacheRoot: the shared cache's "thumbnails" folder; empty for the user's own.
    void setCacheRoot(const QString &root) { m_cacheRoot = root; }
    // Pictures are delivered at most this big (0: as made), scaled on the worker threads.
    void setDisplaySize(int size) { m_displaySize = size; }
    void load(const QStringList &paths);
    void cancel();
    bool isRunning() const;

Q_SIGNALS:
    // A picture for paths[index] of the latest request; null when its type has none.
    void thumbnailReady(int index, const QString &path, const QImage &image);
    void finished();

private:
    QPointer<QFutureWatcher<QImage>> m_watcher;
    QString m_cacheRoot;
    int m_displaySize = 0;
};

#include "attachments/ThumbnailCache.h"
#include "attachments/ThumbnailLoader.h"
#include "attachments/ThumbnailMaker.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPainter>
#include <QPdfWriter>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

namespace {
QString makeImage(const QString &path, QSize size, QColor colour)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    image.save(path);
    return path;
}

// Where the file manager's cache keeps a picture of path, worked out by hand.
QString cacheFileOf(const QString &path)
{
    const QByteArray uri = "file://" + path.toUtf8();
    return qEnvironmentVariable("XDG_CACHE_HOME") + "/thumbnails/normal/" +
           QCryptographicHash::hash(uri, QCryptographicHash::Md5).toHex() + ".png";
}

qint64 mtimeOf(const QString &path)
{
    return QFileInfo(path).lastModified().toSecsSinceEpoch();
}
} // namespace

class TestThumbnails : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void madePicturesGoToTheSharedCache();
    void currentCachedPicturesAreUsedAndStaleOnesRemade();
    void pdfsShowTheirFirstPage();
    void theNewestRequestWins();
};

void TestThumbnails::madePicturesGoToTheSharedCache()
{
    QTemporaryDir dir;
    const QString photo = makeImage(dir.path() + "/photo.jpg", QSize(1600, 1200), Qt::blue);
    const ThumbnailCache cache;
    const QImage thumbnail = ThumbnailMaker::thumbnailFor(photo, cache);
    QCOMPARE(thumbnail.size(), QSize(128, 96));

    const QImage stored(cacheFileOf(photo));
    QVERIFY2(!stored.isNull(), qPrintable(cacheFileOf(photo)));
    QCOMPARE(stored.text("Thumb::URI"), "file://" + photo);
    QCOMPARE(stored.text("Thumb::MTime").toLongLong(), mtimeOf(photo));
    QCOMPARE(QFileInfo(cacheFileOf(photo)).permissions() & (QFile::ReadOther | QFile::ReadGroup),
             QFileDevice::Permissions());
    QCOMPARE(filesIn(QFileInfo(cacheFileOf(photo)).path()).size(), 1);

    // A file of no picture type has none, and nothing is cached for it.
    writeBytes(dir.path() + "/notes.txt", "text");
    QVERIFY(ThumbnailMaker::thumbnailFor(dir.path() + "/notes.txt", cache).isNull());
    QVERIFY(!QFileInfo::exists(cacheFileOf(dir.path() + "/notes.txt")));
}

void TestThumbnails::currentCachedPicturesAreUsedAndStaleOnesRemade()
{
    QTemporaryDir dir;
    const QString photo = makeImage(dir.path() + "/shot.png", QSize(400, 300), Qt::blue);
    // As a file manager would have left it: another colour, so its use shows.
    QImage made(120, 90, QImage::Format_RGB32);
    made.fill(Qt::red);
    made.setText("Thumb::URI", "file://" + photo);
    made.setText("Thumb::MTime", QString::number(mtimeOf(photo)));
    QDir().mkpath(QFileInfo(cacheFileOf(photo)).path());
    QVERIFY(made.save(cacheFileOf(photo)));

    const ThumbnailCache cache;
    QCOMPARE(QColor(ThumbnailMaker::thumbnailFor(photo, cache).pixel(5, 5)), QColor(Qt::red));

    // The photo changed after the picture was made: the picture no longer counts.
    QFile file(photo);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(60),
                             QFileDevice::FileModificationTime));
    file.close();
    QCOMPARE(QColor(ThumbnailMaker::thumbnailFor(photo, cache).pixel(5, 5)), QColor(Qt::blue));
    QCOMPARE(QImage(cacheFileOf(photo)).text("Thumb::MTime").toLongLong(), mtimeOf(photo));
}

void TestThumbnails::pdfsShowTheirFirstPage()
{
    QTemporaryDir dir;
    const QString pdf = dir.path() + "/letter.pdf";
    {
        QPdfWriter writer(pdf);
        writer.setPageSize(QPageSize(QPageSize::A4));
        QPainter painter(&writer);
        // The upper half of page 1 black; page 2 is blank.
        painter.fillRect(QRect(0, 0, writer.width(), writer.height() / 2), Qt::black);
        writer.newPage();
    }
    const QImage thumbnail = ThumbnailMaker::thumbnailFor(pdf, ThumbnailCache());
    QVERIFY(!thumbnail.isNull());
    QCOMPARE(thumbnail.height(), 128);
    QVERIFY(thumbnail.width() < thumbnail.height());
    QVERIFY(qGray(thumbnail.pixel(thumbnail.width() / 2, 10)) < 60);
    QVERIFY(qGray(thumbnail.pixel(thumbnail.width() / 2, 118)) > 200);
    QVERIFY(QFileInfo::exists(cacheFileOf(pdf)));
}

void TestThumbnails::theNewestRequestWins()
{
    QTemporaryDir dir;
    QDir().mkpath(dir.path() + "/old");
    QDir().mkpath(dir.path() + "/new");
    QStringList older, newer;
    for (int i = 0; i < 40; ++i)
        older << makeImage(dir.path() + QString("/old/%1.png").arg(i), QSize(900, 900), Qt::green);
    newer << makeImage(dir.path() + "/new/a.png", QSize(300, 200), Qt::yellow);
    writeBytes(dir.path() + "/new/b.txt", "plain");
    newer << dir.path() + "/new/b.txt";

    ThumbnailLoader loader;
    QStringList delivered;
    QList<bool> pictured;
    connect(&loader, &ThumbnailLoader::thumbnailReady, this,
            [&](int, const QString &path, const QImage &image) {
                delivered << path;
                pictured << !image.isNull();
            });
    QSignalSpy finished(&loader, &ThumbnailLoader::finished);
    loader.load(older);
    loader.load(newer);
    QVERIFY(finished.wait(10000));
    QCOMPARE(finished.count(), 1);
    QStringList sorted = delivered;
    sorted.sort();
    QCOMPARE(sorted, newer);
    QCOMPARE(pictured.at(delivered.indexOf(newer.first())), true);
    QCOMPARE(pictured.at(delivered.indexOf(newer.last())), false);
}

VELLOX_TEST_MAIN(TestThumbnails)
#include "tst_thumbnails.moc"

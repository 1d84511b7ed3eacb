#include "attachments/AttachmentFolder.h"
#include "attachments/AttachmentMarkup.h"
#include "attachments/AttachmentNames.h"
#include "attachments/AttachmentStore.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

class TestAttachmentStore : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void folderFollowsTheExtensionSetting();
    void listingSkipsFoldersAndFinderFiles();
    void copyingNeverReplaces();
    void removingTheLastFileRemovesOnlyAnEmptyFolder();
    void writingNewFilesIsAtomicAndRefusesTakenNames();
    void trashedSourcesLandInTheDesktopTrash();
    void namesOfWebImagesAndDownloads();
    void markupPerLanguage();
};

void TestAttachmentStore::folderFollowsTheExtensionSetting()
{
    QCOMPARE(AttachmentFolder::forEntry("/n/", "2014-05-12", "md"), QString("/n/2014-05-12/"));
    QCOMPARE(AttachmentFolder::forEntry("/n", "2014-05-12", "textbundle"),
             QString("/n/2014-05-12.textbundle/assets/"));
    QCOMPARE(AttachmentFolder::forEntry("/n/", "", "txt"), QString());
    QCOMPARE(AttachmentFolder::forEntry("~/n", "a", "txt"), QDir::homePath() + "/n/a/");
    // From a path on disk: a dotted title keeps all but its last extension.
    QCOMPARE(AttachmentFolder::forEntryPath("/n/v1.2 notes.txt"), QString("/n/v1.2 notes/"));
    QCOMPARE(AttachmentFolder::forEntryPath("/n/x.textbundle/"),
             QString("/n/x.textbundle/assets/"));
    QCOMPARE(AttachmentFolder::companionFolder("/n/a.md"), QString("/n/a"));
    QCOMPARE(AttachmentFolder::companionFolder("/n/a.textbundle"), QString());
    QCOMPARE(AttachmentFolder::companionFolder("/n.d/a"), QString());
    QCOMPARE(AttachmentFolder::markupPrefix("textbundle"), QString("assets/"));
    QCOMPARE(AttachmentFolder::markupPrefix("md"), QString());
}

void TestAttachmentStore::listingSkipsFoldersAndFinderFiles()
{
    QTemporaryDir dir;
    const QString folder = dir.path() + "/entry/";
    QCOMPARE(AttachmentStore::list(folder), QStringList());
    QDir().mkpath(folder + "sub");
    writeBytes(folder + "b.png", "b");
    writeBytes(folder + ".DS_Store", "x");
    writeBytes(folder + ".hidden", "h");
    writeBytes(folder + "a.pdf", "a");
    QStringList names = AttachmentStore::list(folder);
    names.sort();
    QCOMPARE(names, QStringList({".hidden", "a.pdf", "b.png"}));
}

void TestAttachmentStore::copyingNeverReplaces()
{
    QTemporaryDir dir;
    const QString folder = dir.path() + "/notebook/entry/";
    writeBytes(dir.path() + "/photo.jpg", "new bytes");
    AttachmentStore::CopyResult first = AttachmentStore::copyIn(folder, dir.path() + "/photo.jpg");
    QVERIFY2(first.ok, qPrintable(first.error));
    QCOMPARE(readBytes(folder + "photo.jpg"), QByteArray("new bytes"));

    writeBytes(folder + "photo.jpg", "old bytes");
    AttachmentStore::CopyResult again = AttachmentStore::copyIn(folder, dir.path() + "/photo.jpg");
    QVERIFY(!again.ok);
    QVERIFY(again.error.contains("photo.jpg"));
    QCOMPARE(readBytes(folder + "photo.jpg"), QByteArray("old bytes"));

    AttachmentStore::CopyResult missing = AttachmentStore::copyIn(folder, dir.path() + "/none");
    QVERIFY(!missing.ok);
    QCOMPARE(filesIn(folder), QStringList({"photo.jpg"}));
}

void TestAttachmentStore::removingTheLastFileRemovesOnlyAnEmptyFolder()
{
    QTemporaryDir dir;
    const QString plain = dir.path() + "/plain/";
    QDir().mkpath(plain);
    writeBytes(plain + "a.txt", "a");
    writeBytes(plain + "b.txt", "b");
    QVERIFY(AttachmentStore::remove(plain, "a.txt", false));
    QVERIFY(AttachmentStore::remove(plain, "b.txt", true));
    QVERIFY(!QFileInfo::exists(plain));

    // A subfolder the panel never lists keeps the folder, and itself, alive.
    const QString withSub = dir.path() + "/sub/";
    QDir().mkpath(withSub + "keep");
    writeBytes(withSub + "a.txt", "a");
    QVERIFY(AttachmentStore::remove(withSub, "a.txt", true));
    QVERIFY(QFileInfo(withSub + "keep").isDir());

    const QString assets = dir.path() + "/x.textbundle/assets/";
    QDir().mkpath(assets);
    writeBytes(assets + "a.png", "a");
    QVERIFY(AttachmentStore::remove(assets, "a.png", false));
    QVERIFY(QFileInfo(assets).isDir());
}

void TestAttachmentStore::writingNewFilesIsAtomicAndRefusesTakenNames()
{
    QTemporaryDir dir;
    const QString folder = dir.path() + "/e/";
    QVERIFY(AttachmentStore::writeNew(folder, "x.jpg", "first"));
    QString error;
    QVERIFY(!AttachmentStore::writeNew(folder, "x.jpg", "second", &error));
    QVERIFY(!error.isEmpty());
    QCOMPARE(readBytes(folder + "x.jpg"), QByteArray("first"));
    // No temporary file is left beside it.
    QCOMPARE(filesIn(folder), QStringList({"x.jpg"}));
}

void TestAttachmentStore::trashedSourcesLandInTheDesktopTrash()
{
    // The data folder is missing on purpose: the trash must still be the real one.
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    QDir(data).removeRecursively();
    QTemporaryDir dir;
    writeBytes(dir.path() + "/dropped.png", "png");
    QVERIFY(AttachmentStore::moveToTrash(dir.path() + "/dropped.png"));
    QVERIFY(!QFileInfo::exists(dir.path() + "/dropped.png"));
    QCOMPARE(readBytes(data + "/Trash/files/dropped.png"), QByteArray("png"));
    QVERIFY(QFileInfo::exists(data + "/Trash/info/dropped.png.trashinfo"));
    QString error;
    QVERIFY(!AttachmentStore::moveToTrash(dir.path() + "/gone.png", &error));
    QVERIFY(!error.isEmpty());
}

void TestAttachmentStore::namesOfWebImagesAndDownloads()
{
    using namespace AttachmentNames;
    QCOMPARE(droppedImageName(QUrl("https://h/p/photo.png")), QString("photo.jpg"));
    QCOMPARE(droppedImageName(QUrl("https://h/p/photo.jpeg?x=1")), QString("photo.jpg"));
    QCOMPARE(droppedImageName(QUrl("https://h/p/raw")), QString("raw.jpg"));
    QCOMPARE(droppedImageName(QUrl("https://h/")), QString("downloadedImage.jpg"));
    QCOMPARE(droppedImageName(QUrl()), QString("downloadedImage.jpg"));
    QCOMPARE(downloadName(QUrl("http://h/a/pic.png")), QString("pic.png"));
    QCOMPARE(downloadName(QUrl("http://h/a/pic")), QString("pic.jpg"));
    QCOMPARE(downloadName(QUrl("http://h/a/my%20pic.gif")), QString("my pic.gif"));
    QCOMPARE(downloadName(QUrl("http://h/")), QString("downloadedImage.jpg"));
    QCOMPARE(downloadName(QUrl("http://h/a/..")), QString("downloadedImage.jpg"));
}

void TestAttachmentStore::markupPerLanguage()
{
    const QString name = "image.png";
    QCOMPARE(AttachmentMarkup::forAttachment(1, "assets/", name),
             QString("![altText](assets/image.png \"image.png\")"));
    QCOMPARE(AttachmentMarkup::forAttachment(7, "", name),
             QString("![altText](image.png \"image.png\")"));
    QCOMPARE(AttachmentMarkup::forAttachment(2, "assets/", name), QString("!assets/image.png!"));
    QCOMPARE(AttachmentMarkup::forAttachment(3, "", name), QString("<img src=\"image.png\" />"));
    QCOMPARE(AttachmentMarkup::forAttachment(6, "assets/", name),
             QString("<img src=\"assets/image.png\" />"));
    QCOMPARE(AttachmentMarkup::forAttachment(4, "", name), QString("[img]image.png[/img]"));
    QCOMPARE(AttachmentMarkup::forAttachment(5, "assets/", name), QString("assets/image.png"));
    QCOMPARE(AttachmentMarkup::forAttachment(9, "assets/", name), name);
    // A name that looks like a placeholder is inserted as it stands.
    QCOMPARE(AttachmentMarkup::forAttachment(1, "", "%1.png"),
             QString("![altText](%1.png \"%1.png\")"));
}

VELLOX_TEST_MAIN(TestAttachmentStore)
#include "tst_attachmentstore.moc"

#include "library/DesktopApplications.h"
#include "library/EntryFileOperations.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

using namespace EntryFileOperations;

namespace {
void makeEntry(const QString &folder, const QString &title, const QByteArray &text,
               bool withAttachment = true)
{
    writeBytes(folder + QLatin1Char('/') + title + QStringLiteral(".txt"), text);
    if (withAttachment) {
        QDir().mkpath(folder + QLatin1Char('/') + title + QStringLiteral("/sub"));
        writeBytes(folder + QLatin1Char('/') + title + QStringLiteral("/sub/photo.jpg"),
                   "jpeg of " + title.toUtf8());
    }
}
} // namespace

class TestEntryFileOperations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { TestHome::instance()->reset(); }

    void trashLandsInTheDesktopTrashWithItsInfo()
    {
        QTemporaryDir notebook;
        makeEntry(notebook.path(), QStringLiteral("Day"), "words");
        // The data folder is missing: the trash must still be the one under it.
        const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
        QVERIFY(QDir(data).removeRecursively());
        const QString workingFolder = QDir::currentPath();

        const Outcome outcome = moveToTrash(notebook.path() + QStringLiteral("/Day.txt"));
        QVERIFY2(outcome.ok, qPrintable(outcome.error));
        QCOMPARE(filesIn(notebook.path()), QStringList());
        const QString trash = data + QStringLiteral("/Trash");
        QCOMPARE(outcome.path, trash + QStringLiteral("/files/Day.txt"));
        QCOMPARE(readBytes(trash + QStringLiteral("/files/Day.txt")), QByteArray("words"));
        QCOMPARE(readBytes(trash + QStringLiteral("/files/Day/sub/photo.jpg")),
                 QByteArray("jpeg of Day"));
        const QByteArray info = readBytes(trash + QStringLiteral("/info/Day.txt.trashinfo"));
        const QByteArray expected =
            "Path=" + QUrl::toPercentEncoding(notebook.path() + QStringLiteral("/Day.txt"), "/");
        QVERIFY2(info.contains(QByteArray(expected)), info.constData());
        QVERIFY(QFile::exists(trash + QStringLiteral("/info/Day.trashinfo")));
        QVERIFY(!QFile::exists(workingFolder + QStringLiteral("/files/Day.txt")));
    }

    void trashThatCannotBeUsedLeavesEverythingInPlace()
    {
        QTemporaryDir notebook;
        makeEntry(notebook.path(), QStringLiteral("Day"), "words");
        // No trash folder can be made where the data folder should be a folder.
        const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
        QVERIFY(QDir(data).removeRecursively());
        writeBytes(data, "not a folder");

        const Outcome outcome = moveToTrash(notebook.path() + QStringLiteral("/Day.txt"));
        QVERIFY(!outcome.ok);
        QVERIFY(!outcome.error.isEmpty());
        QCOMPARE(readBytes(notebook.path() + QStringLiteral("/Day.txt")), QByteArray("words"));
        QVERIFY(QFile::exists(notebook.path() + QStringLiteral("/Day/sub/photo.jpg")));
    }

    void renameCarriesTheAttachmentsAndRefusesTakenNames()
    {
        QTemporaryDir notebook;
        const QString n = notebook.path();
        makeEntry(n, QStringLiteral("Day"), "day text");
        makeEntry(n, QStringLiteral("Other"), "other text", false);

        Outcome taken = rename(n + QStringLiteral("/Day.txt"), QStringLiteral("Other"));
        QVERIFY(!taken.ok);
        QCOMPARE(filesIn(n), QStringList({"Day", "Day.txt", "Other.txt"}));
        // A stray folder with the new title would swallow the attachments: refused too.
        QDir(n).mkdir(QStringLiteral("Night"));
        QVERIFY(!rename(n + QStringLiteral("/Day.txt"), QStringLiteral("Night")).ok);
        QDir(n).rmdir(QStringLiteral("Night"));

        const Outcome renamed = rename(n + QStringLiteral("/Day.txt"), QStringLiteral("Night"));
        QVERIFY2(renamed.ok, qPrintable(renamed.error));
        QCOMPARE(renamed.path, n + QStringLiteral("/Night.txt"));
        QCOMPARE(filesIn(n), QStringList({"Night", "Night.txt", "Other.txt"}));
        QCOMPARE(readBytes(n + QStringLiteral("/Night/sub/photo.jpg")), QByteArray("jpeg of Day"));
    }

    void moveTakesBundlesWholeAndDeletesTheSourceOnlyAfterACompleteCopy()
    {
        QTemporaryDir source, target;
        const QString bundle = source.path() + QStringLiteral("/Trip.textbundle");
        QDir().mkpath(bundle + QStringLiteral("/assets"));
        writeBytes(bundle + QStringLiteral("/text.markdown"), "# Trip");
        writeBytes(bundle + QStringLiteral("/assets/map.png"), "png");

        const Outcome moved = copyTo(bundle, target.path(), true);
        QVERIFY2(moved.ok, qPrintable(moved.error));
        QCOMPARE(filesIn(source.path()), QStringList());
        QCOMPARE(readBytes(target.path() + QStringLiteral("/Trip.textbundle/assets/map.png")),
                 QByteArray("png"));

        // An attachment that cannot be copied (a link to nowhere): the source stays whole and
        // no half copy is left behind.
        makeEntry(source.path(), QStringLiteral("Day"), "mine");
        QVERIFY(QFile::link(source.path() + QStringLiteral("/gone"),
                            source.path() + QStringLiteral("/Day/sub/link")));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^ERROR: ")));
        const Outcome failed =
            copyTo(source.path() + QStringLiteral("/Day.txt"), target.path(), true);
        QVERIFY(!failed.ok);
        QCOMPARE(readBytes(source.path() + QStringLiteral("/Day.txt")), QByteArray("mine"));
        QVERIFY(QFile::exists(source.path() + QStringLiteral("/Day/sub/photo.jpg")));
        QCOMPARE(filesIn(target.path()), QStringList({"Trip.textbundle"}));
    }

    void openWithListsAndLaunchesTheDesktopsApplications()
    {
        QTemporaryDir notebook;
        const QString entry = notebook.path() + QStringLiteral("/Day.txt");
        writeBytes(entry, "words");
        // An application of our own, installed for this user only: it copies what it opens.
        const QString opened = notebook.path() + QStringLiteral("/opened");
        const QString script = notebook.path() + QStringLiteral("/opener.sh");
        writeBytes(script, "#!/bin/sh\ncp \"$1\" \"" + opened.toUtf8() + "\"\n");
        QFile::setPermissions(script, QFileDevice::ReadOwner | QFileDevice::ExeOwner);
        const QString applications =
            QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
            QStringLiteral("/applications");
        QDir().mkpath(applications);
        writeBytes(applications + QStringLiteral("/vellox-test-opener.desktop"),
                   "[Desktop Entry]\nType=Application\nName=Test Opener\nExec=" + script.toUtf8() +
                       " %f\nMimeType=text/plain;\n");
        // What the desktop's update-desktop-database would write for it.
        writeBytes(applications + QStringLiteral("/mimeinfo.cache"),
                   "[MIME Cache]\ntext/plain=vellox-test-opener.desktop;\n");

        QCOMPARE(DesktopApplications::mimeTypeOf(entry), QStringLiteral("text/plain"));
        const QList<DesktopApplication> found = DesktopApplications::forMimeType("text/plain");
        const auto ours = std::find_if(found.begin(), found.end(), [](const auto &application) {
            return application.id == QLatin1String("vellox-test-opener.desktop");
        });
        QVERIFY(ours != found.end());
        QCOMPARE(ours->name, QStringLiteral("Test Opener"));
        QString error;
        QVERIFY2(DesktopApplications::launch(ours->id, entry, &error), qPrintable(error));
        QTRY_COMPARE(readBytes(opened), QByteArray("words"));
        QVERIFY(!DesktopApplications::launch(QStringLiteral("no-such.desktop"), entry, &error));
        QVERIFY(!error.isEmpty());
    }
};

VELLOX_TEST_MAIN(TestEntryFileOperations)
#include "tst_entryfileoperations.moc"

#include "attachments/widgets/AttachmentFileController.h"
#include "attachments/widgets/AttachmentListModel.h"
#include "attachments/widgets/AttachmentPanel.h"
#include "attachments/widgets/AttachmentTableView.h"
#include "attachments/widgets/PseudoQuicklook.h"
#include "attachments/widgets/ScaledImageView.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"
#include "widgets/Alert.h"
#include "widgets/MessageBar.h"

#include <QBuffer>
#include <QDataStream>
#include <QMainWindow>
#include <QMimeData>
#include <QPainter>
#include <QPdfDocument>
#include <QPdfWriter>
#include <QProcess>
#include <QProgressBar>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <QToolButton>

#include <memory>

// The panel of one entry of a notebook in a temporary folder, in a real window offscreen.
struct Fixture
{
    QTemporaryDir dir;
    QString notebook = dir.path() + "/notebook/";
    UserDefaults defaults{dir.path() + "/Vellox.conf"};
    QMainWindow window;
    MessageBar *bar = new MessageBar;
    AttachmentFileController controller{defaults, &window};

    Fixture()
    {
        defaults.registerDefaults(UserDefaults::defaultsTable());
        QDir().mkpath(notebook);
        controller.setNotebookProvider([this] { return notebook; });
        controller.setMessageBar(bar);
        window.setMenuWidget(bar);
        window.setCentralWidget(controller.panel());
        window.show();
    }
    QString source(const QString &name, const QByteArray &bytes)
    {
        writeBytes(dir.path() + "/" + name, bytes);
        return dir.path() + "/" + name;
    }
};

class TestAttachmentPanel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Alert::clearHistory(); }
    void followsTheEntryAndTheExtensionSetting();
    void droppedFilesAreCopiedNeverReplacedAndMaybeTrashed();
    void droppedPictureDataIsStoredAsJpegName();
    void draggingOutCarriesMarkupForOneRowOnly();
    void removingTheLastAttachmentRemovesTheFolder();
    void paneOpensAndClosesWithAttachmentsWhenAsked();
    void linksAreDownloadedFromARealServer();
    void cancelledDownloadsLeaveNothing();
    void previewShowsEachKindAndStepsWithKeys();
};

void TestAttachmentPanel::followsTheEntryAndTheExtensionSetting()
{
    Fixture f;
    QDir().mkpath(f.notebook + "day");
    writeBytes(f.notebook + "day/a.txt", "a");
    QDir().mkpath(f.notebook + "day.textbundle/assets");
    writeBytes(f.notebook + "day.textbundle/assets/b.png", "b");

    NotificationCenter::defaultCenter().post(Notifications::SetnewDate, QVariant(),
                                             {{Notifications::NewDateStringKey, "day"}});
    QCOMPARE(f.controller.pathString(), f.notebook + "day/");
    QCOMPARE(f.controller.attachments(), QStringList({"a.txt"}));
    QCOMPARE(f.controller.selectedRow(), 0);

    f.defaults.setValue(Settings::DefaultFileExtensionForEntries, QString("textbundle"));
    f.controller.receiveNewDateNotification("day");
    QCOMPARE(f.controller.attachments(), QStringList({"b.png"}));

    f.controller.receiveNewDateNotification("no such entry");
    QCOMPARE(f.controller.attachments(), QStringList());
    f.controller.receiveNewDateNotification("");
    QCOMPARE(f.controller.pathString(), QString());
    QVERIFY(!f.controller.panel()->addButton()->isVisible());
}

void TestAttachmentPanel::droppedFilesAreCopiedNeverReplacedAndMaybeTrashed()
{
    Fixture f;
    f.defaults.setValue(Settings::DeleteSourceAttachments, true);
    f.controller.receiveNewDateNotification("day");
    const QString kept = f.source("kept.txt", "new");
    const QString fresh = f.source("fresh.txt", "fresh");
    QDir().mkpath(f.notebook + "day");
    writeBytes(f.notebook + "day/kept.txt", "old");
    Alert::setResponder([](const AlertRequest &) { return 0; });

    // A real drop on the list, as a file manager sends it.
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(kept), QUrl::fromLocalFile(fresh)});
    QWidget *viewport = f.controller.panel()->list()->viewport();
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(viewport, &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(viewport, &drop);
    Alert::setResponder({});

    QCOMPARE(Alert::history().size(), 1);
    QCOMPARE(Alert::history().first().title, QString("Error"));
    QCOMPARE(readBytes(f.notebook + "day/kept.txt"), QByteArray("old"));
    QCOMPARE(readBytes(f.notebook + "day/fresh.txt"), QByteArray("fresh"));
    // Only the source that went in is thrown away; the refused one stays where it was.
    QVERIFY(QFileInfo::exists(kept));
    QVERIFY(!QFileInfo::exists(fresh));
    const QString trash = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    QCOMPARE(readBytes(trash + "/Trash/files/fresh.txt"), QByteArray("fresh"));
    QCOMPARE(f.controller.attachments().size(), 2);

    // Chosen files (not dropped) keep their source even with the setting on.
    const QString chosen = f.source("chosen.txt", "c");
    f.controller.performAddingOfFiles({chosen}, false);
    QVERIFY(QFileInfo::exists(chosen));
}

void TestAttachmentPanel::droppedPictureDataIsStoredAsJpegName()
{
    Fixture f;
    f.controller.receiveNewDateNotification("day");
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    QImage(7, 5, QImage::Format_RGB32).save(&buffer, "PNG");
    QMimeData mime;
    mime.setData("image/png", png);
    mime.setUrls({QUrl("https://example.org/pics/photo.png")});
    QVERIFY(f.controller.acceptDrop(&mime));
    QCOMPARE(readBytes(f.notebook + "day/photo.jpg"), png);

    // The same again is refused, and said so; the first stays.
    mime.setData("image/png", "other");
    QVERIFY(f.controller.acceptDrop(&mime));
    QCOMPARE(readBytes(f.notebook + "day/photo.jpg"), png);
    QVERIFY(f.bar->hasMessage(AttachmentFileController::MessageTopic));
}

void TestAttachmentPanel::draggingOutCarriesMarkupForOneRowOnly()
{
    Fixture f;
    f.defaults.setValue(Settings::DefaultFileExtensionForEntries, QString("textbundle"));
    f.defaults.setValue(Settings::TypographyUseMarkupLanguage, 1);
    const QString assets = f.notebook + "day.textbundle/assets/";
    QDir().mkpath(assets);
    writeBytes(assets + "image.png", "png");
    writeBytes(assets + "other.pdf", "pdf");
    f.controller.receiveNewDateNotification("day");
    AttachmentListModel *model = f.controller.model();
    const int row = f.controller.attachments().indexOf("image.png");

    std::unique_ptr<QMimeData> one(model->mimeData({model->index(row)}));
    QCOMPARE(one->text(), QString("![altText](assets/image.png \"image.png\")"));
    QCOMPARE(one->urls(), QList<QUrl>({QUrl::fromLocalFile(assets + "image.png")}));
    QCOMPARE(one->data("image/png"), QByteArray("png"));

    f.defaults.setValue(Settings::TypographyUseMarkupLanguage, 4);
    f.defaults.setValue(Settings::DefaultFileExtensionForEntries, QString("md"));
    std::unique_ptr<QMimeData> bbcode(model->mimeData({model->index(row)}));
    QCOMPARE(bbcode->text(), QString("[img]image.png[/img]"));

    std::unique_ptr<QMimeData> two(model->mimeData({model->index(0), model->index(1)}));
    QVERIFY(!two->hasFormat("text/plain"));
    QVERIFY(!two->hasUrls());
    QList<int> rows;
    QDataStream stream(two->data(AttachmentListModel::RowsMimeType));
    stream >> rows;
    QCOMPARE(rows, QList<int>({0, 1}));
    // Rows dragged back onto the list are not taken as new files, nor is prose.
    QVERIFY(!AttachmentTableView::canTake(two.get()));
    QMimeData prose;
    prose.setText("note: call the bank");
    QVERIFY(!AttachmentTableView::canTake(&prose));
    QVERIFY(!f.controller.acceptDrop(&prose));
}

void TestAttachmentPanel::removingTheLastAttachmentRemovesTheFolder()
{
    Fixture f;
    QDir().mkpath(f.notebook + "day");
    writeBytes(f.notebook + "day/a.txt", "a");
    writeBytes(f.notebook + "day/b.txt", "b");
    f.controller.receiveNewDateNotification("day");
    f.controller.selectRow(1);
    f.controller.removeSelectedAttachment();
    QCOMPARE(f.controller.attachments().size(), 1);
    QCOMPARE(f.controller.selectedRow(), 0);
    f.controller.removeSelectedAttachment();
    QVERIFY(!QFileInfo::exists(f.notebook + "day"));
    QCOMPARE(f.controller.selectedRow(), -1);
    f.controller.removeSelectedAttachment(); // nothing selected: nothing happens
}

void TestAttachmentPanel::paneOpensAndClosesWithAttachmentsWhenAsked()
{
    Fixture f;
    QStringList posted;
    QObject observer;
    for (const QString &name :
         {Notifications::AutoOpenAttachmentView, Notifications::AutoCloseAttachmentView})
        NotificationCenter::defaultCenter().addObserver(
            &observer, name, [&posted](const Notification &n) { posted << n.name; });
    QDir().mkpath(f.notebook + "full");
    writeBytes(f.notebook + "full/a.txt", "a");
    f.controller.receiveNewDateNotification("full");
    QCOMPARE(posted, QStringList());

    f.defaults.setValue(Settings::AutoToggleAttachmentView, true);
    f.controller.receiveNewDateNotification("full");
    f.controller.receiveNewDateNotification("empty");
    QCOMPARE(posted, QStringList({Notifications::AutoOpenAttachmentView,
                                  Notifications::AutoCloseAttachmentView}));
}

void TestAttachmentPanel::linksAreDownloadedFromARealServer()
{
    QTemporaryDir served;
    QImage picture(64, 48, QImage::Format_RGB32);
    picture.fill(Qt::magenta);
    QVERIFY(picture.save(served.path() + "/picture.png"));
    quint16 port = 0;
    {
        QTcpServer probe;
        QVERIFY(probe.listen(QHostAddress::LocalHost, 0));
        port = probe.serverPort();
    }
    QProcess server;
    server.setProcessChannelMode(QProcess::MergedChannels);
    server.start("python3", {"-u", "-m", "http.server", QString::number(port), "--bind",
                             "127.0.0.1", "--directory", served.path()});
    QVERIFY(server.waitForStarted());
    QByteArray output;
    QTRY_VERIFY_WITH_TIMEOUT((output += server.readAll()).contains("Serving HTTP"), 10000);

    Fixture f;
    f.controller.receiveNewDateNotification("day");
    const QString base = QString("http://127.0.0.1:%1/").arg(port);
    QSignalSpy done(&f.controller, &AttachmentFileController::downloadFinished);

    QMimeData link;
    link.setUrls({QUrl(base + "picture.png")});
    QVERIFY(f.controller.acceptDrop(&link));
    QVERIFY(f.controller.panel()->progressBar()->isVisibleTo(f.controller.panel()));
    QVERIFY(done.wait(20000));
    QCOMPARE(done.last().at(0).toBool(), true);
    QCOMPARE(readBytes(f.notebook + "day/picture.png"), readBytes(served.path() + "/picture.png"));
    QCOMPARE(f.controller.attachments(), QStringList({"picture.png"}));

    // A link that fails leaves nothing behind and says so.
    f.controller.receiveNewDateNotification("other");
    f.controller.performAddingOfURLFile(QUrl(base + "missing"));
    QVERIFY(done.wait(20000));
    QCOMPARE(done.last().at(0).toBool(), false);
    QVERIFY(!QFileInfo::exists(f.notebook + "other"));
    QVERIFY(f.bar->hasMessage(AttachmentFileController::MessageTopic));
    QVERIFY(!f.controller.panel()->progressBar()->isVisibleTo(f.controller.panel()));

    server.kill();
    server.waitForFinished();
}

void TestAttachmentPanel::cancelledDownloadsLeaveNothing()
{
    // A server that promises a megabyte and trickles it.
    QProcess server;
    server.start("python3", {"-u", "-c", R"(
import socket, time
s = socket.socket()
s.bind(("127.0.0.1", 0))
s.listen(1)
print(s.getsockname()[1], flush=True)
c, _ = s.accept()
c.recv(65536)
c.sendall(b"HTTP/1.0 200 OK\r\nContent-Length: 1000000\r\n\r\n" + b"x" * 50000)
for _ in range(100):
    time.sleep(0.3)
    c.sendall(b"x" * 500)
)"});
    QVERIFY(server.waitForReadyRead(10000));
    const int port = server.readLine().trimmed().toInt();
    QVERIFY(port > 0);

    Fixture f;
    f.controller.receiveNewDateNotification("day");
    QSignalSpy done(&f.controller, &AttachmentFileController::downloadFinished);
    f.controller.performAddingOfURLFile(QUrl(QString("http://127.0.0.1:%1/big.jpg").arg(port)));
    QProgressBar *progress = f.controller.panel()->progressBar();
    QTRY_VERIFY_WITH_TIMEOUT(progress->value() > 0, 10000);
    QCOMPARE(progress->maximum(), 1000000 / 1024);
    f.controller.cancelDownloads();
    QCOMPARE(done.count(), 1);
    QCOMPARE(done.last().at(0).toBool(), false);
    QVERIFY(!QFileInfo::exists(f.notebook + "day"));
    QCOMPARE(f.controller.runningDownloads(), 0);
    server.kill();
    server.waitForFinished();
}

void TestAttachmentPanel::previewShowsEachKindAndStepsWithKeys()
{
    Fixture f;
    const QString folder = f.notebook + "day/";
    QDir().mkpath(folder);
    {
        QPdfWriter writer(folder + "a.pdf");
        QPainter painter(&writer);
        painter.drawText(100, 100, "page");
    }
    QImage image(30, 20, QImage::Format_RGB32);
    image.fill(Qt::cyan);
    image.save(folder + "b.png");
    writeBytes(folder + "c.txt", "plain words");
    writeBytes(folder + "d.rtf", "{\\rtf1\\ansi {\\b bold} words}");
    writeBytes(folder + "e.xyz", "unknown");
    f.controller.receiveNewDateNotification("day");
    QStringList names = f.controller.attachments();

    f.controller.quicklookSelectedAttachment();
    PseudoQuicklook *preview = f.controller.quickLook();
    QVERIFY(preview && preview->isVisible());
    for (int step = 0; step < names.size(); ++step) {
        QCOMPARE(f.controller.selectedRow(), step);
        QCOMPARE(preview->windowTitle(), names.at(step));
        const QString name = names.at(step);
        if (name == "a.pdf") {
            QCOMPARE(preview->pdfDocument()->pageCount(), 1);
            QCOMPARE(preview->currentView()->objectName(), QString("attachmentPdfView"));
        } else if (name == "b.png") {
            QCOMPARE(preview->imageView()->image().size(), QSize(30, 20));
            QCOMPARE(preview->currentView(), preview->imageView());
        } else if (name == "c.txt") {
            QCOMPARE(preview->textView()->toPlainText(), QString("plain words"));
        } else if (name == "d.rtf") {
            QSignalSpy shown(preview, &PseudoQuicklook::richTextShown);
            QVERIFY(shown.wait(20000));
            QCOMPARE(preview->currentView(), preview->textView());
            QCOMPARE(preview->textView()->toPlainText().simplified(), QString("bold words"));
            QVERIFY(preview->textView()->toHtml().contains("font-weight:700"));
        } else {
            QCOMPARE(preview->currentView()->objectName(), QString("attachmentIconView"));
        }
        QTest::keyClick(preview, Qt::Key_Down);
    }
    QCOMPARE(f.controller.selectedRow(), names.size() - 1); // the last row stays
    QTest::keyClick(preview, Qt::Key_Up);
    QCOMPARE(f.controller.selectedRow(), names.size() - 2);
    QTest::keyClick(preview, Qt::Key_Escape);
    QVERIFY(!preview->isVisible());
}

VELLOX_TEST_MAIN(TestAttachmentPanel)
#include "tst_attachmentpanel.moc"

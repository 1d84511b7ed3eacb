#include "app/widgets/SingleInstance.h"
#include "notes/QuickNoteFile.h"
#include "support/TestHome.h"

#include <QDBusConnection>
#include <QDir>
#include <QProcess>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

// A second start of the real program hands its link to this process, standing in for the
// running Vellox, and ends without a window of its own.
class TestSingleInstance : public QObject
{
    Q_OBJECT

    QProcess m_bus;
    QTemporaryDir m_runtime;
    QString m_busAddress;

    void startSecond(QProcess &second, const QStringList &arguments, const QString &busAddress)
    {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("QT_QPA_PLATFORM", "offscreen");
        env.insert("DBUS_SESSION_BUS_ADDRESS", busAddress);
        env.insert("XDG_RUNTIME_DIR", m_runtime.path());
        // No settings there: a start that did not hand over would sit in the first-run panel.
        env.insert("HOME", m_runtime.path());
        env.insert("XDG_CONFIG_HOME", m_runtime.filePath("config"));
        second.setProcessEnvironment(env);
        second.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        second.start(VELLOX_APP, arguments);
        QVERIFY(second.waitForStarted());
    }

    static const QString link()
    {
        return "x-velloxBookmarkNote:utf-8VelloxImportSeperatorVelloxImportSeperatorhttp%3A%2F%2Fa"
               "VelloxImportSeperatorcaf%C3%A9";
    }

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("XDG_RUNTIME_DIR", m_runtime.path().toLocal8Bit());
        const QString daemon = QStandardPaths::findExecutable("dbus-daemon");
        if (daemon.isEmpty())
            return;
        m_bus.start(daemon, {"--session", "--nofork", "--print-address=1"});
        QVERIFY(m_bus.waitForStarted());
        while (!m_bus.canReadLine())
            QVERIFY(m_bus.waitForReadyRead(10000));
        m_busAddress = QString::fromLocal8Bit(m_bus.readLine()).trimmed();
        // Before anything in this process has opened the session bus.
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_busAddress.toLocal8Bit());
    }

    void cleanupTestCase()
    {
        m_bus.terminate();
        m_bus.waitForFinished();
    }

    void handsOverOnTheSessionBus()
    {
        if (m_busAddress.isEmpty())
            QSKIP("dbus-daemon is not installed");
        QVERIFY(QDBusConnection::sessionBus().isConnected());
        {
            SingleInstance running;
            QSignalSpy received(&running, &SingleInstance::argumentsReceived);
            QVERIFY(!running.handOverOrListen({}));

            // What the link leads to may be a modal alert: the later start must still be
            // answered and end while it is open.
            QProcess second;
            bool endedWhileBusy = false;
            connect(&running, &SingleInstance::argumentsReceived, this, [&] {
                QEventLoop busy;
                connect(&second, &QProcess::finished, &busy, &QEventLoop::quit);
                QTimer::singleShot(30000, &busy, &QEventLoop::quit);
                if (second.state() != QProcess::NotRunning)
                    busy.exec();
                endedWhileBusy = second.state() == QProcess::NotRunning;
            });
            startSecond(second, {link()}, m_busAddress);
            QTRY_COMPARE_WITH_TIMEOUT(received.count(), 1, 60000);
            QCOMPARE(received.first().first().toStringList(), QStringList{link()});
            QTRY_VERIFY_WITH_TIMEOUT(endedWhileBusy, 40000);
            QCOMPARE(second.exitStatus(), QProcess::NormalExit);
            QCOMPARE(second.exitCode(), 0);
        }
        // Once the running one has gone, the name is free for the next start.
        SingleInstance next;
        QVERIFY(!next.handOverOrListen({}));
        QVERIFY(next.isListening());
    }

    // The link a start is given becomes a note once the notebook is open; a later start's
    // link goes into the same notebook of the same window.
    void linksReachTheNotebookOnDisplay()
    {
        if (m_busAddress.isEmpty())
            QSKIP("dbus-daemon is not installed");
        QTemporaryDir notebook;
        QDir(m_runtime.path()).mkpath("config/Vellox");
        QFile config(m_runtime.filePath("config/Vellox/Vellox.conf"));
        QVERIFY(config.open(QIODevice::WriteOnly));
        config.write("[General]\nDiarySaveDestinations\\1\\DiaryName=Test\n"
                     "DiarySaveDestinations\\1\\DiaryDocumentPath=" +
                     notebook.path().toUtf8() + "\nDiarySaveDestinations\\size=1\n");
        config.close();
        auto notes = [&] {
            return QuickNoteFile::read(notebook.filePath("_notes.stfn")).notes.size();
        };

        QProcess first;
        startSecond(first, {link()}, m_busAddress);
        QTRY_COMPARE_WITH_TIMEOUT(notes(), 1, 60000);
        QProcess second;
        startSecond(second, {link()}, m_busAddress);
        QTRY_COMPARE_WITH_TIMEOUT(second.state(), QProcess::NotRunning, 30000);
        QCOMPARE(second.exitCode(), 0);
        QTRY_COMPARE_WITH_TIMEOUT(notes(), 2, 30000);
        QCOMPARE(QuickNoteFile::read(notebook.filePath("_notes.stfn")).notes.at(1).text,
                 QString::fromUtf8("caf\xC3\xA9\nLink: http://a"));
        QCOMPARE(first.state(), QProcess::Running);
        first.terminate();
        QVERIFY(first.waitForFinished(30000));
        QFile::remove(config.fileName());
    }

    // Without a session bus the hand-over goes through a local socket; a socket file left by
    // an instance that died does not stop the next one.
    void handsOverOnALocalSocketWithoutABus()
    {
        {
            SingleInstance crashed(SingleInstance::Transport::LocalSocketOnly);
            QVERIFY(!crashed.handOverOrListen({}));
        }
        QFile stale(SingleInstance::socketPath());
        QVERIFY(stale.open(QIODevice::WriteOnly));
        stale.close();

        SingleInstance running(SingleInstance::Transport::LocalSocketOnly);
        QSignalSpy received(&running, &SingleInstance::argumentsReceived);
        QVERIFY(!running.handOverOrListen({}));
        QVERIFY(running.isListening());

        QProcess second;
        startSecond(second, {link(), "second"}, "unix:path=/nonexistent/vellox-test-bus");
        QTRY_COMPARE_WITH_TIMEOUT(received.count(), 1, 60000);
        QCOMPARE(received.first().first().toStringList(), (QStringList{link(), "second"}));
        QTRY_COMPARE_WITH_TIMEOUT(second.state(), QProcess::NotRunning, 30000);
        QCOMPARE(second.exitCode(), 0);
    }
};

VELLOX_TEST_MAIN(TestSingleInstance)
#include "tst_singleinstance.moc"

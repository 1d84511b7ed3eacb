// The global key where X11 cannot grab it: a stand-in for the desktop portal's
// GlobalShortcuts interface on a private session bus records what the application asks and
// answers as a desktop would, with Response, Activated and Deactivated signals.
#include "core/UserDefaults.h"
#include "menubar/GlobalKeyStatus.h"
#include "menubar/GlobalShortcut.h"
#include "menubar/PortalGlobalShortcuts.h"
#include "menubar/widgets/CapturePanel.h"
#include "menubar/widgets/GlobalShortcutPane.h"
#include "menubar/widgets/MenubarController.h"
#include "support/TestHome.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>

struct FakeShortcut
{
    QString id;
    QVariantMap properties;
};
Q_DECLARE_METATYPE(FakeShortcut)

QDBusArgument &operator<<(QDBusArgument &argument, const FakeShortcut &shortcut)
{
    argument.beginStructure();
    argument << shortcut.id << shortcut.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, FakeShortcut &shortcut)
{
    argument.beginStructure();
    argument >> shortcut.id >> shortcut.properties;
    argument.endStructure();
    return argument;
}

namespace {
const QString PortalService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString PortalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString PortalInterface = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");
QString g_busAddress;
} // namespace

// Answers each request on the path the portal documents, built here from the caller's unique
// name and its handle_token, before the method returns (as a fast portal may).
class FakePortal : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.GlobalShortcuts")
    Q_PROPERTY(uint version READ version)
public:
    explicit FakePortal(const QDBusConnection &bus)
        : m_bus(bus)
    {}
    uint version() const { return 1; }

    QStringList sessions;
    QList<QList<FakeShortcut>> bindings;

    void emitShortcut(const QString &name, const QString &session, const QString &id,
                      qulonglong timestamp)
    {
        QDBusMessage signal = QDBusMessage::createSignal(PortalPath, PortalInterface, name);
        signal << QVariant::fromValue(QDBusObjectPath(session)) << id << timestamp << QVariantMap();
        QVERIFY(m_bus.send(signal));
    }

public Q_SLOTS:
    QDBusObjectPath CreateSession(const QVariantMap &options)
    {
        const QString session =
            QStringLiteral("/org/freedesktop/portal/desktop/session/%1/%2")
                .arg(sender(), options.value(QStringLiteral("session_handle_token")).toString());
        sessions << session;
        return respond(options, 0, {{QStringLiteral("session_handle"), session}});
    }

    QDBusObjectPath BindShortcuts(const QDBusObjectPath &session,
                                  const QList<FakeShortcut> &shortcuts, const QString &,
                                  const QVariantMap &options)
    {
        bindings << shortcuts;
        QList<FakeShortcut> bound = shortcuts;
        for (FakeShortcut &shortcut : bound)
            shortcut.properties.insert(QStringLiteral("trigger_description"),
                                       QStringLiteral("Desk+J"));
        // A session the portal never opened binds nothing.
        return respond(options, sessions.contains(session.path()) ? 0 : 2,
                       {{QStringLiteral("shortcuts"), QVariant::fromValue(bound)}});
    }

private:
    QString sender() const { return message().service().mid(1).replace(QLatin1Char('.'), '_'); }

    QDBusObjectPath respond(const QVariantMap &options, uint code, const QVariantMap &results)
    {
        const QString path =
            QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2")
                .arg(sender(), options.value(QStringLiteral("handle_token")).toString());
        QDBusMessage signal = QDBusMessage::createSignal(
            path, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"));
        signal << code << results;
        m_bus.send(signal);
        return QDBusObjectPath(path);
    }

    QDBusConnection m_bus;
};

// Signals from one sender reach the application in the order sent: once a ping sent last has
// arrived, everything sent before it has been handled.
class BusSync : public QObject
{
    Q_OBJECT
public:
    int pings = 0;
public Q_SLOTS:
    void ping() { ++pings; }
};

class TestPortalKey : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void bindsTheKeyAndTheReleaseTogglesThePanel();

private:
    void store(int qtKey, Qt::KeyboardModifiers modifiers);
    void sync();
    // Sends a release and waits until the panel followed it.
    void releaseAndExpect(MenubarController &controller, const QString &session, qulonglong time,
                          bool open);

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<UserDefaults> m_defaults;
    std::unique_ptr<FakePortal> m_portal;
    BusSync m_sync;
    QDBusConnection m_bus{QString()};
};

void TestPortalKey::initTestCase()
{
    if (g_busAddress.isEmpty())
        QSKIP("dbus-daemon is not installed");
    qDBusRegisterMetaType<FakeShortcut>();
    qDBusRegisterMetaType<QList<FakeShortcut>>();
    m_bus = QDBusConnection::connectToBus(g_busAddress, QStringLiteral("fake-portal"));
    QVERIFY(m_bus.isConnected());
    QVERIFY(QDBusConnection::sessionBus().connect(QString(), QStringLiteral("/vellox/test"),
                                                  QStringLiteral("vellox.Test"),
                                                  QStringLiteral("Ping"), &m_sync, SLOT(ping())));
}

void TestPortalKey::sync()
{
    const int expected = m_sync.pings + 1;
    QVERIFY(m_bus.send(QDBusMessage::createSignal(
        QStringLiteral("/vellox/test"), QStringLiteral("vellox.Test"), QStringLiteral("Ping"))));
    QTRY_COMPARE_WITH_TIMEOUT(m_sync.pings, expected, 5000);
}

void TestPortalKey::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    m_defaults = std::make_unique<UserDefaults>(m_dir->filePath(QStringLiteral("s.conf")));
    m_defaults->registerDefaults(UserDefaults::defaultsTable());
    m_portal = std::make_unique<FakePortal>(m_bus);
    QVERIFY(m_bus.registerObject(PortalPath, m_portal.get(),
                                 QDBusConnection::ExportAllSlots |
                                     QDBusConnection::ExportAllProperties));
    QVERIFY(m_bus.registerService(PortalService));
}

void TestPortalKey::cleanup()
{
    m_bus.unregisterService(PortalService);
    m_bus.unregisterObject(PortalPath);
    m_portal.reset();
}

void TestPortalKey::store(int qtKey, Qt::KeyboardModifiers modifiers)
{
    // No X server: the key code stays unknown, as under Wayland.
    ShortcutSettings::saveTheShortCut(*m_defaults,
                                      GlobalShortcut::fromKey(qtKey, modifiers, 0).toValue());
}

void TestPortalKey::releaseAndExpect(MenubarController &controller, const QString &session,
                                     qulonglong time, bool open)
{
    QSignalSpy changed(controller.panel(), &CapturePanel::openChanged);
    m_portal->emitShortcut(QStringLiteral("Activated"), session, PortalGlobalShortcuts::ShortcutId,
                           time);
    m_portal->emitShortcut(QStringLiteral("Deactivated"), session,
                           PortalGlobalShortcuts::ShortcutId, time);
    sync();
    QCOMPARE(changed.size(), 1);
    QCOMPARE(controller.panel()->isOpen(), open);
}

void TestPortalKey::bindsTheKeyAndTheReleaseTogglesThePanel()
{
    store(Qt::Key_J, Qt::ControlModifier | Qt::AltModifier);
    QSignalSpy reported(&GlobalKeyStatus::instance(), &GlobalKeyStatus::portalReported);
    MenubarController controller(*m_defaults);
    controller.panel()->addPane(CapturePanel::SearchPaneId, QStringLiteral("Search"),
                                new QLineEdit);
    QVERIFY(controller.portal());
    GlobalShortcutPane pane(*m_defaults);

    QTRY_COMPARE_WITH_TIMEOUT(m_portal->bindings.size(), 1, 10000);
    QCOMPARE(m_portal->sessions.size(), 1);
    const FakeShortcut asked = m_portal->bindings.first().value(0);
    QCOMPARE(asked.id, QStringLiteral("capture-panel"));
    QCOMPARE(asked.properties.value(QStringLiteral("preferred_trigger")).toString(),
             QStringLiteral("CTRL+ALT+j"));
    QTRY_VERIFY_WITH_TIMEOUT(!reported.isEmpty() &&
                                 reported.last().at(0).value<PortalGlobalShortcuts::Result>() ==
                                     PortalGlobalShortcuts::Result::Bound,
                             5000);
    QCOMPARE(reported.last().at(2).toString(), QStringLiteral("Desk+J"));
    // Preferences name the keys the desktop bound instead of asking for X11.
    QVERIFY(GlobalKeyStatus::sessionProblem().isEmpty());
    QVERIFY2(pane.statusLabel()->text().contains(QStringLiteral("Desk+J")),
             qPrintable(pane.statusLabel()->text()));

    // The press alone does nothing; the release toggles, and another program's shortcut or
    // a session not ours is not the panel's.
    const QString first = m_portal->sessions.first();
    QSignalSpy changed(controller.panel(), &CapturePanel::openChanged);
    m_portal->emitShortcut(QStringLiteral("Deactivated"), first, QStringLiteral("other"), 1);
    m_portal->emitShortcut(QStringLiteral("Deactivated"),
                           QStringLiteral("/org/freedesktop/portal/desktop/session/x/y"),
                           PortalGlobalShortcuts::ShortcutId, 2);
    sync();
    QCOMPARE(changed.size(), 0);
    releaseAndExpect(controller, first, 3, true);
    releaseAndExpect(controller, first, 4, false);

    // A changed key is bound in a new session; the old one stays, and one release that the
    // desktop reports to both sessions toggles once.
    store(Qt::Key_F8, Qt::ShiftModifier);
    QTRY_COMPARE_WITH_TIMEOUT(controller.portal()->sessionCount(), 2, 10000);
    QTRY_COMPARE_WITH_TIMEOUT(m_portal->bindings.size(), 2, 10000);
    QCOMPARE(
        m_portal->bindings.last().value(0).properties.value(QStringLiteral("preferred_trigger")),
        QVariant(QStringLiteral("SHIFT+F8")));
    const QString second = m_portal->sessions.last();
    QVERIFY(second != first);
    changed.clear();
    m_portal->emitShortcut(QStringLiteral("Deactivated"), first, PortalGlobalShortcuts::ShortcutId,
                           5);
    m_portal->emitShortcut(QStringLiteral("Deactivated"), second, PortalGlobalShortcuts::ShortcutId,
                           5);
    sync();
    QCOMPARE(changed.size(), 1);
    releaseAndExpect(controller, second, 6, false);
    releaseAndExpect(controller, first, 7, true);
    controller.panel()->closePanel();
}

// A private session bus, started before anything in this process opens the session bus.
int main(int argc, char *argv[])
{
    TestHome home;
    QProcess daemon;
    const QString program = QStandardPaths::findExecutable(QStringLiteral("dbus-daemon"));
    if (!program.isEmpty()) {
        daemon.start(program, {QStringLiteral("--session"), QStringLiteral("--nofork"),
                               QStringLiteral("--print-address=1")});
        if (daemon.waitForStarted()) {
            while (!daemon.canReadLine() && daemon.waitForReadyRead(10000)) {
            }
            g_busAddress = QString::fromLocal8Bit(daemon.readLine()).trimmed();
            qputenv("DBUS_SESSION_BUS_ADDRESS", g_busAddress.toLocal8Bit());
        }
    }
    int status = 0;
    {
        QApplication app(argc, argv);
        velloxInstallTranslations(&app);
        TestPortalKey test;
        status = QTest::qExec(&test, argc, argv);
    }
    daemon.terminate();
    daemon.waitForFinished();
    return status;
}

#include "tst_portalkey.moc"

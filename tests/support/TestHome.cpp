#include "TestHome.h"

#include "core/Localisation.h"
#include "core/UserDefaults.h"

#include <QDir>
#include <QStandardPaths>

#include <unistd.h>

namespace {
TestHome *g_home = nullptr;
}

void velloxPrepareTestProcess()
{
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    if (geteuid() == 0)
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

void velloxInstallTranslations(QCoreApplication *app)
{
    Localisation::install(app);
}

TestHome::TestHome()
{
    g_home = this;
    reset();
}

TestHome::~TestHome()
{
    UserDefaults::resetStandard();
    g_home = nullptr;
}

TestHome *TestHome::instance()
{
    return g_home;
}

void TestHome::reset()
{
    UserDefaults::resetStandard();
    const QString home = m_dir.path() + QStringLiteral("/home");
    QDir(home).removeRecursively();
    QDir().mkpath(home + QStringLiteral("/.config"));
    QDir().mkpath(home + QStringLiteral("/.local/share"));
    qputenv("HOME", home.toUtf8());
    qputenv("XDG_CONFIG_HOME", (home + QStringLiteral("/.config")).toUtf8());
    qputenv("XDG_DATA_HOME", (home + QStringLiteral("/.local/share")).toUtf8());
    qputenv("XDG_CACHE_HOME", (home + QStringLiteral("/.cache")).toUtf8());
}

#pragma once

#include <QApplication>
#include <QString>
#include <QTemporaryDir>
#include <QTest>

// Gives a test process a private, empty home: settings, support folder and trash all live in
// a temporary folder that is removed afterwards.
class TestHome
{
public:
    TestHome();
    ~TestHome();
    QString path() const { return m_dir.path(); }
    // Throws away the settings and support folder and starts again empty.
    void reset();
    static TestHome *instance();

private:
    QTemporaryDir m_dir;
};

void velloxPrepareTestProcess();

// Like QTEST_MAIN, with a private HOME, the id-based translations loaded and the
// application attributes QtWebEngine needs.
#define VELLOX_TEST_MAIN(TestObject)                                                               \
    int main(int argc, char *argv[])                                                               \
    {                                                                                              \
        velloxPrepareTestProcess();                                                                \
        TestHome home;                                                                             \
        QApplication app(argc, argv);                                                              \
        velloxInstallTranslations(&app);                                                           \
        app.setAttribute(Qt::AA_Use96Dpi, true);                                                   \
        TestObject tc;                                                                             \
        QTEST_SET_MAIN_SOURCE_PATH                                                                 \
        return QTest::qExec(&tc, argc, argv);                                                      \
    }

void velloxInstallTranslations(QCoreApplication *app);

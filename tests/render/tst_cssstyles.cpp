#include "core/AppPaths.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "render/StyleFolderSeeder.h"
#include "render/widgets/CSSStykeController.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QListWidget>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>

#include <memory>

class TestCSSStyles : public QObject
{
    Q_OBJECT
private:
    int m_reloads = 0;
    QObject m_observer;
    std::unique_ptr<UserDefaults> m_defaults;

    QString chosen() const { return m_defaults->value(Settings::SelectedCSSStyle); }

    static void seedShippedStyles()
    {
        QVERIFY(StyleFolderSeeder::seed(AppPaths::cssStyleFolder(),
                                        QStringLiteral(VELLOX_SOURCE_RESOURCES "/styles")));
    }

private Q_SLOTS:
    void initTestCase()
    {
        NotificationCenter::defaultCenter().addObserver(
            &m_observer, Notifications::CSSStyleChangePerformReload,
            [this](const Notification &) { ++m_reloads; });
    }

    void init()
    {
        TestHome::instance()->reset();
        m_defaults = std::make_unique<UserDefaults>(TestHome::instance()->path() +
                                                    QStringLiteral("/home/styles.conf"));
        m_defaults->registerDefaults(UserDefaults::defaultsTable());
        m_reloads = 0;
    }
    void cleanup() { m_defaults.reset(); }

    void firstStartSelectsStandard()
    {
        seedShippedStyles();
        CSSStykeController panel(*m_defaults);
        QCOMPARE(panel.cssStyleTable()->count(), panel.numberOfRowsInTableView());
        QCOMPARE(panel.cssStyleTable()->currentItem()->text(), QStringLiteral("Standard.css"));
        QCOMPARE(chosen(), QStringLiteral("Standard.css"));
        // Loading the list is a selection like any other: stored and announced once.
        QVERIFY(m_defaults->hasStoredValue(Settings::SelectedCSSStyle));
        QCOMPARE(m_reloads, 1);
    }

    void selectingARowStoresAndAnnouncesIt()
    {
        seedShippedStyles();
        m_defaults->setValue(Settings::SelectedCSSStyle, QStringLiteral("Delicious White.css"));
        CSSStykeController panel(*m_defaults);
        QCOMPARE(panel.cssStyleTable()->currentItem()->text(),
                 QStringLiteral("Delicious White.css"));
        const int night = panel.displayItems().indexOf(QStringLiteral("Standard Night.css"));
        m_reloads = 0;
        panel.cssStyleTable()->setCurrentRow(night);
        QCOMPARE(chosen(), QStringLiteral("Standard Night.css"));
        QCOMPARE(m_reloads, 1);
        // Reloading keeps the choice.
        panel.loadItems();
        QCOMPARE(panel.cssStyleTable()->currentRow(), night);
        QCOMPARE(chosen(), QStringLiteral("Standard Night.css"));
    }

    void removingTheChosenStyleFallsBackToTheFirst()
    {
        seedShippedStyles();
        m_defaults->setValue(Settings::SelectedCSSStyle, QStringLiteral("Standard Night.css"));
        CSSStykeController panel(*m_defaults);
        m_reloads = 0;
        panel.removeCSSStyle();
        QVERIFY(!QFile::exists(AppPaths::cssStyleFolder() + QStringLiteral("Standard Night.css")));
        QCOMPARE(panel.numberOfRowsInTableView(), 3);
        QVERIFY(!panel.displayItems().contains(QStringLiteral("Standard Night.css")));
        QCOMPARE(panel.cssStyleTable()->currentRow(), 0);
        QCOMPARE(chosen(), panel.tableView(0));
        QCOMPARE(m_reloads, 1);
        // The file is recoverable from the trash.
        QDir trash(TestHome::instance()->path() + QStringLiteral("/home/.local/share/Trash/files"));
        QVERIFY(trash.exists(QStringLiteral("Standard Night.css")));
    }

    void removingEverythingLeavesAnEmptyListThatStillWorks()
    {
        QDir().mkpath(AppPaths::cssStyleFolder());
        writeBytes(AppPaths::cssStyleFolder() + QStringLiteral("Only.css"), "body{}");
        CSSStykeController panel(*m_defaults);
        QCOMPARE(chosen(), QStringLiteral("Only.css"));
        QVERIFY(panel.findChildren<QToolButton *>().size() >= 2);
        panel.removeCSSStyle();
        QCOMPARE(panel.numberOfRowsInTableView(), 0);
        QCOMPARE(panel.cssStyleTable()->currentRow(), -1);
        // Nothing left to choose: the last choice stays stored, and removing again only beeps.
        QCOMPARE(chosen(), QStringLiteral("Only.css"));
        panel.removeCSSStyle();
        panel.tableViewSelectionDidChange();
        QCOMPARE(panel.numberOfRowsInTableView(), 0);
    }

    void aMissingFolderIsAnEmptyListAndAddingCreatesIt()
    {
        QVERIFY(!QFileInfo::exists(AppPaths::cssStyleFolder()));
        CSSStykeController panel(*m_defaults);
        QCOMPARE(panel.numberOfRowsInTableView(), 0);
        QCOMPARE(chosen(), QStringLiteral("Standard.css"));
        QVERIFY(!m_defaults->hasStoredValue(Settings::SelectedCSSStyle));

        QTemporaryDir elsewhere;
        const QString mine = elsewhere.filePath(QStringLiteral("Mine.css"));
        writeBytes(mine, "body{color:#333}");
        panel.copyStylesIntoFolder({mine});
        QCOMPARE(panel.displayItems(), QStringList{QStringLiteral("Mine.css")});
        QCOMPARE(chosen(), QStringLiteral("Mine.css"));
    }

    void addingKeepsAnExistingStyleOfTheSameName()
    {
        seedShippedStyles();
        const QString standard = AppPaths::cssStyleFolder() + QStringLiteral("Standard.css");
        const QByteArray shipped = readBytes(standard);
        QVERIFY(!shipped.isEmpty());
        CSSStykeController panel(*m_defaults);

        QTemporaryDir elsewhere;
        writeBytes(elsewhere.filePath(QStringLiteral("Standard.css")), "body{color:red}");
        writeBytes(elsewhere.filePath(QStringLiteral("Paper.css")), "body{background:#fffdf5}");
        writeBytes(elsewhere.filePath(QStringLiteral("notes.txt")), "not a style");
        panel.copyStylesIntoFolder({elsewhere.filePath(QStringLiteral("Standard.css")),
                                    elsewhere.filePath(QStringLiteral("Paper.css")),
                                    elsewhere.filePath(QStringLiteral("notes.txt")),
                                    elsewhere.filePath(QStringLiteral("missing.css"))});
        QCOMPARE(readBytes(standard), shipped);
        QCOMPARE(readBytes(AppPaths::cssStyleFolder() + QStringLiteral("Paper.css")),
                 QByteArray("body{background:#fffdf5}"));
        QVERIFY(!QFile::exists(AppPaths::cssStyleFolder() + QStringLiteral("notes.txt")));
        QCOMPARE(panel.numberOfRowsInTableView(), 5);
        QCOMPARE(chosen(), QStringLiteral("Standard.css"));
    }

    void addOpensASheetForStyleSheetsOnly()
    {
        seedShippedStyles();
        CSSStykeController panel(*m_defaults);
        panel.showCSSStyleSelectorHudPanel();
        QVERIFY(QTest::qWaitForWindowExposed(&panel));
        panel.addNewCSSStyle();
        QFileDialog *dialog = panel.openFileDialog();
        QVERIFY(dialog);
        QCOMPARE(dialog->windowModality(), Qt::WindowModal);
        QCOMPARE(dialog->fileMode(), QFileDialog::ExistingFiles);
        QVERIFY(dialog->nameFilters().join(QString()).contains(QStringLiteral("*.css")));
        // A second click brings the open sheet forward rather than stacking another.
        panel.addNewCSSStyle();
        QCOMPARE(panel.findChildren<QFileDialog *>().size(), 1);

        QTemporaryDir elsewhere;
        writeBytes(elsewhere.filePath(QStringLiteral("Chosen.css")), "h1{}");
        dialog->setDirectory(elsewhere.path());
        dialog->selectFile(elsewhere.filePath(QStringLiteral("Chosen.css")));
        QMetaObject::invokeMethod(dialog, "accept");
        QVERIFY(panel.displayItems().contains(QStringLiteral("Chosen.css")));
    }

    void changesMadeOutsideShowAtOnce()
    {
        seedShippedStyles();
        CSSStykeController panel(*m_defaults);
        m_reloads = 0;
        // A style dropped into the folder by hand joins the list.
        writeBytes(AppPaths::cssStyleFolder() + QStringLiteral("Handmade.css"), "body{}");
        QTRY_VERIFY(panel.displayItems().contains(QStringLiteral("Handmade.css")));
        QCOMPARE(chosen(), QStringLiteral("Standard.css"));
        QTRY_COMPARE(m_reloads, 1);

        // Editing the chosen style in a text editor restyles the preview, also when the
        // editor saves by replacing the file.
        m_reloads = 0;
        const QString standard = AppPaths::cssStyleFolder() + QStringLiteral("Standard.css");
        QFile file(standard);
        QVERIFY(file.open(QIODevice::Append));
        file.write("\nh1{color:teal}");
        file.close();
        QTRY_COMPARE(m_reloads, 1);
        m_reloads = 0;
        writeBytes(standard + QStringLiteral(".tmp"), "body{}");
        QVERIFY(QFile::remove(standard));
        QVERIFY(QFile::rename(standard + QStringLiteral(".tmp"), standard));
        QTRY_COMPARE(m_reloads, 1);
        QFile again(standard);
        QVERIFY(again.open(QIODevice::Append));
        again.write("\np{}");
        again.close();
        QTRY_COMPARE(m_reloads, 2);
        QCOMPARE(panel.numberOfRowsInTableView(), 5);
    }

    void everyControlIsLabelled()
    {
        CSSStykeController panel(*m_defaults);
        QList<QWidget *> controls{panel.cssStyleTable()};
        for (QToolButton *button : panel.findChildren<QToolButton *>())
            controls << button;
        QCOMPARE(controls.size(), 4);
        for (QWidget *control : controls)
            QVERIFY(!control->accessibleName().isEmpty() && !control->toolTip().isEmpty());
    }
};

VELLOX_TEST_MAIN(TestCSSStyles)
#include "tst_cssstyles.moc"

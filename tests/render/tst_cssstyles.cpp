#include "core/AppPaths.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
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

    // A style folder of our own, so the expectations do not hang on what ships.
    static const inline QStringList kStyles{"Contrast.css", "Night.css", "Standard.css",
                                            "White.css"};
    static QString styleFile(const QString &name) { return AppPaths::cssStyleFolder() + name; }
    static void writeStyles()
    {
        QDir().mkpath(AppPaths::cssStyleFolder());
        for (const QString &name : kStyles)
            writeBytes(styleFile(name), "/* " + name.toUtf8() + " */ body{}");
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
                                                    QString("/home/styles.conf"));
        m_defaults->registerDefaults(UserDefaults::defaultsTable());
        m_reloads = 0;
    }
    void cleanup() { m_defaults.reset(); }

    void firstStartSelectsStandard()
    {
        writeStyles();
        CSSStykeController panel(*m_defaults);
        QCOMPARE(panel.numberOfRowsInTableView(), int(kStyles.size()));
        QCOMPARE(panel.cssStyleTable()->count(), int(kStyles.size()));
        QCOMPARE(panel.cssStyleTable()->currentItem()->text(), QString("Standard.css"));
        QCOMPARE(chosen(), QString("Standard.css"));
        // Loading the list is a selection like any other: stored and announced once.
        QVERIFY(m_defaults->hasStoredValue(Settings::SelectedCSSStyle));
        QCOMPARE(m_reloads, 1);
    }

    void selectingARowStoresAndAnnouncesIt()
    {
        writeStyles();
        m_defaults->setValue(Settings::SelectedCSSStyle, QString("White.css"));
        CSSStykeController panel(*m_defaults);
        QCOMPARE(panel.cssStyleTable()->currentItem()->text(), QString("White.css"));
        const int night = panel.displayItems().indexOf(QString("Night.css"));
        m_reloads = 0;
        panel.cssStyleTable()->setCurrentRow(night);
        QCOMPARE(chosen(), QString("Night.css"));
        QCOMPARE(m_reloads, 1);
        // Reloading keeps the choice.
        panel.loadItems();
        QCOMPARE(panel.cssStyleTable()->currentRow(), night);
        QCOMPARE(chosen(), QString("Night.css"));
    }

    void removingTheChosenStyleFallsBackToTheFirst()
    {
        writeStyles();
        m_defaults->setValue(Settings::SelectedCSSStyle, QString("Night.css"));
        CSSStykeController panel(*m_defaults);
        m_reloads = 0;
        panel.removeCSSStyle();
        QVERIFY(!QFile::exists(styleFile("Night.css")));
        QCOMPARE(panel.numberOfRowsInTableView(), int(kStyles.size()) - 1);
        QVERIFY(!panel.displayItems().contains(QString("Night.css")));
        QCOMPARE(panel.cssStyleTable()->currentRow(), 0);
        QCOMPARE(chosen(), panel.tableView(0));
        QCOMPARE(m_reloads, 1);
        // The file is recoverable from the trash.
        QDir trash(TestHome::instance()->path() + QString("/home/.local/share/Trash/files"));
        QVERIFY(trash.exists(QString("Night.css")));
    }

    void removingEverythingLeavesAnEmptyListThatStillWorks()
    {
        QDir().mkpath(AppPaths::cssStyleFolder());
        writeBytes(styleFile("Only.css"), "body{}");
        CSSStykeController panel(*m_defaults);
        QCOMPARE(chosen(), QString("Only.css"));
        QVERIFY(panel.findChildren<QToolButton *>().size() >= 2);
        panel.removeCSSStyle();
        QCOMPARE(panel.numberOfRowsInTableView(), 0);
        QCOMPARE(panel.cssStyleTable()->currentRow(), -1);
        // Nothing left to choose: the last choice stays stored, and removing again only beeps.
        QCOMPARE(chosen(), QString("Only.css"));
        panel.removeCSSStyle();
        panel.tableViewSelectionDidChange();
        QCOMPARE(panel.numberOfRowsInTableView(), 0);
    }

    void aMissingFolderIsAnEmptyListAndAddingCreatesIt()
    {
        QVERIFY(!QFileInfo::exists(AppPaths::cssStyleFolder()));
        CSSStykeController panel(*m_defaults);
        QCOMPARE(panel.numberOfRowsInTableView(), 0);
        QCOMPARE(chosen(), QString("Standard.css"));
        QVERIFY(!m_defaults->hasStoredValue(Settings::SelectedCSSStyle));

        QTemporaryDir elsewhere;
        const QString mine = elsewhere.filePath(QString("Mine.css"));
        writeBytes(mine, "body{color:#333}");
        panel.copyStylesIntoFolder({mine});
        QCOMPARE(panel.displayItems(), QStringList{QString("Mine.css")});
        QCOMPARE(chosen(), QString("Mine.css"));
    }

    void addingKeepsAnExistingStyleOfTheSameName()
    {
        writeStyles();
        const QString standard = styleFile("Standard.css");
        const QByteArray ours = readBytes(standard);
        CSSStykeController panel(*m_defaults);

        QTemporaryDir elsewhere;
        writeBytes(elsewhere.filePath(QString("Standard.css")), "body{color:red}");
        writeBytes(elsewhere.filePath(QString("Paper.css")), "body{background:#fffdf5}");
        writeBytes(elsewhere.filePath(QString("notes.txt")), "not a style");
        panel.copyStylesIntoFolder(
            {elsewhere.filePath(QString("Standard.css")), elsewhere.filePath(QString("Paper.css")),
             elsewhere.filePath(QString("notes.txt")), elsewhere.filePath(QString("missing.css"))});
        QCOMPARE(readBytes(standard), ours);
        QCOMPARE(readBytes(styleFile("Paper.css")), QByteArray("body{background:#fffdf5}"));
        QVERIFY(!QFile::exists(styleFile("notes.txt")));
        QCOMPARE(panel.numberOfRowsInTableView(), int(kStyles.size()) + 1);
        QCOMPARE(chosen(), QString("Standard.css"));
    }

    void addOpensASheetForStyleSheetsOnly()
    {
        writeStyles();
        CSSStykeController panel(*m_defaults);
        panel.showCSSStyleSelectorHudPanel();
        QVERIFY(QTest::qWaitForWindowExposed(&panel));
        panel.addNewCSSStyle();
        QFileDialog *dialog = panel.openFileDialog();
        QVERIFY(dialog);
        QCOMPARE(dialog->windowModality(), Qt::WindowModal);
        QCOMPARE(dialog->fileMode(), QFileDialog::ExistingFiles);
        QVERIFY(dialog->nameFilters().join(QString()).contains(QString("*.css")));
        // A second click brings the open sheet forward rather than stacking another.
        panel.addNewCSSStyle();
        QCOMPARE(panel.findChildren<QFileDialog *>().size(), 1);

        QTemporaryDir elsewhere;
        writeBytes(elsewhere.filePath(QString("Chosen.css")), "h1{}");
        dialog->setDirectory(elsewhere.path());
        dialog->selectFile(elsewhere.filePath(QString("Chosen.css")));
        QMetaObject::invokeMethod(dialog, "accept");
        QVERIFY(panel.displayItems().contains(QString("Chosen.css")));
    }

    void changesMadeOutsideShowAtOnce()
    {
        writeStyles();
        CSSStykeController panel(*m_defaults);
        m_reloads = 0;
        // A style dropped into the folder by hand joins the list.
        writeBytes(styleFile("Handmade.css"), "body{}");
        QTRY_VERIFY(panel.displayItems().contains(QString("Handmade.css")));
        QCOMPARE(chosen(), QString("Standard.css"));
        QTRY_COMPARE(m_reloads, 1);

        // Editing the chosen style in a text editor restyles the preview, also when the
        // editor saves by replacing the file.
        m_reloads = 0;
        const QString standard = styleFile("Standard.css");
        QFile file(standard);
        QVERIFY(file.open(QIODevice::Append));
        file.write("\nh1{color:teal}");
        file.close();
        QTRY_COMPARE(m_reloads, 1);
        m_reloads = 0;
        writeBytes(standard + QString(".tmp"), "body{}");
        QVERIFY(QFile::remove(standard));
        QVERIFY(QFile::rename(standard + QString(".tmp"), standard));
        QTRY_COMPARE(m_reloads, 1);
        QFile again(standard);
        QVERIFY(again.open(QIODevice::Append));
        again.write("\np{}");
        again.close();
        QTRY_COMPARE(m_reloads, 2);
        QCOMPARE(panel.numberOfRowsInTableView(), int(kStyles.size()) + 1);
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

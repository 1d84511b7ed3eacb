#include "ExportFixture.h"
#include "core/AppPaths.h"
#include "core/Settings.h"
#include "core/UserDefaults.h"
#include "export/widgets/ExportBookDetails.h"
#include "export/widgets/ExportController.h"
#include "export/widgets/ExportProgressSheet.h"
#include "export/widgets/ExportRunner.h"
#include "support/TestHome.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QProcess>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

namespace {

QString run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(60000);
    return QString::fromUtf8(process.readAllStandardOutput());
}

} // namespace

class TestExportWindow : public QObject
{
    Q_OBJECT
private:
    ExportFixture m_fixture;
    QTemporaryDir m_settings;
    std::unique_ptr<UserDefaults> m_defaults;

    ExportController *makeWindow()
    {
        auto *window = new ExportController(*m_defaults, nullptr);
        window->show();
        return window;
    }

    ExportReport exportTo(ExportController *window, const QString &folder)
    {
        QSignalSpy done(window, &ExportController::exportFinished);
        window->performExportWithURL(folder);
        if (!done.wait(240000))
            return {};
        return done.first().first().value<ExportReport>();
    }

private Q_SLOTS:
    void initTestCase()
    {
        qRegisterMetaType<ExportReport>();
        m_defaults = std::make_unique<UserDefaults>(m_settings.filePath(QStringLiteral("v.conf")));
        QVariantMap other, trip;
        other.insert(QStringLiteral("DiaryName"), QStringLiteral("Other"));
        other.insert(QStringLiteral("DiaryDocumentPath"), m_settings.path());
        trip.insert(QStringLiteral("DiaryName"), QStringLiteral("Reise"));
        trip.insert(QStringLiteral("DiaryDocumentPath"),
                    QString(m_fixture.notebook.path() + QLatin1Char('/')));
        m_defaults->setValue(Settings::DiarySaveDestinations, RecordList{other, trip});
        m_defaults->setValue(Settings::TypographyUseMarkupLanguage, 1);
        m_defaults->setValue(Settings::DefaultFileExtensionForEntries, QStringLiteral("txt"));
        for (const char *name : {"Erster.txt", "Zweiter.txt", "Dritter.txt"})
            m_fixture.addEntry(QString::fromLatin1(name),
                               QStringLiteral("Text of ") + QString::fromLatin1(name));
        m_fixture.addEntry(QStringLiteral("not an entry.md"), QStringLiteral("x"));
        m_fixture.addEntry(QStringLiteral("Bild.txt"), QStringLiteral("Sonne\n\n![s](sun.png)\n"));
        m_fixture.addImage(QStringLiteral("Bild"), QStringLiteral("sun.png"), Qt::yellow);
    }

    // The list holds the chosen notebook's entries only; removing and reordering rows
    // decides what the export writes, and in which order.
    void listOrderDecidesExportOrder()
    {
        std::unique_ptr<ExportController> window(makeWindow());
        window->selectNotebookFolder(m_fixture.notebook.path());
        QStringList listed = window->listOfFiles();
        listed.sort();
        QCOMPARE(listed,
                 QStringList({QStringLiteral("Bild.txt"), QStringLiteral("Dritter.txt"),
                              QStringLiteral("Erster.txt"), QStringLiteral("Zweiter.txt")}));
        auto *list = window->findChild<QListWidget *>(QStringLiteral("listOfFiles"));
        list->clear();
        list->addItems({QStringLiteral("Zweiter.txt"), QStringLiteral("Erster.txt"),
                        QStringLiteral("Bild.txt"), QStringLiteral("Dritter.txt")});
        // Dragging a row down moves it in the list the export reads.
        QVERIFY(list->model()->moveRow(QModelIndex(), 0, QModelIndex(), 4));
        list->setCurrentRow(1);
        list->currentItem()->setSelected(true);
        window->removeSelectedFile();
        QCOMPARE(window->listOfFiles(),
                 QStringList({QStringLiteral("Erster.txt"), QStringLiteral("Dritter.txt"),
                              QStringLiteral("Zweiter.txt")}));

        auto *format = window->findChild<QComboBox *>(QStringLiteral("exportFormatSelection"));
        format->setCurrentIndex(format->findData(4));
        window->findChild<QAbstractButton *>(QStringLiteral("oneFile"))->click();
        window->findChild<QAbstractButton *>(QStringLiteral("useDateAsHeader"))->click();
        QTemporaryDir out;
        const ExportReport report = exportTo(window.get(), out.path());
        QCOMPARE(report.exported, 3);
        QVERIFY(window->progressSheet()->summary().contains(QLatin1String("3")));
        const QString html =
            QString::fromUtf8(readBytes(out.filePath(QStringLiteral("Export.html"))));
        const qsizetype first = html.indexOf(QLatin1String("<strong>Erster</strong>"));
        const qsizetype second = html.indexOf(QLatin1String("<strong>Dritter</strong>"));
        const qsizetype third = html.indexOf(QLatin1String("<strong>Zweiter</strong>"));
        QVERIFY2(first >= 0 && first < second && second < third, qPrintable(html));
        for (const char *working : {"temp", "product", "temporaryFolder", "temp.epub"})
            QVERIFY(!QFileInfo::exists(AppPaths::supportFolder() + QLatin1Char('/') + working));
    }

    // Choosing EPUB joins, locks the one-or-many choice and opens the book details; choosing
    // a format again closes them.
    void epubChoiceShowsDetails()
    {
        std::unique_ptr<ExportController> window(makeWindow());
        auto *format = window->findChild<QComboBox *>(QStringLiteral("exportFormatSelection"));
        auto *many = window->findChild<QAbstractButton *>(QStringLiteral("multipleFiles"));
        QVERIFY(many->isChecked() && many->isEnabled());
        format->setCurrentIndex(format->findData(6));
        Q_EMIT format->activated(format->currentIndex());
        QVERIFY(window->bookDetails()->isVisible());
        QVERIFY(!many->isEnabled());
        QVERIFY(window->findChild<QAbstractButton *>(QStringLiteral("oneFile"))->isChecked());
        QCOMPARE(
            window->findChild<QLabel *>(QStringLiteral("oneFileExportFileNameExtension"))->text(),
            QStringLiteral(".epub"));
        format->setCurrentIndex(format->findData(5));
        Q_EMIT format->activated(format->currentIndex());
        QVERIFY(!window->bookDetails()->isVisible());
        QVERIFY(many->isEnabled());
    }

    // Cancelling while LibreOffice converts stops it and everything it started, writes
    // nothing to the destination and leaves no working files.
    void cancelStopsConversion()
    {
        if (!QFileInfo(QStringLiteral("/usr/bin/soffice")).isExecutable())
            QSKIP("LibreOffice is not installed (Debian package libreoffice-writer-nogui)");
        std::unique_ptr<ExportController> window(makeWindow());
        window->selectNotebookFolder(m_fixture.notebook.path());
        auto *format = window->findChild<QComboBox *>(QStringLiteral("exportFormatSelection"));
        format->setCurrentIndex(format->findData(1));
        window->findChild<QComboBox *>(QStringLiteral("markupExportSelection"))->setCurrentIndex(0);
        QTemporaryDir out;
        QSignalSpy done(window.get(), &ExportController::exportFinished);
        bool cancelled = false;
        int reports = 0;
        connect(window->runner(), &ExportRunner::progress, this,
                [&](int, int, const QString &what) {
                    // The office is running once its progress is reported after the start.
                    if (!cancelled && what == qtTrId("EXPORT_STEP_OFFICE") && ++reports == 2) {
                        cancelled = true;
                        window->progressSheet()->cancelButton()->click();
                    }
                });
        window->performExportWithURL(out.path());
        QVERIFY(done.wait(240000));
        QVERIFY(cancelled);
        QVERIFY(done.first().first().value<ExportReport>().cancelled);
        QVERIFY(filesIn(out.path()).isEmpty());
        const QString profile = AppPaths::supportFolder() + QStringLiteral("/temp");
        QVERIFY(!QFileInfo::exists(profile));
        QCOMPARE(run(QStringLiteral("pgrep"), {QStringLiteral("-f"), profile}), QString());
    }

    // PDFs come from the styled, converted page, pictures included.
    void pdfHasTextAndPicture()
    {
        std::unique_ptr<ExportController> window(makeWindow());
        window->selectNotebookFolder(m_fixture.notebook.path());
        auto *list = window->findChild<QListWidget *>(QStringLiteral("listOfFiles"));
        list->clear();
        list->addItems({QStringLiteral("Bild.txt"), QStringLiteral("Erster.txt")});
        auto *format = window->findChild<QComboBox *>(QStringLiteral("exportFormatSelection"));
        format->setCurrentIndex(format->findData(5));
        QTemporaryDir out;
        const ExportReport report = exportTo(window.get(), out.path());
        QVERIFY2(report.failures.isEmpty(), qPrintable(report.summary()));
        QCOMPARE(filesIn(out.path()),
                 QStringList({QStringLiteral("Bild.pdf"), QStringLiteral("Erster.pdf")}));
        QVERIFY(run(QStringLiteral("pdftotext"),
                    {out.filePath(QStringLiteral("Bild.pdf")), QStringLiteral("-")})
                    .contains(QLatin1String("Sonne")));
        const QString images =
            run(QStringLiteral("pdfimages"),
                {QStringLiteral("-list"), out.filePath(QStringLiteral("Bild.pdf"))});
        QVERIFY2(images.split(QLatin1Char('\n'), Qt::SkipEmptyParts).size() >= 3,
                 qPrintable(images));
    }
};

VELLOX_TEST_MAIN(TestExportWindow)
#include "tst_exportwindow.moc"

#include "core/UserDefaults.h"
#include "editor/widgets/EnhancedTextView.h"
#include "library/widgets/EntryPrinter.h"
#include "library/widgets/SideFileEditor.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"

#include <QPointer>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

namespace {
QString run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(30000);
    return QString::fromUtf8(process.readAllStandardOutput());
}

// Every word's left and right edge on the page, in points, as pdftotext measures them.
QList<QPair<double, double>> wordEdges(const QString &pdf)
{
    QList<QPair<double, double>> edges;
    static const QRegularExpression word(
        QStringLiteral("<word xMin=\"([0-9.]+)\" yMin=\"[0-9.]+\" xMax=\"([0-9.]+)\""));
    auto it = word.globalMatch(run(QStringLiteral("pdftotext"), {"-bbox", pdf, "-"}));
    while (it.hasNext()) {
        const QRegularExpressionMatch m = it.next();
        edges << qMakePair(m.captured(1).toDouble(), m.captured(2).toDouble());
    }
    return edges;
}

bool printToPdf(const QString &text, const QString &pdf)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(pdf);
    printer.setPageSize(QPageSize(QPageSize::A4));
    EntryPrinter::setUpPage(printer);
    return EntryPrinter::print(text, EntryPrinter::styleFrom(UserDefaults::standard()), printer);
}
} // namespace

class TestPrintAndSideEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { TestHome::instance()->reset(); }

    void printsTheTextFittedBetweenMarginsOf72Points()
    {
        QTemporaryDir dir;
        const QString pdf = dir.filePath(QStringLiteral("entry.pdf"));
        QString text = QStringLiteral("Dear diary\n");
        for (int i = 0; i < 60; ++i)
            text += QStringLiteral("walking ");
        QVERIFY(printToPdf(text, pdf));
        QVERIFY(
            run(QStringLiteral("pdftotext"), {pdf, "-"}).contains(QStringLiteral("Dear diary")));
        const auto edges = wordEdges(pdf);
        QVERIFY(edges.size() > 60);
        const double a4Width = 595.0;
        double left = 1e9, right = 0;
        for (const auto &edge : edges) {
            left = qMin(left, edge.first);
            right = qMax(right, edge.second);
        }
        QVERIFY2(qAbs(left - 72) < 2, qPrintable(QString::number(left)));
        // The long line wraps inside the right margin, and uses most of the width.
        QVERIFY2(right <= a4Width - 72 + 1 && right > a4Width - 72 - 80,
                 qPrintable(QString::number(right)));

        const QString empty = dir.filePath(QStringLiteral("empty.pdf"));
        QVERIFY(printToPdf(QString(), empty));
        QVERIFY(
            run(QStringLiteral("pdfinfo"), {empty}).contains(QRegularExpression("Pages:\\s+1\\n")));
    }

    void sideEditorWritesBackInTheFilesOwnEncoding()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("Café.txt"));
        writeBytes(path, "caf\xe9\r\nline two\r\n");
        QPointer<SideFileEditor> editor = new SideFileEditor(UserDefaults::standard());
        editor->loadFrameWithContentsOfPath(path, QStringLiteral("Café.txt"));
        QCOMPARE(editor->windowTitle(), QStringLiteral("MINI-EDITOR: Café.txt"));
        QCOMPARE(editor->textView()->string(), QStringLiteral("café\nline two\n"));
        editor->textView()->setSelectedRange(0, 0);
        editor->textView()->insertUserText(QStringLiteral("Ø "));
        QSignalSpy saved(editor.data(), &SideFileEditor::saved);
        QVERIFY(editor->close());
        QCOMPARE(saved.size(), 1);
        QCOMPARE(readBytes(path), QByteArray("\xd8 caf\xe9\r\nline two\r\n"));
        QTRY_VERIFY(editor.isNull());
    }

    void twoSideEditorsOnOneFileNeverWriteOverEachOther()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("Day.txt"));
        writeBytes(path, "start");
        SideFileEditor first(UserDefaults::standard()), second(UserDefaults::standard());
        first.setAttribute(Qt::WA_DeleteOnClose, false);
        second.setAttribute(Qt::WA_DeleteOnClose, false);
        first.loadFrameWithContentsOfPath(path, QStringLiteral("Day.txt"));
        second.loadFrameWithContentsOfPath(path, QStringLiteral("Day.txt"));

        first.textView()->setSelectedRange(5, 0);
        first.textView()->insertUserText(QStringLiteral(" one"));
        QVERIFY(first.saveChanges());
        second.reread();
        QCOMPARE(second.textView()->string(), QStringLiteral("start one"));

        // Words typed in the second before it saw the first's save are kept, not saved over.
        second.textView()->setSelectedRange(0, 0);
        second.textView()->insertUserText(QStringLiteral("two "));
        first.textView()->insertUserText(QStringLiteral(" more"));
        QVERIFY(first.saveChanges());
        QVERIFY(!second.saveChanges());
        QVERIFY(!second.problem().isEmpty());
        QCOMPARE(readBytes(path), QByteArray("start one more"));
        QCOMPARE(second.textView()->string(), QStringLiteral("two start one"));
    }

    void unreadableFileOpensReadOnlyAndIsNeverWritten()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("text.markdown"));
        QVERIFY(QDir().mkpath(path)); // a folder where the text file should be
        SideFileEditor editor(UserDefaults::standard());
        editor.setAttribute(Qt::WA_DeleteOnClose, false);
        editor.loadFrameWithContentsOfPath(path, QStringLiteral("Trip.textbundle"));
        QVERIFY(editor.isReadOnly());
        QVERIFY(!editor.problem().isEmpty());
        QVERIFY(!editor.textView()->isEditable());
        QVERIFY(!editor.saveChanges());
        QVERIFY(QFileInfo(path).isDir());
    }
};

VELLOX_TEST_MAIN(TestPrintAndSideEditor)
#include "tst_printandsideeditor.moc"

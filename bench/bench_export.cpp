// Export of a 500-entry notebook of 2 KB Markdown entries, through the real converters,
// tidy, zip and LibreOffice: joined into one HTML file (goal under 5 s), as one EPUB book
// (goal under 10 s) and as 500 Word files in one LibreOffice call (goal under 30 s). For the
// Word files LibreOffice's own time for the same 500 pages is measured beside ours.
// Usage: bench_export [entries]

#include "core/Localisation.h"
#include "export/ChildProcess.h"
#include "export/ExportJob.h"
#include "export/HtmlDocument.h"
#include "export/LibreOfficeConverter.h"
#include "render/TaskController.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QTextStream>

namespace {

QString entryText(int number)
{
    const QString passage = QStringLiteral(
        "The morning was *quiet* and I walked down to the **harbour** where the boats were "
        "still tied up. [Notes](http://example.org) from yesterday.\n\n- bread\n- coffee\n\n");
    QString text = QStringLiteral("## Day %1\n\n").arg(number);
    while (text.size() < 2048)
        text += passage;
    return text;
}

// The run's time, and how long each of its steps took ("Copying entries 0.41 s, ...").
double timeExport(const ExportOptions &options, ExportReport *report, QString *steps)
{
    QElapsedTimer timer;
    timer.start();
    CancelFlag cancel;
    ExportJob job(options, cancel);
    QString step;
    qint64 stepStart = 0;
    QStringList lines;
    auto endStep = [&] {
        if (!step.isEmpty())
            lines << QStringLiteral("%1 %2 s").arg(step).arg((timer.elapsed() - stepStart) / 1000.0,
                                                             0, 'f', 2);
    };
    QObject::connect(&job, &ExportJob::progress, [&](int, int, const QString &what) {
        if (what == step)
            return;
        endStep();
        step = what;
        stepStart = timer.elapsed();
    });
    job.prepare();
    endStep();
    step = QStringLiteral("Finishing");
    stepStart = timer.elapsed();
    job.finish();
    endStep();
    *report = job.report();
    *steps = lines.join(QStringLiteral(", "));
    return timer.elapsed() / 1000.0;
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication app(argc, argv);
    Localisation::install(&app);
    const int count = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 500;
    QTextStream out(stdout);
    QTemporaryDir notebook, support, destination;
    QStringList names;
    for (int i = 0; i < count; ++i) {
        names << QStringLiteral("Entry %1.txt").arg(i, 3, 10, QLatin1Char('0'));
        QFile file(notebook.filePath(names.last()));
        if (file.open(QIODevice::WriteOnly))
            file.write(entryText(i).toUtf8());
    }
    ExportOptions options;
    options.notebookFolder = notebook.path();
    options.notebookName = QStringLiteral("Bench");
    options.files = names;
    options.markup = 1;
    options.destination = destination.path();
    options.supportFolder = support.path();

    ExportReport report;
    QString steps;
    options.format = int(ExportFormat::Html);
    options.joined = true;
    out << QStringLiteral("joined HTML, %1 entries: %2 s (goal < 5 s), %3\n  %4\n")
               .arg(count)
               .arg(timeExport(options, &report, &steps), 0, 'f', 2)
               .arg(report.summary(), steps);
    out.flush();

    options.format = int(ExportFormat::Epub);
    out << QStringLiteral("EPUB, %1 chapters: %2 s (goal < 10 s), %3\n  %4\n")
               .arg(count)
               .arg(timeExport(options, &report, &steps), 0, 'f', 2)
               .arg(report.summary(), steps);
    out.flush();

    options.format = int(ExportFormat::Word);
    options.joined = false;
    out << QStringLiteral("Word, %1 files: %2 s (goal < 30 s), %3\n  %4\n")
               .arg(count)
               .arg(timeExport(options, &report, &steps), 0, 'f', 2)
               .arg(report.summary(), steps);
    out.flush();

    // LibreOffice alone, in one call on a new profile as ours, on the pages our export hands
    // it: the same conversion of the same Markdown into the same document.
    QTemporaryDir pages, converted, profile;
    QStringList inputs;
    TaskController controller;
    for (int i = 0; i < count; ++i) {
        const QString base = QFileInfo(names[i]).completeBaseName();
        inputs << pages.filePath(base + QStringLiteral(".html"));
        QFile file(inputs.last());
        if (file.open(QIODevice::WriteOnly))
            file.write(HtmlDocument::document(base, controller.convert(1, entryText(i))).toUtf8());
    }
    QElapsedTimer timer;
    timer.start();
    CancelFlag cancel;
    const QStringList failed =
        LibreOfficeConverter(profile.path())
            .convert(inputs, QStringLiteral("doc"), converted.path(), cancel);
    out << QStringLiteral("LibreOffice alone, %1 pages to Word: %2 s (%3 failed)\n")
               .arg(count)
               .arg(timer.elapsed() / 1000.0, 0, 'f', 2)
               .arg(failed.size());
    return 0;
}

#pragma once

#include "export/ChildProcess.h"
#include "export/ExportJob.h"
#include "export/ExportOptions.h"
#include "support/TestHelpers.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

// A notebook folder on disk with entries and attachments, and a destination to export to.
struct ExportFixture
{
    QTemporaryDir notebook;
    QTemporaryDir destination;
    QTemporaryDir support;

    void addEntry(const QString &fileName, const QString &text)
    {
        writeBytes(notebook.filePath(fileName), text.toUtf8());
    }

    // A small picture in an entry's attachment folder; its colour tells pictures apart.
    void addImage(const QString &entryBase, const QString &imageName, Qt::GlobalColor colour,
                  const char *format = "PNG")
    {
        QDir().mkpath(notebook.filePath(entryBase));
        QImage image(40, 30, QImage::Format_RGB32);
        image.fill(colour);
        image.save(notebook.filePath(entryBase + QLatin1Char('/') + imageName), format);
    }

    ExportOptions options(int format, int markup, const QStringList &files) const
    {
        ExportOptions o;
        o.notebookFolder = notebook.path() + QLatin1Char('/');
        o.notebookName = QStringLiteral("Reisetagebuch");
        o.files = files;
        o.format = format;
        o.markup = markup;
        o.destination = destination.path();
        o.supportFolder = support.path();
        return o;
    }

    // Runs a whole export (no PDF) and returns its report.
    static ExportReport run(const ExportOptions &options, const CancelFlag &cancel = {})
    {
        ExportJob job(options, cancel);
        job.prepare();
        job.finish();
        return job.report();
    }

    // Nothing of the export's working files is left in the support folder.
    bool supportFolderClean() const { return filesIn(support.path()).isEmpty(); }
};

// epubcheck's verdict on a book: empty when it found nothing at all.
inline QString epubcheckProblems(const QString &book)
{
    QProcess check;
    check.setProcessChannelMode(QProcess::MergedChannels);
    check.start(QStringLiteral("java"),
                {QStringLiteral("-jar"), QStringLiteral("/usr/share/java/epubcheck.jar"), book});
    if (!check.waitForFinished(180000))
        return QStringLiteral("epubcheck did not finish");
    const QString output = QString::fromUtf8(check.readAll());
    if (check.exitCode() != 0 || output.contains(QLatin1String("WARNING")) ||
        output.contains(QLatin1String("ERROR")) ||
        !output.contains(QLatin1String("No errors or warnings detected")))
        return output;
    return QString();
}

// One member of a ZIP archive, as unzip prints it.
inline QByteArray zipMember(const QString &archive, const QString &member)
{
    QProcess unzip;
    unzip.start(QStringLiteral("unzip"), {QStringLiteral("-p"), archive, member});
    unzip.waitForFinished(30000);
    return unzip.readAllStandardOutput();
}

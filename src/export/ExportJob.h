#pragma once

#include "ChildProcess.h"
#include "ExportOptions.h"
#include "ExportStaging.h"
#include "ePubCreator.h"

#include <QObject>
#include <QStringList>
#include <QUrl>

#include <functional>

// What an export did, for the last line of the progress sheet.
struct ExportReport
{
    int total = 0;
    int exported = 0;
    // "name: why", one per entry or file that did not make it.
    QStringList failures;
    bool cancelled = false;
    // The files written into the destination folder.
    QStringList written;
    // "Exported 498 of 500; 2 failed: …" and the like.
    QString summary() const;
};

// A page the window prints to PDF (printing needs the web engine, which lives on the main
// thread): the document to load and where the PDF goes.
struct PdfPage
{
    QString html;
    QString output;
};

// One export run. prepare() does the heavy part and may run on a worker thread: it stages the
// entries, converts their markup and writes every output except PDFs into the product folder.
// The window then prints pdfPages() and calls finish(), which moves the outputs into the
// destination (nothing lands there before, so a cancelled export leaves nothing behind) and
// removes the working folders.
class ExportJob : public QObject
{
    Q_OBJECT
public:
    struct Tools
    {
        QString soffice = QStringLiteral("/usr/bin/soffice");
        ePubCreator::Tools epub;
        // Converts markup to HTML; a TaskController for the run when empty.
        ExportStaging::Converter converter;
    };

    ExportJob(const ExportOptions &options, const CancelFlag &cancel);
    ExportJob(const ExportOptions &options, const CancelFlag &cancel, const Tools &tools);
    ~ExportJob() override;

    void prepare();
    const QList<PdfPage> &pdfPages() const { return m_pdfPages; }
    void finish();
    // For the steps done outside the job (PDF printing).
    void addFailure(const QString &failure) { m_report.failures << failure; }
    // Removes every working file; finish() does it too.
    void cleanUp();

    const ExportReport &report() const { return m_report; }
    const ExportOptions &options() const { return m_options; }
    const ExportFolders &folders() const { return m_folders; }

Q_SIGNALS:
    // done of total steps; what: a short text of the step.
    void progress(int done, int total, const QString &what);

private:
    QString outputName(const QString &base) const;
    void writePlainText(const QStringList &bases);
    void writeHtml(const QStringList &bases);
    void writeWithLibreOffice(const QStringList &bases, const QString &extension);
    void writeRtfd(const QStringList &bases);
    void writePdfPages(const QStringList &bases);
    void writeEpub();
    QString stagedText(const QString &base) const;
    QString htmlDocument(const QString &base, bool inline_) const;
    int producedCount() const;

    ExportOptions m_options;
    CancelFlag m_cancel;
    Tools m_tools;
    ExportFolders m_folders;
    ExportStaging m_staging;
    ExportReport m_report;
    QList<PdfPage> m_pdfPages;
    QStringList m_expected;
};

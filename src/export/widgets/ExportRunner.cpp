#include "ExportRunner.h"

#include "PdfPrinter.h"

#include <QCoreApplication>
#include <QThread>

ExportRunner::ExportRunner(QObject *parent)
    : QObject(parent)
    , m_printer(new PdfPrinter(this))
{
    connect(m_printer, &PdfPrinter::progress, this, [this](int done, int total) {
        //% "Printing"
        Q_EMIT progress(done, total, qtTrId("EXPORT_STEP_PRINTING"));
    });
    connect(m_printer, &PdfPrinter::finished, this, [this](const QStringList &failures) {
        if (!m_job)
            return;
        for (const QString &name : failures)
            //% "%1: could not be printed"
            m_job->addFailure(qtTrId("EXPORT_FAILURE_PRINT").arg(name));
        complete();
    });
}

ExportRunner::~ExportRunner()
{
    if (m_thread) {
        m_cancel.raise();
        m_thread->wait();
    }
    if (m_job)
        m_job->cleanUp();
}

bool ExportRunner::start(const ExportOptions &options, const ExportJob::Tools &tools)
{
    if (m_job)
        return false;
    m_cancel = CancelFlag();
    m_job = std::make_unique<ExportJob>(options, m_cancel, tools);
    connect(m_job.get(), &ExportJob::progress, this, &ExportRunner::progress, Qt::QueuedConnection);
    ExportJob *job = m_job.get();
    m_thread = QThread::create([job] { job->prepare(); });
    connect(m_thread, &QThread::finished, this, &ExportRunner::prepared);
    m_thread->start();
    return true;
}

void ExportRunner::cancel()
{
    m_cancel.raise();
    if (m_job && !m_thread)
        m_printer->cancel();
}

void ExportRunner::prepared()
{
    m_thread->deleteLater();
    m_thread = nullptr;
    if (!m_cancel.isRaised() && !m_job->pdfPages().isEmpty()) {
        m_printer->print(m_job->pdfPages());
        return;
    }
    complete();
}

void ExportRunner::complete()
{
    if (!m_job)
        return;
    m_job->finish();
    const ExportReport report = m_job->report();
    m_job.reset();
    Q_EMIT finished(report);
}

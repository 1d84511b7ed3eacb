#pragma once

#include "export/ChildProcess.h"
#include "export/ExportJob.h"

#include <QObject>

#include <memory>

class PdfPrinter;
class QThread;

// Runs one export off the main thread: the job's heavy part in a thread of its own, the PDF
// printing (which needs the web engine) back on the main thread, then the move of the
// outputs into the destination. Cancelling stops the child processes and the printing and
// leaves nothing behind.
class ExportRunner : public QObject
{
    Q_OBJECT
public:
    explicit ExportRunner(QObject *parent = nullptr);
    ~ExportRunner() override;

    // False when an export is still running.
    bool start(const ExportOptions &options, const ExportJob::Tools &tools = {});
    void cancel();
    bool isRunning() const { return m_job != nullptr; }

Q_SIGNALS:
    void progress(int done, int total, const QString &what);
    void finished(const ExportReport &report);

private:
    void prepared();
    void complete();

    CancelFlag m_cancel;
    std::unique_ptr<ExportJob> m_job;
    QThread *m_thread = nullptr;
    PdfPrinter *m_printer = nullptr;
};

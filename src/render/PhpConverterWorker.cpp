#include "PhpConverterWorker.h"

#include <sys/resource.h>

#include "PhpCompileCache.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QLoggingCategory>
#include <QProcess>
#include <QThread>

Q_DECLARE_LOGGING_CATEGORY(lcConversion)

namespace {

// A reply header is "<status> <byte count>\n"; anything longer is not one.
constexpr qsizetype kLongestHeader = 32;
// How long a wait for output may go without asking whether the text is still wanted.
constexpr int kCancelPollMs = 40;

} // namespace

PhpConverterWorker::PhpConverterWorker(QObject *parent)
    : QObject(parent)
{}

PhpConverterWorker::~PhpConverterWorker()
{
    stop();
}

PhpConverterWorker *PhpConverterWorker::instance()
{
    QCoreApplication *application = QCoreApplication::instance();
    if (!application)
        return nullptr;
    // A QProcess belongs to the thread that started it, so every thread gets its own.
    thread_local QPointer<PhpConverterWorker> worker;
    if (worker)
        return worker;
    QThread *thread = QThread::currentThread();
    if (thread == application->thread()) {
        worker = new PhpConverterWorker(application);
    } else {
        worker = new PhpConverterWorker(nullptr);
        // Deleted on its own thread as that thread winds down, which stops the process.
        QObject::connect(thread, &QThread::finished, worker.data(), &QObject::deleteLater,
                         Qt::DirectConnection);
    }
    return worker;
}

qint64 PhpConverterWorker::processId() const
{
    return m_process && m_process->state() == QProcess::Running ? m_process->processId() : 0;
}

void PhpConverterWorker::stop()
{
    if (!m_process)
        return;
    QProcess *process = m_process;
    m_process = nullptr;
    m_conversions = 0;
    if (process->state() != QProcess::NotRunning) {
        // The end of its input is the worker's signal to finish; a stuck one is killed.
        process->closeWriteChannel();
        if (!process->waitForFinished(500)) {
            process->kill();
            process->waitForFinished(1000);
        }
    }
    delete process;
}

void PhpConverterWorker::fail(const QString &problem)
{
    qCWarning(lcConversion,
              "Conversion: the PHP converter worker %s; converting this text on its own",
              qPrintable(problem));
    if (m_process && m_process->state() != QProcess::NotRunning) {
        m_process->kill();
        m_process->waitForFinished(1000);
    }
    stop();
}

bool PhpConverterWorker::ensureStarted(const QString &php, const QString &script, int timeoutMs)
{
    if (m_process && (m_process->state() != QProcess::Running || m_php != php ||
                      m_script != script || m_conversions >= kConversionsPerProcess))
        stop();
    if (m_process)
        return true;

    m_process = new QProcess(this);
    m_php = php;
    m_script = script;
    // The converters' complaints belong in the same log as ours.
    m_process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process->setProcessEnvironment(PhpCompileCache::environment());
    // Converting runs beside the window and the preview's page; on a machine with few cores
    // it should give way to them, so what is on screen keeps coming first.
    m_process->setChildProcessModifier([] { (void)::setpriority(PRIO_PROCESS, 0, 5); });
    // A process that lives this long pays for the compiler's shared memory and its JIT, which
    // roughly halves the time the Markdown parser needs for a long entry.
    m_process->start(php, {QStringLiteral("-d"), QStringLiteral("opcache.enable_cli=1"),
                           QStringLiteral("-d"), QStringLiteral("opcache.file_cache_only=0"),
                           QStringLiteral("-d"), QStringLiteral("opcache.memory_consumption=32"),
                           QStringLiteral("-d"), QStringLiteral("opcache.jit_buffer_size=32M"),
                           QStringLiteral("-d"), QStringLiteral("opcache.jit=tracing"), script});
    if (!m_process->waitForStarted(timeoutMs)) {
        fail(QStringLiteral("cannot be started: ") + m_process->errorString());
        return false;
    }
    return true;
}

bool PhpConverterWorker::convert(const QString &php, const QString &script, const QString &keyWord,
                                 const QByteArray &text, int timeoutMs, Reply *reply,
                                 const Cancelled &cancelled)
{
    if (!ensureStarted(php, script, timeoutMs))
        return false;
    ++m_conversions;
    const QByteArray header = keyWord.toUtf8() + ' ' + QByteArray::number(text.size()) + '\n';
    if (m_process->write(header) != header.size() || m_process->write(text) != text.size()) {
        fail(QStringLiteral("cannot be given the text"));
        return false;
    }
    QString problem;
    if (!readReply(timeoutMs, cancelled, reply, &problem)) {
        if (problem.isEmpty()) {
            m_process->kill();
            m_process->waitForFinished(1000);
            stop();
        } else {
            fail(problem);
        }
        return false;
    }
    return true;
}

bool PhpConverterWorker::readReply(int timeoutMs, const Cancelled &cancelled, Reply *reply,
                                   QString *problem)
{
    const QDeadlineTimer deadline(timeoutMs);
    QByteArray buffer;
    qsizetype bodyStart = -1;
    qsizetype length = 0;
    while (true) {
        // Waiting for output also feeds whatever of the request is still unwritten.
        buffer += m_process->readAllStandardOutput();
        if (bodyStart < 0) {
            const qsizetype end = buffer.indexOf('\n');
            if (end < 0 && buffer.size() > kLongestHeader) {
                *problem = QStringLiteral("answered something that is not a reply");
                return false;
            }
            if (end >= 0) {
                const QList<QByteArray> fields = buffer.left(end).split(' ');
                bool statusOk = false;
                bool lengthOk = false;
                if (fields.size() == 2) {
                    reply->status = fields[0].toInt(&statusOk);
                    length = fields[1].toLongLong(&lengthOk);
                }
                if (!statusOk || !lengthOk || length < 0) {
                    *problem = QStringLiteral("answered something that is not a reply");
                    return false;
                }
                bodyStart = end + 1;
            }
        }
        if (bodyStart >= 0 && buffer.size() - bodyStart >= length) {
            if (buffer.size() - bodyStart > length) {
                *problem = QStringLiteral("answered more than it announced");
                return false;
            }
            reply->html = buffer.mid(bodyStart);
            return true;
        }
        if (m_process->state() != QProcess::Running) {
            *problem = QStringLiteral("stopped before answering");
            return false;
        }
        // An empty problem tells the caller nobody wants this reply any more.
        if (cancelled && cancelled())
            return false;
        const int slice = cancelled ? qMin<qint64>(deadline.remainingTime(), kCancelPollMs)
                                    : deadline.remainingTime();
        if (!deadline.hasExpired() && m_process->waitForReadyRead(slice))
            continue;
        if (m_process->bytesAvailable() > 0 || m_process->state() != QProcess::Running)
            continue;
        if (deadline.hasExpired()) {
            *problem = QStringLiteral("did not answer within %1 ms").arg(timeoutMs);
            return false;
        }
        // Waiting ended early without output from a running worker.
        if (m_process->error() == QProcess::WriteError) {
            *problem = QStringLiteral("stopped reading");
            return false;
        }
    }
}

#pragma once

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>

class QProcess;

// The one long-lived PHP process of the application that converts text in the languages done
// in PHP (resources/converters/worker.php). Started on the first request, it saves PHP's
// start and the converters' set-up on every later one. Each thread that converts has its own
// (the preview converts on a thread of its own, the export on the main thread). A request is
// written and its reply read in the same wait, so large texts cannot block.
// Whatever goes wrong, the process is stopped, one line is logged and the caller is told to
// convert another way; the next request starts a fresh process.
class PhpConverterWorker : public QObject
{
    Q_OBJECT
public:
    // A process is replaced after this many conversions, so it cannot grow for ever.
    static constexpr int kConversionsPerProcess = 500;

    struct Reply
    {
        QByteArray html;
        // What the single-text filter would have exited with.
        int status = 0;
    };

    // Answers true while the caller still wants the text it asked for.
    using Cancelled = std::function<bool()>;

    // The calling thread's worker, made on first use and gone with the thread (or, on the
    // main thread, with the application); nullptr without an application object.
    static PhpConverterWorker *instance();

    // Converts with the worker script run by php. False when the worker could not answer in
    // time or at all, or when cancelled() turned true meanwhile (the process is then stopped,
    // since it is busy with text nobody wants).
    bool convert(const QString &php, const QString &script, const QString &keyWord,
                 const QByteArray &text, int timeoutMs, Reply *reply,
                 const Cancelled &cancelled = {});

    // The running process, or 0.
    qint64 processId() const;
    void stop();

    ~PhpConverterWorker() override;

private:
    explicit PhpConverterWorker(QObject *parent);
    bool ensureStarted(const QString &php, const QString &script, int timeoutMs);
    bool readReply(int timeoutMs, const Cancelled &cancelled, Reply *reply, QString *problem);
    void fail(const QString &problem);

    QProcess *m_process = nullptr;
    QString m_php;
    QString m_script;
    int m_conversions = 0;
};

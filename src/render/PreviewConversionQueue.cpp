#include "PreviewConversionQueue.h"

#include "TaskController.h"

#include <QThread>

#include <utility>

namespace {

// Off the main thread a slow converter blocks nobody, and a superseded one is stopped early,
// so a very large entry gets far longer than an export run would.
constexpr int kPreviewConversionTimeoutMs = 180000;

} // namespace

PreviewConversionQueue::PreviewConversionQueue(QObject *parent)
    : QObject(parent)
    , m_thread(new QThread(this))
    , m_threadContext(new QObject)
    , m_converter(externalConverter())
    , m_headConverter(externalHeadConverter())
    , m_newest(std::make_shared<std::atomic<quint64>>(0))
{
    m_thread->setObjectName(QStringLiteral("Preview conversion"));
    m_threadContext->moveToThread(m_thread);
    connect(m_thread, &QThread::finished, m_threadContext, &QObject::deleteLater);
    m_thread->start();
}

PreviewConversionQueue::~PreviewConversionQueue()
{
    // No request can match this number, so a running converter stops at its next look.
    m_newest->store(~quint64(0));
    m_thread->quit();
    m_thread->wait();
}

PreviewConversionQueue::Converter PreviewConversionQueue::externalConverter()
{
    return [](int language, const QString &text, const std::function<bool()> &superseded) {
        TaskController::Tools tools;
        tools.timeoutMs = kPreviewConversionTimeoutMs;
        tools.cancelled = superseded;
        return TaskController(tools).convert(language, text);
    };
}

PreviewConversionQueue::HeadConverter PreviewConversionQueue::externalHeadConverter()
{
    return [](int language, const QString &text, bool *whole,
              const std::function<bool()> &superseded) {
        TaskController::Tools tools;
        tools.timeoutMs = kPreviewConversionTimeoutMs;
        tools.cancelled = superseded;
        return TaskController(tools).convertHead(language, text, whole);
    };
}

void PreviewConversionQueue::setConverter(Converter converter, HeadConverter head)
{
    const bool external = !converter;
    m_converter = external ? externalConverter() : std::move(converter);
    m_headConverter = external && !head ? externalHeadConverter() : std::move(head);
}

quint64 PreviewConversionQueue::request(int language, const QString &text)
{
    const quint64 number = m_newest->load() + 1;
    m_newest->store(number);
    m_pending = {number, language, text};
    if (!m_running)
        startNext();
    return number;
}

void PreviewConversionQueue::cancel()
{
    m_newest->store(m_newest->load() + 1);
    m_pending = {};
}

void PreviewConversionQueue::startNext()
{
    if (!m_pending.number)
        return;
    const Pending job = std::exchange(m_pending, {});
    m_running = job.number;
    const Converter converter = m_converter;
    const HeadConverter headConverter =
        job.text.size() >= kHeadFirstChars ? m_headConverter : HeadConverter();
    const std::shared_ptr<std::atomic<quint64>> newest = m_newest;
    // The destructor waits for this thread, so the queue outlives every job; a reply still
    // posted when it goes is dropped with it.
    QMetaObject::invokeMethod(m_threadContext, [this, converter, headConverter, newest, job] {
        const std::function<bool()> superseded = [newest, number = job.number] {
            return newest->load() != number;
        };
        bool whole = false;
        QString head;
        if (headConverter && !superseded())
            head = headConverter(job.language, job.text, &whole, superseded);
        if (!head.isNull() && !whole && !superseded())
            QMetaObject::invokeMethod(
                this,
                [this, number = job.number, head] {
                    if (number == m_newest->load())
                        Q_EMIT headConverted(number, head);
                },
                Qt::QueuedConnection);
        // Nobody waits for a text that was replaced before its turn came.
        const QString html = superseded() ? QString()
                             : !head.isNull() && whole
                                 ? head
                                 : converter(job.language, job.text, superseded);
        QMetaObject::invokeMethod(
            this, [this, number = job.number, html] { finished(number, html); },
            Qt::QueuedConnection);
    });
}

void PreviewConversionQueue::finished(quint64 number, const QString &html)
{
    m_running = 0;
    if (number == m_newest->load())
        Q_EMIT converted(number, html);
    startNext();
}

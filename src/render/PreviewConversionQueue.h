#pragma once

#include <QObject>
#include <QString>

#include <atomic>
#include <functional>
#include <memory>

class QThread;

// Converts entry texts for the preview on a thread of its own, so the window never waits for a
// converter. Only the newest request matters: one asked for while another runs replaces the
// one waiting, the running one is told it is no longer wanted, and a result that arrives for
// anything but the newest request is dropped.
class PreviewConversionQueue : public QObject
{
    Q_OBJECT
public:
    // Runs on the conversion thread; superseded() turns true once the result is unwanted, and a
    // converter that can stop early should then return (what it returns is dropped).
    using Converter = std::function<QString(int language, const QString &text,
                                            const std::function<bool()> &superseded)>;

    // The HTML of a long text's first screens, which its whole HTML starts with; *whole set
    // when it is all of it. A null string when the language cannot convert a part.
    using HeadConverter = std::function<QString(int language, const QString &text, bool *whole,
                                                const std::function<bool()> &superseded)>;
    // Texts this long have their first screens converted, and shown, before the rest.
    static constexpr qsizetype kHeadFirstChars = 48 * 1024;

    explicit PreviewConversionQueue(QObject *parent = nullptr);
    // Stops a running conversion and waits for the thread.
    ~PreviewConversionQueue() override;

    // The external converters of the languages, through a fresh TaskController per text.
    static Converter externalConverter();
    static HeadConverter externalHeadConverter();
    // Takes effect from the next request on; a null head converter converts texts whole.
    void setConverter(Converter converter, HeadConverter head = {});

    // Asks for text in language to be converted; returns the request's number.
    quint64 request(int language, const QString &text);
    // Drops the waiting request and makes the running one's result unwanted.
    void cancel();

    quint64 newestRequest() const { return m_newest->load(); }
    // A conversion is running on the thread.
    bool isBusy() const { return m_running != 0; }

Q_SIGNALS:
    // The newest request is done. Never emitted for a superseded or cancelled request.
    void converted(quint64 request, const QString &html);
    // The first screens of the newest request's text, when it is long; converted() follows
    // with the whole HTML, which starts with this.
    void headConverted(quint64 request, const QString &html);

private:
    struct Pending
    {
        quint64 number = 0;
        int language = 0;
        QString text;
    };
    void startNext();
    void finished(quint64 number, const QString &html);

    QThread *m_thread = nullptr;
    QObject *m_threadContext = nullptr;
    Converter m_converter;
    HeadConverter m_headConverter;
    // Shared with the conversion thread, which may still ask after this queue is gone.
    std::shared_ptr<std::atomic<quint64>> m_newest;
    quint64 m_running = 0;
    Pending m_pending;
};

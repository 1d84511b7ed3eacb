#include "BackgroundDocumentLoad.h"

#include "SpacedTextLayout.h"

#include <QCoreApplication>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QTextDocument>
#include <QThread>
#include <QtConcurrent/QtConcurrentRun>

namespace {
// A build nobody wants any more is left to finish on its own, so leaving a long entry
// quickly never waits for it; its document goes when it is done.
void discardWhenBuilt(const QFuture<QTextDocument *> &future)
{
    auto *reaper = new QFutureWatcher<QTextDocument *>(QCoreApplication::instance());
    QObject::connect(reaper, &QFutureWatcher<QTextDocument *>::finished, reaper, [reaper] {
        if (reaper->future().resultCount() > 0)
            delete reaper->result();
        reaper->deleteLater();
    });
    reaper->setFuture(future);
}
} // namespace

BackgroundDocumentLoad::BackgroundDocumentLoad(QPlainTextEdit *view)
    : m_view(view)
{
    connect(&m_build, &QFutureWatcher<QTextDocument *>::finished, this, [this] {
        if (m_loading && m_build.isFinished())
            adopt();
    });
}

BackgroundDocumentLoad::~BackgroundDocumentLoad()
{
    cancel();
}

void BackgroundDocumentLoad::start(const QString &text)
{
    cancel();
    m_text = text;
    m_loading = true;
    QThread *home = thread();
    m_build.setFuture(QtConcurrent::run([text, home] {
        auto *document = new QTextDocument;
        document->setUndoRedoEnabled(false);
        document->setPlainText(text);
        document->moveToThread(home);
        return document;
    }));
}

void BackgroundDocumentLoad::cancel()
{
    if (!m_loading)
        return;
    m_loading = false;
    m_text.clear();
    const QFuture<QTextDocument *> future = m_build.future();
    m_build.setFuture(QFuture<QTextDocument *>());
    discardWhenBuilt(future);
}

void BackgroundDocumentLoad::finish()
{
    if (!m_loading)
        return;
    m_build.waitForFinished();
    adopt();
}

void BackgroundDocumentLoad::adopt()
{
    m_loading = false;
    QTextDocument *document = m_build.future().result();
    m_build.setFuture(QFuture<QTextDocument *>());
    QTextDocument *previous = m_view->document();

    // The look of the view's document carries over before the new one gets its layout, so
    // it is laid out once.
    document->setParent(previous->parent());
    document->setDefaultFont(previous->defaultFont());
    document->setDefaultTextOption(previous->defaultTextOption());
    document->setDocumentMargin(previous->documentMargin());
    document->setDefaultStyleSheet(previous->defaultStyleSheet());
    auto *layout = new SpacedTextLayout(document);
    if (auto *spaced = qobject_cast<SpacedTextLayout *>(previous->documentLayout()))
        layout->setSpacing(spaced->spacing());
    document->setDocumentLayout(layout);
    {
        // A load is not an edit: nothing listening for typing hears of it.
        const QSignalBlocker blocker(m_view);
        m_view->setDocument(document);
    }
    m_text.clear();
    Q_EMIT documentReplaced(previous);
    if (previous->parent() == document->parent())
        delete previous;
}

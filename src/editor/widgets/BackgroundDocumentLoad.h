#pragma once

#include <QFutureWatcher>
#include <QObject>
#include <QString>

class QPlainTextEdit;
class QTextDocument;

// Puts a long text into a plain-text view without holding the window: the view's document
// is built on a worker thread, and when it is done it replaces the view's (empty) one. A
// 10 MB entry of short list lines takes the toolkit half a second to split into paragraphs;
// the window keeps answering meanwhile. Until the new document is in place the text is
// held here, so whoever asks for it gets the whole of it, never the empty stand-in.
class BackgroundDocumentLoad : public QObject
{
    Q_OBJECT
public:
    // Below this many characters a text goes into the view at once: it takes a few tens of
    // milliseconds.
    static constexpr qsizetype kBackgroundSize = 512 * 1024;

    explicit BackgroundDocumentLoad(QPlainTextEdit *view);
    ~BackgroundDocumentLoad() override;

    // Starts building a document for text, whose line breaks are already plain "\n"; a
    // build still running for an earlier text is dropped.
    void start(const QString &text);
    bool isLoading() const { return m_loading; }
    // The text being loaded.
    const QString &text() const { return m_text; }
    // Waits for the build and puts the document into the view now.
    void finish();
    // Drops a running build: the view's text is being replaced at once.
    void cancel();

Q_SIGNALS:
    // The view holds a new document (the old one is deleted after this returns).
    void documentReplaced(QTextDocument *previous);

private:
    void adopt();

    QPlainTextEdit *m_view;
    QFutureWatcher<QTextDocument *> m_build;
    QString m_text;
    bool m_loading = false;
};

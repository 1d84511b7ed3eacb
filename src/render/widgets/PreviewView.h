#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QUrl>
#include <QWebEngineView>

#include <memory>

class PreviewWebPage;

// The web view that shows the entry preview. Scripts are off, links open in the user's
// browser, a long page shows its top first and the rest is appended after, and pages too
// large for an in-memory load go through a private file.
class PreviewView : public QWebEngineView
{
    Q_OBJECT
public:
    explicit PreviewView(QWidget *parent = nullptr);
    ~PreviewView() override;

    // Shows a whole page. baseUrl is where relative links and images resolve and must end
    // with "/"; the page's own <base> element says the same for pages loaded from a file.
    void showHtml(const QString &html, const QUrl &baseUrl);
    // Adds body markup to the end of the page on show once it has loaded, after which the
    // page is wholePage; loads wholePage instead when the markup is not well nested.
    void continuePage(const QString &markup, const QString &wholePage, const QUrl &baseUrl);

    // Above this many UTF-8 bytes a page is written to a file first: an in-memory load is
    // encoded into a URL, and Chromium refuses URLs over 2 MB.
    static constexpr qsizetype LargePageBytes = 1400 * 1024;

    // The file the last large page went through; empty after an in-memory load.
    QString lastPageFile() const { return m_pageFile; }

    PreviewWebPage *previewPage() const { return m_page; }

    // True while parts of the last page are still being appended.
    bool isAppending() const
    {
        return !m_pendingPieces.isEmpty() || m_appending || m_continuation.waiting;
    }

Q_SIGNALS:
    // The whole of the last page is in, its appended parts included.
    void pageCompleted(bool ok);

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    QString writePageFile(const QByteArray &utf8);
    void loadWhole(const QString &html, const QUrl &baseUrl);
    void pageLoaded(bool ok);
    void appendNextPiece();

    PreviewWebPage *m_page = nullptr;
    std::unique_ptr<QTemporaryDir> m_pageDir;
    QString m_pageFile;
    QStringList m_staleFiles;
    int m_pageCounter = 0;
    // What is still to be appended to the page loading now, and which page that is.
    QStringList m_pendingPieces;
    bool m_appending = false;
    bool m_loaded = false;
    struct Continuation
    {
        QString markup;
        QString wholePage;
        QUrl baseUrl;
        bool waiting = false;
    };
    Continuation m_continuation;
    void continueLater();
    bool appendToBody(const QString &markup);
    // Body markup is appended in pieces about this long, each laid out before the next.
    static constexpr qsizetype kPieceChars = 512 * 1024;
    quint64 m_pageGeneration = 0;
};

#pragma once

#include <QString>
#include <QTemporaryDir>
#include <QUrl>
#include <QWebEngineView>

#include <memory>

class PreviewWebPage;

// The web view that shows the entry preview. Scripts are off, links open in the user's
// browser, and pages too large for an in-memory load go through a private file.
class PreviewView : public QWebEngineView
{
    Q_OBJECT
public:
    explicit PreviewView(QWidget *parent = nullptr);
    ~PreviewView() override;

    // Shows a whole page. baseUrl is where relative links and images resolve and must end
    // with "/"; the page's own <base> element says the same for pages loaded from a file.
    void showHtml(const QString &html, const QUrl &baseUrl);

    // Above this many UTF-8 bytes a page is written to a file first: an in-memory load is
    // encoded into a URL, and Chromium refuses URLs over 2 MB.
    static constexpr qsizetype LargePageBytes = 1400 * 1024;

    // The file the last large page went through; empty after an in-memory load.
    QString lastPageFile() const { return m_pageFile; }

    PreviewWebPage *previewPage() const { return m_page; }

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    QString writePageFile(const QByteArray &utf8);

    PreviewWebPage *m_page = nullptr;
    std::unique_ptr<QTemporaryDir> m_pageDir;
    QString m_pageFile;
    QStringList m_staleFiles;
    int m_pageCounter = 0;
};

#pragma once

#include <QWebEnginePage>

// The page behind the entry preview. The preview only ever shows what the application put
// into it: a clicked link goes to the user's browser, an in-page anchor scrolls, and nothing
// else (forms, new windows) navigates away from the entry.
class PreviewWebPage : public QWebEnginePage
{
    Q_OBJECT
public:
    explicit PreviewWebPage(QObject *parent = nullptr);

    // The base relative links of the shown page resolve against. A page loaded from a file
    // has another address than its base, and "#note" links must still stay in the page.
    void setDocumentBase(const QUrl &base) { m_documentBase = base; }

Q_SIGNALS:
    // Where a clicked link was sent.
    void externalLinkOpened(const QUrl &url);

protected:
    bool acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame) override;
    QWebEnginePage *createWindow(WebWindowType type) override;

private:
    bool isSameDocumentAnchor(const QUrl &url) const;
    void scrollToAnchor(const QString &fragment);
    void openExternally(const QUrl &url);

    // A page made only to receive a "new window" link; it hands the link on and dies.
    QUrl m_documentBase;
    bool m_forwardOnly = false;
    PreviewWebPage *m_owner = nullptr;
};

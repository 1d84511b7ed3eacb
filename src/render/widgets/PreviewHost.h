#pragma once

#include <QPointer>
#include <QString>
#include <QUrl>
#include <QWidget>

class PreviewView;
class QVBoxLayout;

// Where the preview sits in the window. The web view, and with it the web engine's helper
// processes and their memory, is made only when the preview is first shown: most sessions
// never show it. A page handed over before then waits here.
class PreviewHost : public QWidget
{
    Q_OBJECT
public:
    explicit PreviewHost(QWidget *parent = nullptr);

    // The web view; nullptr until the preview is first shown.
    PreviewView *webView() const;

    // Shows the page now if the view exists, or as soon as it is made.
    void showHtml(const QString &html, const QUrl &baseUrl);
    // Adds bodyMarkup to the end of the page on show, which then is wholePage; loads
    // wholePage instead where the markup cannot be added as it is.
    void continuePage(const QString &bodyMarkup, const QString &wholePage, const QUrl &baseUrl);

Q_SIGNALS:
    // The preview became visible (every time, not only the first).
    void shown();
    // The view finished loading a page; ok is false when the engine could not show it.
    void pageShown(bool ok);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void createView();

    QPointer<PreviewView> m_view;
    QVBoxLayout *m_layout = nullptr;
    QString m_waitingHtml;
    QUrl m_waitingBaseUrl;
    bool m_hasWaitingPage = false;
};

#include "PreviewHost.h"

#include "PreviewView.h"

#include <QVBoxLayout>

#include <utility>

PreviewHost::PreviewHost(QWidget *parent)
    : QWidget(parent)
    , m_layout(new QVBoxLayout(this))
{
    setObjectName(QStringLiteral("preview"));
    //% "Preview"
    setAccessibleName(qtTrId("PREVIEW_ACCESSIBLE_NAME"));
    //% "The current entry as it looks when converted, in the chosen style"
    setToolTip(qtTrId("PREVIEW_TOOLTIP"));
    m_layout->setContentsMargins(0, 0, 0, 0);
    setMinimumSize(120, 80);
}

PreviewView *PreviewHost::webView() const
{
    return m_view;
}

void PreviewHost::showHtml(const QString &html, const QUrl &baseUrl)
{
    if (m_view) {
        m_view->showHtml(html, baseUrl);
        return;
    }
    m_waitingHtml = html;
    m_waitingBaseUrl = baseUrl;
    m_hasWaitingPage = true;
}

void PreviewHost::continuePage(const QString &bodyMarkup, const QString &wholePage,
                               const QUrl &baseUrl)
{
    if (m_view)
        m_view->continuePage(bodyMarkup, wholePage, baseUrl);
    else
        showHtml(wholePage, baseUrl);
}

void PreviewHost::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!m_view)
        createView();
    Q_EMIT shown();
}

void PreviewHost::createView()
{
    m_view = new PreviewView(this);
    connect(m_view, &PreviewView::loadFinished, this, &PreviewHost::pageShown);
    m_layout->addWidget(m_view);
    if (m_hasWaitingPage) {
        m_hasWaitingPage = false;
        m_view->showHtml(std::exchange(m_waitingHtml, QString()), m_waitingBaseUrl);
    }
}

#include "PreviewWebPage.h"

#include <QDesktopServices>
#include <QJsonDocument>
#include <QTimer>
#include <QWebEngineScript>
#include <QWebEngineSettings>

namespace {

QUrl withoutFragment(const QUrl &url)
{
    return url.adjusted(QUrl::RemoveFragment);
}

} // namespace

PreviewWebPage::PreviewWebPage(QObject *parent)
    : QWebEnginePage(parent)
{
    // Entries may come from a synced folder someone else writes to: their scripts must not
    // run with access to local files. Scrolling to anchors uses the isolated world instead.
    settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, false);
    settings()->setAttribute(QWebEngineSettings::JavascriptCanOpenWindows, false);
    settings()->setAttribute(QWebEngineSettings::LocalContentCanAccessFileUrls, true);
    settings()->setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, true);
    settings()->setAttribute(QWebEngineSettings::PluginsEnabled, false);
    settings()->setAttribute(QWebEngineSettings::FocusOnNavigationEnabled, false);
}

bool PreviewWebPage::isSameDocumentAnchor(const QUrl &target) const
{
    if (!target.hasFragment())
        return false;
    const QUrl bare = withoutFragment(target);
    // Relative anchors resolve against the page's <base>, the entry's attachment folder.
    return bare == withoutFragment(url()) || bare == withoutFragment(requestedUrl()) ||
           (m_documentBase.isValid() && bare == withoutFragment(m_documentBase));
}

void PreviewWebPage::scrollToAnchor(const QString &fragment)
{
    const QString quoted =
        QString::fromUtf8(
            QJsonDocument::fromVariant(QVariantList{fragment}).toJson(QJsonDocument::Compact))
            .mid(1)
            .chopped(1);
    runJavaScript(QStringLiteral("(function(n){var e=document.getElementById(n)||"
                                 "document.getElementsByName(n)[0];if(e)e.scrollIntoView();})(") +
                      quoted + QStringLiteral(")"),
                  QWebEngineScript::ApplicationWorld);
}

void PreviewWebPage::openExternally(const QUrl &target)
{
    QDesktopServices::openUrl(target);
    Q_EMIT externalLinkOpened(target);
}

bool PreviewWebPage::acceptNavigationRequest(const QUrl &target, NavigationType type,
                                             bool isMainFrame)
{
    if (m_forwardOnly) {
        if (m_owner)
            m_owner->openExternally(target);
        QTimer::singleShot(0, this, &QObject::deleteLater);
        return false;
    }
    switch (type) {
    case NavigationTypeLinkClicked:
        if (isSameDocumentAnchor(target))
            scrollToAnchor(target.fragment(QUrl::FullyDecoded));
        else
            openExternally(target);
        return false;
    case NavigationTypeFormSubmitted:
    case NavigationTypeBackForward:
        return false;
    default:
        // The application's own loads, and the frames an HTML entry embeds.
        Q_UNUSED(isMainFrame);
        return true;
    }
}

QWebEnginePage *PreviewWebPage::createWindow(WebWindowType)
{
    auto *forwarder = new PreviewWebPage(this);
    forwarder->m_forwardOnly = true;
    forwarder->m_owner = this;
    return forwarder;
}

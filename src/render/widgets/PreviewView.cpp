#include "PreviewView.h"

#include "PreviewWebPage.h"

#include "render/ProgressivePage.h"

#include <QContextMenuEvent>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMenu>
#include <QPointer>
#include <QStandardPaths>
#include <QTimer>
#include <QWebEngineContextMenuRequest>
#include <QWebEngineScript>

PreviewView::PreviewView(QWidget *parent)
    : QWebEngineView(parent)
    , m_page(new PreviewWebPage(this))
{
    setPage(m_page);
    setObjectName(QStringLiteral("previewWebView"));
    //% "Preview"
    setAccessibleName(qtTrId("PREVIEW_ACCESSIBLE_NAME"));
    //% "The current entry as it looks when converted, in the chosen style"
    setToolTip(qtTrId("PREVIEW_TOOLTIP"));
    // A file dropped here would replace the entry's page with the file.
    setAcceptDrops(false);
    setMinimumSize(120, 80);
    connect(this, &QWebEngineView::loadFinished, this, &PreviewView::pageLoaded);
}

PreviewView::~PreviewView() = default;

QString PreviewView::writePageFile(const QByteArray &utf8)
{
    if (!m_pageDir) {
        // In the user's cache rather than the shared temporary folder: the page holds the
        // entry's words.
        const QString cache = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
        if (!cache.isEmpty() && QDir().mkpath(cache))
            m_pageDir = std::make_unique<QTemporaryDir>(cache + QStringLiteral("/preview-XXXXXX"));
        else
            m_pageDir = std::make_unique<QTemporaryDir>();
    }
    if (!m_pageDir->isValid())
        return QString();
    // A fresh name for every page, so the engine never serves the previous one from memory.
    const QString path =
        m_pageDir->filePath(QStringLiteral("preview-%1.html").arg(++m_pageCounter));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(utf8) != utf8.size()) {
        qWarning("ERROR: %s", qPrintable(file.errorString()));
        return QString();
    }
    return path;
}

void PreviewView::showHtml(const QString &html, const QUrl &baseUrl)
{
    ++m_pageGeneration;
    m_appending = false;
    m_loaded = false;
    m_continuation = {};
    ProgressivePage steps = ProgressivePage::split(html, 16 * 1024, kPieceChars);
    m_pendingPieces = std::move(steps.rest);
    loadWhole(steps.first, baseUrl);
}

void PreviewView::loadWhole(const QString &html, const QUrl &baseUrl)
{
    const QByteArray utf8 = html.toUtf8();
    m_page->setDocumentBase(baseUrl);
    const QString previous = m_pageFile;
    m_pageFile.clear();
    if (utf8.size() > LargePageBytes) {
        m_pageFile = writePageFile(utf8);
        if (!m_pageFile.isEmpty())
            load(QUrl::fromLocalFile(m_pageFile));
    } else {
        page()->setContent(utf8, QStringLiteral("text/html;charset=UTF-8"), baseUrl);
    }
    // The engine may still be reading the old page file; it goes once the new page is in.
    if (!previous.isEmpty() && previous != m_pageFile)
        m_staleFiles << previous;
}

void PreviewView::continuePage(const QString &markup, const QString &wholePage, const QUrl &baseUrl)
{
    m_continuation = {markup, wholePage, baseUrl, true};
    if (m_loaded)
        continueLater();
}

void PreviewView::continueLater()
{
    // Not while the page is loading, nor before those waiting for it have heard that it
    // showed: cutting a long text into pieces takes the main thread a while, and the engine
    // needs it to finish the load.
    QTimer::singleShot(0, this, [this, generation = m_pageGeneration] {
        if (generation != m_pageGeneration || !m_continuation.waiting)
            return;
        Continuation next = std::exchange(m_continuation, {});
        if (!appendToBody(next.markup))
            showHtml(next.wholePage, next.baseUrl);
    });
}

bool PreviewView::appendToBody(const QString &markup)
{
    const std::optional<QStringList> pieces = ProgressivePage::pieces(markup, kPieceChars);
    if (!pieces)
        return false;
    m_pendingPieces += *pieces;
    if (!m_appending)
        appendNextPiece();
    return true;
}

void PreviewView::pageLoaded(bool ok)
{
    m_loaded = true;
    if (m_continuation.waiting) {
        if (!ok) {
            // The top did not show; the whole page may.
            Continuation failed = std::exchange(m_continuation, {});
            showHtml(failed.wholePage, failed.baseUrl);
            return;
        }
        continueLater();
    }
    for (const QString &stale : std::as_const(m_staleFiles))
        QFile::remove(stale);
    m_staleFiles.clear();
    if (!ok || m_pendingPieces.isEmpty()) {
        m_pendingPieces.clear();
        Q_EMIT pageCompleted(ok);
        return;
    }
    appendNextPiece();
}

void PreviewView::appendNextPiece()
{
    if (m_pendingPieces.isEmpty()) {
        m_appending = false;
        Q_EMIT pageCompleted(true);
        return;
    }
    m_appending = true;
    const QString piece = m_pendingPieces.takeFirst();
    const QString quoted = QString::fromUtf8(
        QJsonDocument(QJsonArray{piece}).toJson(QJsonDocument::Compact).chopped(1).mid(1));
    const quint64 generation = m_pageGeneration;
    // One piece at a time, each laid out before the next (asking for the height does that):
    // the engine paints between them, and a newer page stops the rest.
    m_page->runJavaScript(QStringLiteral("document.body.insertAdjacentHTML('beforeend', ") +
                              quoted + QStringLiteral(");document.body.offsetHeight;"),
                          QWebEngineScript::ApplicationWorld,
                          [view = QPointer(this), generation](const QVariant &) {
                              if (view && generation == view->m_pageGeneration)
                                  view->appendNextPiece();
                          });
}

void PreviewView::contextMenuEvent(QContextMenuEvent *event)
{
    // Only what makes sense for a read-only rendering of one entry: copying and selecting.
    QMenu *menu = createStandardContextMenu();
    const QList<QWebEnginePage::WebAction> keep = {
        QWebEnginePage::Copy, QWebEnginePage::SelectAll, QWebEnginePage::CopyLinkToClipboard,
        QWebEnginePage::CopyImageToClipboard, QWebEnginePage::CopyImageUrlToClipboard};
    QList<QAction *> keepActions;
    for (QWebEnginePage::WebAction action : keep)
        keepActions << pageAction(action);
    for (QAction *action : menu->actions()) {
        if (!action->isSeparator() && !keepActions.contains(action))
            menu->removeAction(action);
    }
    menu->setAttribute(Qt::WA_DeleteOnClose, true);
    if (menu->actions().isEmpty()) {
        delete menu;
        event->accept();
        return;
    }
    menu->popup(event->globalPos());
}

#include "PreviewController.h"

#include "PreviewHost.h"
#include "core/AppPaths.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "render/MarkupLanguage.h"
#include "render/PreviewConversionQueue.h"
#include "render/PreviewPage.h"

#include <QStackedWidget>
#include <QTimer>

PreviewController::PreviewController(UserDefaults &defaults, QObject *parent)
    : QObject(parent)
    , m_defaults(defaults)
    , m_host(new PreviewHost)
    , m_queue(new PreviewConversionQueue(this))
{
    connect(m_queue, &PreviewConversionQueue::converted, this,
            [this](quint64, const QString &fragment) { converted(fragment); });
    connect(m_queue, &PreviewConversionQueue::headConverted, this,
            [this](quint64, const QString &fragment) { headConverted(fragment); });
    connect(m_host, &PreviewHost::pageShown, this, &PreviewController::pageShown);
    // Deferred, so that a rebuild asked for by whatever showed the preview (the view switch
    // converts the editor's current text) replaces the remembered text instead of following
    // it.
    connect(m_host, &PreviewHost::shown, this, [this] {
        QTimer::singleShot(0, this, [this] {
            if (isPreviewVisible())
                bringUpToDate();
        });
    });
    NotificationCenter::defaultCenter().addObserver(
        this, Notifications::CSSStyleChangePerformReload,
        [this](const Notification &) { reloadPreviewWithNewCSSStyle(); });
}

PreviewController::~PreviewController()
{
    // A view nobody took into a layout is still ours.
    if (m_host && !m_host->parent())
        delete m_host;
}

PreviewHost *PreviewController::view() const
{
    return m_host;
}

void PreviewController::setEditorTextProvider(TextProvider provider)
{
    m_editorText = std::move(provider);
}

void PreviewController::setSelectedEntryPathProvider(TextProvider provider)
{
    m_selectedEntryPath = std::move(provider);
}

void PreviewController::setConverter(Converter converter)
{
    if (!converter) {
        m_queue->setConverter({});
        return;
    }
    m_queue->setConverter([converter = std::move(converter)](int language, const QString &text,
                                                             const std::function<bool()> &) {
        return converter(language, text);
    });
}

void PreviewController::setContentStack(QStackedWidget *stack, QWidget *editorPage)
{
    m_stack = stack;
    m_editorPage = editorPage;
    if (m_stack && m_host && m_stack->indexOf(m_host) < 0)
        m_stack->addWidget(m_host);
}

QString PreviewController::selectedEntryPath() const
{
    return m_selectedEntryPath ? m_selectedEntryPath() : QString();
}

bool PreviewController::isPreviewVisible() const
{
    return m_host && m_host->isVisible();
}

void PreviewController::renderText(const QString &text, const QString &entryPath)
{
    m_text = text;
    m_entryPath = AppPaths::expandTilde(entryPath);
    m_blank = false;
    newestChanged();
}

void PreviewController::blank()
{
    m_text.clear();
    m_entryPath.clear();
    m_blank = true;
    newestChanged();
}

void PreviewController::newestChanged()
{
    // Whatever is converting now is for an older text.
    m_queue->cancel();
    m_converting = false;
    m_headFragment.clear();
    m_dirty = true;
    if (isPreviewVisible())
        bringUpToDate();
}

void PreviewController::bringUpToDate()
{
    if (!m_dirty)
        return;
    m_dirty = false;
    if (m_blank) {
        // Still a styled page, so a dark style does not flash white between entries.
        showPage(PreviewPage::pageHtml(
                     QString(),
                     PreviewPage::returnCSSStyleString(m_defaults, AppPaths::cssStyleFolder()),
                     QString()),
                 PreviewPage::baseUrl(QString()));
        return;
    }
    m_converting = true;
    m_convertingPath = m_entryPath;
    m_queue->request(MarkupLanguage::current(m_defaults), m_text);
}

void PreviewController::headConverted(const QString &fragment)
{
    // A long text's top shows while the rest converts; the rest is added to this page.
    m_headFragment = fragment;
    if (m_host)
        m_host->showHtml(PreviewPage::buildPage(fragment, m_convertingPath, m_defaults,
                                                AppPaths::cssStyleFolder()),
                         PreviewPage::baseUrlForEntry(m_convertingPath, m_defaults));
}

void PreviewController::converted(const QString &fragment)
{
    m_converting = false;
    const QString head = std::exchange(m_headFragment, QString());
    // Style and entry format are read now, so a change made during the conversion shows.
    const QString page =
        PreviewPage::buildPage(fragment, m_convertingPath, m_defaults, AppPaths::cssStyleFolder());
    const QUrl baseUrl = PreviewPage::baseUrlForEntry(m_convertingPath, m_defaults);
    if (head.isEmpty() || !fragment.startsWith(head) || !m_host) {
        showPage(page, baseUrl);
        return;
    }
    m_lastHtml = page;
    m_lastBaseUrl = baseUrl;
    m_host->continuePage(QStringView(fragment).mid(head.size()).toString(), page, baseUrl);
    Q_EMIT pageBuilt(m_lastHtml, m_lastBaseUrl);
}

void PreviewController::showPage(const QString &html, const QUrl &baseUrl)
{
    m_lastHtml = html;
    m_lastBaseUrl = baseUrl;
    if (m_host)
        m_host->showHtml(m_lastHtml, m_lastBaseUrl);
    Q_EMIT pageBuilt(m_lastHtml, m_lastBaseUrl);
}

void PreviewController::rebuildForSelection()
{
    renderText(m_editorText ? m_editorText() : QString(), selectedEntryPath());
}

void PreviewController::reloadPreviewWithNewCSSStyle()
{
    rebuildForSelection();
}

void PreviewController::contentViewSegmentChanged(int segment)
{
    if (m_stack) {
        QWidget *target = segment == 0 ? m_editorPage.data() : static_cast<QWidget *>(m_host);
        if (target)
            m_stack->setCurrentWidget(target);
    }
    if (segment != 0 && !selectedEntryPath().isEmpty())
        rebuildForSelection();
}

bool PreviewController::isShowingPreview() const
{
    return m_stack && m_host && m_stack->currentWidget() == m_host;
}

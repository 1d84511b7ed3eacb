#include "PreviewController.h"

#include "PreviewView.h"
#include "core/AppPaths.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "render/MarkupLanguage.h"
#include "render/PreviewPage.h"
#include "render/TaskController.h"

#include <QStackedWidget>

namespace {

// Every rebuild converts through a fresh controller, so no state leaks between entries.
QString convertWithExternalConverter(int language, const QString &text)
{
    return TaskController::convertStringWithMarkUpLanguage(language, text);
}

} // namespace

PreviewController::PreviewController(QObject *parent)
    : QObject(parent)
    , m_view(new PreviewView)
    , m_converter(convertWithExternalConverter)
{
    NotificationCenter::defaultCenter().addObserver(
        this, Notifications::CSSStyleChangePerformReload,
        [this](const Notification &) { reloadPreviewWithNewCSSStyle(); });
}

PreviewController::~PreviewController()
{
    // A view nobody took into a layout is still ours.
    if (m_view && !m_view->parent())
        delete m_view;
}

PreviewView *PreviewController::view() const
{
    return m_view;
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
    m_converter = converter ? std::move(converter) : Converter(convertWithExternalConverter);
}

void PreviewController::setContentStack(QStackedWidget *stack, QWidget *editorPage)
{
    m_stack = stack;
    m_editorPage = editorPage;
    if (m_stack && m_view && m_stack->indexOf(m_view) < 0)
        m_stack->addWidget(m_view);
}

QString PreviewController::selectedEntryPath() const
{
    return m_selectedEntryPath ? m_selectedEntryPath() : QString();
}

void PreviewController::renderText(const QString &text, const QString &entryPath)
{
    UserDefaults &defaults = UserDefaults::standard();
    const QString fragment = m_converter(MarkupLanguage::current(defaults), text);
    const QString path = AppPaths::expandTilde(entryPath);
    m_lastHtml = PreviewPage::buildPage(fragment, path, defaults, AppPaths::cssStyleFolder());
    m_lastBaseUrl = PreviewPage::baseUrl(PreviewPage::basePath(
        path, defaults.stringForKey(QStringLiteral("defaultFileExtensionForEntries"))));
    if (m_view)
        m_view->showHtml(m_lastHtml, m_lastBaseUrl);
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
        QWidget *target = segment == 0 ? m_editorPage.data() : static_cast<QWidget *>(m_view);
        if (target)
            m_stack->setCurrentWidget(target);
    }
    if (segment != 0 && !selectedEntryPath().isEmpty())
        rebuildForSelection();
}

void PreviewController::blank()
{
    // Still a styled page, so a dark style does not flash white between entries.
    m_lastHtml = PreviewPage::pageHtml(QString(), PreviewPage::returnCSSStyleString(), QString());
    m_lastBaseUrl = PreviewPage::baseUrl(QString());
    if (m_view)
        m_view->showHtml(m_lastHtml, m_lastBaseUrl);
    Q_EMIT pageBuilt(m_lastHtml, m_lastBaseUrl);
}

bool PreviewController::isShowingPreview() const
{
    return m_stack && m_view && m_stack->currentWidget() == m_view;
}

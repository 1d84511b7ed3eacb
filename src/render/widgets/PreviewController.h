#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QUrl>

#include <functional>

class PreviewConversionQueue;
class PreviewHost;
class QStackedWidget;
class QWidget;
class UserDefaults;

// Builds the entry preview and shows it. The preview keeps no state of its own beyond the
// newest text it was given: every page starts from that text, the chosen language and the
// chosen style. Converting happens on a thread of its own and only while the preview is
// visible; a hidden preview remembers the newest text and converts it when it is shown.
class PreviewController : public QObject
{
    Q_OBJECT
public:
    using Converter = std::function<QString(int language, const QString &text)>;
    using TextProvider = std::function<QString()>;

    explicit PreviewController(UserDefaults &defaults, QObject *parent = nullptr);
    ~PreviewController() override;

    // The widget that goes into the window; it makes its web view when first shown.
    PreviewHost *view() const;

    // Where rebuilds that start from the main window's state find it: the editor's whole
    // text, and the selected entry's path (notebook folder + list item name, "~" allowed),
    // or "" when no entry is selected.
    void setEditorTextProvider(TextProvider provider);
    void setSelectedEntryPathProvider(TextProvider provider);
    // Replaces the markup converter (by default the language's external converter). It runs
    // on the conversion thread.
    void setConverter(Converter converter);

    // Puts the preview into the window's content stack beside the editor page, so that
    // contentViewSegmentChanged() can switch between them.
    void setContentStack(QStackedWidget *stack, QWidget *editorPage);

    // Shows text converted with the chosen language. entryPath is the file just loaded (for
    // a TextBundle the text file inside it); "" for no entry. Returns at once; pageBuilt
    // follows when the text is converted, at the latest once the preview is visible.
    void renderText(const QString &text, const QString &entryPath);
    // The content view's segmented control: segment 0 shows the editor, any other the
    // preview, rebuilt from the editor's text when an entry is selected.
    void contentViewSegmentChanged(int segment);
    // Rebuilds for the selected entry with the current style; runs on every
    // "CSSStyleChangePerformReload".
    void reloadPreviewWithNewCSSStyle();
    // An empty page, for when no notebook or entry is open.
    void blank();

    bool isShowingPreview() const;
    // The newest text is being converted, or waits for the preview to be shown.
    bool isPending() const { return m_dirty || m_converting; }
    QString lastPageHtml() const { return m_lastHtml; }
    QUrl lastBaseUrl() const { return m_lastBaseUrl; }

Q_SIGNALS:
    // A page was built from the newest text and handed to the view.
    void pageBuilt(const QString &html, const QUrl &baseUrl);
    // The view finished showing a page (ok false when the engine could not).
    void pageShown(bool ok);

private:
    bool isPreviewVisible() const;
    void rebuildForSelection();
    QString selectedEntryPath() const;
    void newestChanged();
    void bringUpToDate();
    void converted(const QString &fragment);
    void headConverted(const QString &fragment);
    void showPage(const QString &html, const QUrl &baseUrl);

    UserDefaults &m_defaults;
    QPointer<PreviewHost> m_host;
    PreviewConversionQueue *m_queue = nullptr;
    QPointer<QStackedWidget> m_stack;
    QPointer<QWidget> m_editorPage;
    TextProvider m_editorText;
    TextProvider m_selectedEntryPath;
    // The newest thing the preview was asked to show.
    QString m_text;
    QString m_entryPath;
    bool m_blank = true;
    // It has not been converted and shown yet.
    bool m_dirty = false;
    bool m_converting = false;
    QString m_convertingPath;
    // The first screens of the text being converted, already on show.
    QString m_headFragment;
    QString m_lastHtml;
    QUrl m_lastBaseUrl;
};

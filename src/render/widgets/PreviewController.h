#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QUrl>

#include <functional>

class PreviewView;
class QStackedWidget;
class QWidget;

// Builds the entry preview and shows it. The preview keeps no state of its own: every
// rebuild starts from the editor's current text, the chosen language and the chosen style.
class PreviewController : public QObject
{
    Q_OBJECT
public:
    using Converter = std::function<QString(int language, const QString &text)>;
    using TextProvider = std::function<QString()>;

    explicit PreviewController(QObject *parent = nullptr);
    ~PreviewController() override;

    PreviewView *view() const;

    // Where rebuilds that start from the main window's state find it: the editor's whole
    // text, and the selected entry's path (notebook folder + list item name, "~" allowed),
    // or "" when no entry is selected.
    void setEditorTextProvider(TextProvider provider);
    void setSelectedEntryPathProvider(TextProvider provider);
    // Replaces the markup converter (by default the language's external converter).
    void setConverter(Converter converter);

    // Puts the preview into the window's content stack beside the editor page, so that
    // contentViewSegmentChanged() can switch between them.
    void setContentStack(QStackedWidget *stack, QWidget *editorPage);

    // Shows text converted with the chosen language. entryPath is the file just loaded (for
    // a TextBundle the text file inside it); "" for no entry.
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
    QString lastPageHtml() const { return m_lastHtml; }
    QUrl lastBaseUrl() const { return m_lastBaseUrl; }

Q_SIGNALS:
    void pageBuilt(const QString &html, const QUrl &baseUrl);

private:
    void rebuildForSelection();
    QString selectedEntryPath() const;

    QPointer<PreviewView> m_view;
    QPointer<QStackedWidget> m_stack;
    QPointer<QWidget> m_editorPage;
    TextProvider m_editorText;
    TextProvider m_selectedEntryPath;
    Converter m_converter;
    QString m_lastHtml;
    QUrl m_lastBaseUrl;
};

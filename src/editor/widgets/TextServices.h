#pragma once

#include <QObject>
#include <QPair>
#include <QPointer>
#include <QTextBlock>
#include <QTimer>

#include <memory>

class EnhancedTextView;
class QMenu;
class SpellChecker;

// The editor's text services: misspelled words underlined in red with suggestions in the
// context menu, web addresses marked and opened with Ctrl+click, and double hyphens turned
// into dashes as they are typed. Only paragraphs on screen (or being edited) are checked;
// the rest wait until they are scrolled into view, so long entries stay quick to load and to
// type in. The marks are laid on the paragraphs' layouts directly: a syntax highlighter would
// visit every paragraph of a freshly loaded text, which for a long entry costs more than
// loading it.
class TextServices : public QObject
{
    Q_OBJECT
public:
    explicit TextServices(EnhancedTextView *view);
    ~TextServices() override;

    struct Options
    {
        bool spelling = false;
        bool links = false;
        bool dashes = false;
    };
    void setOptions(const Options &options);
    Options options() const { return m_options; }
    SpellChecker *spellChecker();

    // Suggestions and "Add to Dictionary" for a misspelled word at position, in front.
    void addSpellingActions(QMenu *menu, int position);
    // After the user typed text ending at the caret: dash substitution.
    void textTyped(const QString &text);
    // The web address at position, if any.
    QString linkAt(int position) const;

    // The view's document was replaced (a long entry is built on a worker thread).
    void attachDocument();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool marks() const { return m_options.spelling || m_options.links; }
    void contentsChanged(int position, int removed, int added);
    void checkVisibleBlocks();
    void checkBlock(QTextBlock block);
    void clearBlock(QTextBlock block);
    void clearAllBlocks();
    void remarkAll();
    int stamp(const QTextBlock &block) const;
    QPair<int, int> misspelledWordAt(int position);

    EnhancedTextView *m_view;
    QPointer<QTextDocument> m_document;
    std::unique_ptr<SpellChecker> m_spelling;
    Options m_options;
    QTimer m_visibleCheck;
    // Changes whenever the same text would be marked differently (options, dictionary).
    int m_generation = 0;
};

#pragma once

#include <QPair>
#include <QSyntaxHighlighter>
#include <QTimer>

#include <memory>

class EnhancedTextView;
class QMenu;
class SpellChecker;

// The editor's text services: misspelled words underlined in red with suggestions in the
// context menu, web addresses marked and opened with Ctrl+click, and double hyphens turned
// into dashes as they are typed. Only paragraphs on screen (or being edited) are checked;
// the rest wait until they are scrolled into view, so long entries stay quick to type in.
class TextServices : public QSyntaxHighlighter
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

protected:
    void highlightBlock(const QString &text) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    enum BlockState { Unchecked = 1, Checked = 2 };
    bool isNearlyVisible(const QTextBlock &block) const;
    void checkVisibleBlocks();
    QPair<int, int> misspelledWordAt(int position);

    EnhancedTextView *m_view;
    std::unique_ptr<SpellChecker> m_spelling;
    Options m_options;
    QTimer m_visibleCheck;
};

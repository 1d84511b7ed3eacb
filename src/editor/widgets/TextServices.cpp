#include "TextServices.h"

#include "EnhancedTextView.h"
#include "editor/SpellChecker.h"
#include "editor/TextBuffer.h"

#include <QAction>
#include <QDesktopServices>
#include <QMenu>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBlock>
#include <QUrl>

namespace {
const QRegularExpression &linkPattern()
{
    static const QRegularExpression pattern(
        QStringLiteral("\\b(?:https?://|ftp://|mailto:|www\\.)[^\\s<>\"'()\\[\\]]+[^\\s<>\"'()"
                       "\\[\\].,;:!?]"),
        QRegularExpression::CaseInsensitiveOption);
    return pattern;
}
} // namespace

TextServices::TextServices(EnhancedTextView *view)
    : QSyntaxHighlighter(static_cast<QObject *>(view))
    , m_view(view)
{
    m_visibleCheck.setSingleShot(true);
    m_visibleCheck.setInterval(0);
    connect(&m_visibleCheck, &QTimer::timeout, this, &TextServices::checkVisibleBlocks);
    connect(view->verticalScrollBar(), &QScrollBar::valueChanged, &m_visibleCheck,
            qOverload<>(&QTimer::start));
    connect(view, &QPlainTextEdit::textChanged, &m_visibleCheck, qOverload<>(&QTimer::start));
    view->viewport()->installEventFilter(this);
}

TextServices::~TextServices() = default;

SpellChecker *TextServices::spellChecker()
{
    if (!m_spelling) {
        m_spelling = std::make_unique<SpellChecker>();
        if (!m_spelling->isAvailable())
            qWarning().noquote() << QStringLiteral(
                "ERROR: no spelling dictionary is installed; spelling is not checked");
    }
    return m_spelling.get();
}

void TextServices::setOptions(const Options &options)
{
    const bool marks = options.spelling || options.links;
    const bool changed = options.spelling != m_options.spelling || options.links != m_options.links;
    m_options = options;
    if (!marks) {
        setDocument(nullptr);
        return;
    }
    if (options.spelling)
        spellChecker();
    if (document() != m_view->document())
        setDocument(m_view->document());
    else if (changed)
        rehighlight();
}

bool TextServices::isNearlyVisible(const QTextBlock &block) const
{
    const int first = m_view->firstVisibleTextBlock().blockNumber();
    const int lineHeight = std::max(1, m_view->fontMetrics().lineSpacing());
    const int lines = m_view->viewport()->height() / lineHeight + 2;
    const int number = block.blockNumber();
    return number >= first - 2 && number <= first + lines;
}

void TextServices::checkVisibleBlocks()
{
    if (!document())
        return;
    QTextBlock block = m_view->firstVisibleTextBlock();
    const int lineHeight = std::max(1, m_view->fontMetrics().lineSpacing());
    for (int left = m_view->viewport()->height() / lineHeight + 2; block.isValid() && left > 0;
         --left, block = block.next()) {
        if (block.userState() != Checked)
            rehighlightBlock(block);
    }
}

void TextServices::highlightBlock(const QString &text)
{
    if (!isNearlyVisible(currentBlock())) {
        setCurrentBlockState(Unchecked);
        return;
    }
    setCurrentBlockState(Checked);
    if (m_options.spelling && m_spelling) {
        QTextCharFormat wrong;
        wrong.setUnderlineStyle(QTextCharFormat::SpellCheckUnderline);
        wrong.setUnderlineColor(Qt::red);
        for (const auto &word : m_spelling->misspelledWords(text))
            setFormat(word.first, word.second, wrong);
    }
    if (m_options.links) {
        QTextCharFormat link;
        link.setFontUnderline(true);
        link.setForeground(m_view->palette().color(QPalette::Link));
        auto it = linkPattern().globalMatch(text);
        while (it.hasNext()) {
            const auto match = it.next();
            setFormat(int(match.capturedStart()), int(match.capturedLength()), link);
        }
    }
}

QString TextServices::linkAt(int position) const
{
    const QTextBlock block = m_view->document()->findBlock(position);
    const int offset = position - block.position();
    auto it = linkPattern().globalMatch(block.text());
    while (it.hasNext()) {
        const auto match = it.next();
        if (offset >= match.capturedStart() && offset <= match.capturedEnd())
            return match.captured();
    }
    return QString();
}

bool TextServices::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonRelease && m_options.links) {
        auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() == Qt::LeftButton && (mouse->modifiers() & Qt::ControlModifier)) {
            const int position = m_view->cursorForPosition(mouse->position().toPoint()).position();
            QString link = linkAt(position);
            if (!link.isEmpty()) {
                if (link.startsWith(QStringLiteral("www."), Qt::CaseInsensitive))
                    link.prepend(QStringLiteral("https://"));
                QDesktopServices::openUrl(QUrl(link));
                return true;
            }
        }
    }
    return QSyntaxHighlighter::eventFilter(watched, event);
}

QPair<int, int> TextServices::misspelledWordAt(int position)
{
    if (!m_options.spelling || !m_spelling)
        return {-1, 0};
    const QTextBlock block = m_view->document()->findBlock(position);
    const int offset = position - block.position();
    for (const auto &word : m_spelling->misspelledWords(block.text())) {
        if (offset >= word.first && offset <= word.first + word.second)
            return {block.position() + word.first, word.second};
    }
    return {-1, 0};
}

void TextServices::addSpellingActions(QMenu *menu, int position)
{
    const QPair<int, int> word = misspelledWordAt(position);
    if (word.first < 0 || !m_view->isEditable())
        return;
    const QString misspelled = m_view->model().buffer().mid(word.first, word.second);
    QAction *first = menu->actions().value(0);
    const QStringList suggestions = m_spelling->suggestions(misspelled);
    for (const QString &suggestion : suggestions) {
        auto *action = new QAction(suggestion, menu);
        action->setObjectName(QStringLiteral("spellingSuggestion"));
        //% "Replace the misspelled word with this one"
        action->setToolTip(qtTrId("EDITOR_SPELLING_SUGGESTION_TIP"));
        connect(action, &QAction::triggered, m_view, [this, word, suggestion] {
            m_view->replaceAsTyped(word, suggestion, QStringLiteral("UNDO_TYPING"));
        });
        menu->insertAction(first, action);
    }
    if (suggestions.isEmpty()) {
        //% "No Guesses Found"
        auto *none = new QAction(qtTrId("EDITOR_SPELLING_NO_GUESSES"), menu);
        none->setEnabled(false);
        menu->insertAction(first, none);
    }
    //% "Add to Dictionary"
    auto *learn = new QAction(qtTrId("EDITOR_SPELLING_LEARN"), menu);
    learn->setObjectName(QStringLiteral("spellingLearn"));
    //% "Accept this word as correct from now on"
    learn->setToolTip(qtTrId("EDITOR_SPELLING_LEARN_TIP"));
    connect(learn, &QAction::triggered, this, [this, misspelled] {
        m_spelling->addToDictionary(misspelled);
        rehighlight();
    });
    menu->insertAction(first, learn);
    menu->insertSeparator(first);
}

void TextServices::textTyped(const QString &text)
{
    // "word -- word" and "word--word": the two hyphens become an em dash once the next
    // character is typed, so "---" and "--option" stay as written.
    if (!m_options.dashes || text.size() != 1 || text == u"-")
        return;
    const int caret = m_view->selectedRange().first;
    const int at = caret - 3; // the hyphens sit just before the typed character
    if (at < 1)
        return;
    const QString before = m_view->model().buffer().mid(at - 1, 3);
    const QChar left = before.at(0);
    const QChar typed = text.at(0);
    if (before.mid(1) != u"--" || left == u'-' || left == u'\n')
        return;
    const bool spaced = left == u' ' && typed == u' ';
    const bool joined = left.isLetterOrNumber() && typed.isLetterOrNumber();
    if (spaced || joined)
        m_view->undoCustomInsertionInRange({at, 2}, QStringLiteral("\u2014"));
}

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
    : QObject(view)
    , m_view(view)
{
    m_visibleCheck.setSingleShot(true);
    m_visibleCheck.setInterval(0);
    connect(&m_visibleCheck, &QTimer::timeout, this, &TextServices::checkVisibleBlocks);
    connect(view->verticalScrollBar(), &QScrollBar::valueChanged, &m_visibleCheck,
            qOverload<>(&QTimer::start));
    connect(view, &QPlainTextEdit::textChanged, &m_visibleCheck, qOverload<>(&QTimer::start));
    // The view scrolls itself (to the caret, say) without its scroll bar telling anyone.
    connect(view, &QPlainTextEdit::updateRequest, this, [this](const QRect &, int dy) {
        if (dy)
            m_visibleCheck.start();
    });
    view->viewport()->installEventFilter(this);
    attachDocument();
}

TextServices::~TextServices() = default;

void TextServices::attachDocument()
{
    if (m_document)
        disconnect(m_document, nullptr, this, nullptr);
    m_document = m_view->document();
    connect(m_document, &QTextDocument::contentsChange, this, &TextServices::contentsChanged);
    m_visibleCheck.start();
}

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
    const bool changed = options.spelling != m_options.spelling || options.links != m_options.links;
    m_options = options;
    if (options.spelling)
        spellChecker();
    if (!changed)
        return;
    if (marks())
        remarkAll();
    else
        clearAllBlocks();
}

void TextServices::remarkAll()
{
    // Paragraphs off screen keep their old marks until they come into view, where the new
    // generation no longer matches theirs.
    ++m_generation;
    checkVisibleBlocks();
}

int TextServices::stamp(const QTextBlock &block) const
{
    const int value = int(qHash(block.text(), size_t(m_generation)) & 0x3fffffff);
    return value + 1; // never -1, the state of a paragraph not yet looked at
}

void TextServices::contentsChanged(int position, int removed, int added)
{
    if (!marks() || !m_document)
        return;
    Q_UNUSED(removed);
    // Edited paragraphs carry marks whose offsets no longer fit: they are redone now, before
    // the view paints them. A large change (a load, a paste) makes new paragraphs, which
    // carry none; only the two at its ends can hold stale ones.
    QTextBlock first = m_document->findBlock(position);
    const QTextBlock last = m_document->findBlock(position + added);
    if (last.blockNumber() - first.blockNumber() > 100) {
        checkBlock(first);
        checkBlock(last);
        return;
    }
    for (QTextBlock block = first; block.isValid(); block = block.next()) {
        checkBlock(block);
        if (block == last)
            break;
    }
}

void TextServices::checkVisibleBlocks()
{
    if (!marks() || !m_document)
        return;
    QTextBlock block = m_view->firstVisibleTextBlock();
    if (block.isValid() && block.previous().isValid())
        block = block.previous();
    const int lineHeight = std::max(1, m_view->fontMetrics().lineSpacing());
    for (int left = m_view->viewport()->height() / lineHeight + 3; block.isValid() && left > 0;
         --left, block = block.next()) {
        if (block.userState() != stamp(block))
            checkBlock(block);
    }
}

namespace {
// Formats the input method laid over its preedit text stay; ours replace the rest.
QList<QTextLayout::FormatRange> preeditFormats(const QTextLayout *layout)
{
    QList<QTextLayout::FormatRange> kept;
    const int start = layout->preeditAreaPosition();
    const int end = start + int(layout->preeditAreaText().size());
    if (layout->preeditAreaText().isEmpty())
        return kept;
    for (const auto &range : layout->formats())
        if (range.start >= start && range.start + range.length <= end)
            kept << range;
    return kept;
}

void setBlockFormats(QTextDocument *document, QTextBlock block,
                     const QList<QTextLayout::FormatRange> &formats)
{
    QTextLayout *layout = block.layout();
    if (layout->formats() == formats)
        return;
    layout->setFormats(formats);
    document->markContentsDirty(block.position(), block.length());
}
} // namespace

void TextServices::checkBlock(QTextBlock block)
{
    if (!block.isValid())
        return;
    const QString text = block.text();
    QList<QTextLayout::FormatRange> formats = preeditFormats(block.layout());
    if (m_options.spelling && m_spelling) {
        QTextCharFormat wrong;
        wrong.setUnderlineStyle(QTextCharFormat::SpellCheckUnderline);
        wrong.setUnderlineColor(Qt::red);
        for (const auto &word : m_spelling->misspelledWords(text))
            formats.append({word.first, word.second, wrong});
    }
    if (m_options.links) {
        QTextCharFormat link;
        link.setFontUnderline(true);
        link.setForeground(m_view->palette().color(QPalette::Link));
        auto it = linkPattern().globalMatch(text);
        while (it.hasNext()) {
            const auto match = it.next();
            formats.append({int(match.capturedStart()), int(match.capturedLength()), link});
        }
    }
    block.setUserState(stamp(block));
    setBlockFormats(m_document, block, formats);
}

void TextServices::clearBlock(QTextBlock block)
{
    block.setUserState(-1);
    setBlockFormats(m_document, block, preeditFormats(block.layout()));
}

void TextServices::clearAllBlocks()
{
    if (!m_document)
        return;
    // Switching the marks off is rare; every paragraph that was ever marked is found by its
    // state.
    for (QTextBlock block = m_document->begin(); block.isValid(); block = block.next())
        if (block.userState() != -1)
            clearBlock(block);
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
    return QObject::eventFilter(watched, event);
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
        remarkAll();
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

#include "ViewTextBuffer.h"

#include "BackgroundDocumentLoad.h"
#include "editor/TextClasses.h"

#include <QPlainTextEdit>

#include <algorithm>

namespace {
// What the document makes of a text's line breaks, so the text held while loading reads
// exactly as the document will.
QString asDocumentReadsIt(const QString &text)
{
    QString result = DocumentTextBuffer::normalisedLineBreaks(text);
    result.replace(QChar(0xfdd0), u'\n'); // the toolkit's frame marks break paragraphs too
    result.replace(QChar(0xfdd1), u'\n');
    return result;
}
} // namespace

ViewTextBuffer::ViewTextBuffer(QPlainTextEdit *view)
    : DocumentTextBuffer(view->document())
    , m_view(view)
    , m_load(std::make_unique<BackgroundDocumentLoad>(view))
{
    // The view's cursor is the selection here; a second one on the document would only be
    // carried along by every insertion, once per line when an entry loads.
    m_cursor = QTextCursor();
    QObject::connect(m_load.get(), &BackgroundDocumentLoad::documentReplaced, m_load.get(),
                     [this] { documentReplaced(); });
}

ViewTextBuffer::~ViewTextBuffer() = default;

bool ViewTextBuffer::isLoading() const
{
    return m_load->isLoading();
}

void ViewTextBuffer::finishLoading() const
{
    m_load->finish();
}

void ViewTextBuffer::documentReplaced()
{
    m_document = m_view->document();
    setSelection(m_pendingSelection);
}

int ViewTextBuffer::length() const
{
    return isLoading() ? int(m_load->text().size()) : DocumentTextBuffer::length();
}

QChar ViewTextBuffer::at(int pos) const
{
    if (!isLoading())
        return DocumentTextBuffer::at(pos);
    return pos >= 0 && pos < length() ? m_load->text().at(pos) : QChar();
}

QString ViewTextBuffer::mid(int pos, int len) const
{
    if (!isLoading())
        return DocumentTextBuffer::mid(pos, len);
    const TextRange r = clamped({pos, len});
    return m_load->text().mid(r.location, r.length);
}

int ViewTextBuffer::replace(int pos, int len, const QString &text)
{
    finishLoading();
    return DocumentTextBuffer::replace(pos, len, text);
}

TextRange ViewTextBuffer::selection() const
{
    if (isLoading())
        return m_pendingSelection;
    const QTextCursor cursor = m_view->textCursor();
    return {cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()};
}

void ViewTextBuffer::setSelection(TextRange range)
{
    const TextRange r = clamped(range);
    if (isLoading()) {
        m_pendingSelection = r;
        return;
    }
    QTextCursor cursor = m_view->textCursor();
    cursor.setPosition(r.location);
    cursor.setPosition(r.end(), QTextCursor::KeepAnchor);
    m_view->setTextCursor(cursor);
}

void ViewTextBuffer::setText(const QString &text)
{
    m_load->cancel();
    m_pendingSelection = {};
    if (text.size() >= BackgroundDocumentLoad::kBackgroundSize) {
        // The old text goes at once; the new one follows when built.
        m_view->document()->setPlainText(QString());
        m_load->start(asDocumentReadsIt(text));
        return;
    }
    // Straight into the document, then the caret back to the start as the view's own
    // setPlainText leaves it: that one also lays the caret's character format over the whole
    // text afterwards, which the editor's plain text never needs and which costs a sixth of
    // loading a long list-heavy entry.
    m_view->document()->setPlainText(text);
    m_view->document()->setModified(false);
    m_view->moveCursor(QTextCursor::Start);
}

int ViewTextBuffer::lineStart(int pos) const
{
    if (!isLoading())
        return DocumentTextBuffer::lineStart(pos);
    pos = std::clamp(pos, 0, length());
    const QString &text = m_load->text();
    while (pos > 0 && !TextClasses::isNewline(text.at(pos - 1)))
        --pos;
    return pos;
}

int ViewTextBuffer::indexOf(const QString &needle, int from) const
{
    if (!isLoading())
        return DocumentTextBuffer::indexOf(needle, from);
    if (needle.isEmpty() || from > length())
        return -1;
    return int(m_load->text().indexOf(needle, std::max(0, from)));
}

int ViewTextBuffer::lastIndexOf(const QString &needle, int before) const
{
    if (!isLoading())
        return DocumentTextBuffer::lastIndexOf(needle, before);
    const int n = int(needle.size());
    before = std::min(before, length());
    if (n == 0 || before < n)
        return -1;
    return int(m_load->text().lastIndexOf(needle, before - n));
}

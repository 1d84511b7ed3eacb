#include "SpacedTextLayout.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

#include <cmath>

namespace {
bool near(qreal a, qreal b)
{
    return std::abs(a - b) < 0.01;
}
} // namespace

SpacedTextLayout::SpacedTextLayout(QTextDocument *document)
    : QPlainTextDocumentLayout(document)
{}

void SpacedTextLayout::setSpacing(const Spacing &spacing)
{
    if (spacing == m_spacing)
        return;
    m_spacing = spacing;
    QTextDocument *doc = document();
    // The stock layout redoes every block on a full change; ours follows when measured.
    documentChanged(0, 0, doc->characterCount());
}

bool SpacedTextLayout::laidOutHere(const QTextBlock &block) const
{
    const QTextLayout *tl = block.layout();
    if (!tl || tl->lineCount() == 0)
        return false;
    const qreal margin = document()->documentMargin();
    const QTextLine first = tl->lineAt(0);
    if (!near(first.y(), m_spacing.paragraphSpacing))
        return false;
    if (!near(first.x(), margin + m_spacing.firstLineIndent))
        return false;
    if (tl->lineCount() > 1) {
        const QTextLine second = tl->lineAt(1);
        if (!near(second.y(), first.y() + first.height() + m_spacing.lineSpacing))
            return false;
    }
    return true;
}

void SpacedTextLayout::layoutSpaced(const QTextBlock &block) const
{
    QTextLayout *tl = block.layout();
    QTextDocument *doc = document();
    const qreal margin = doc->documentMargin();
    // The width to fill is only known to the stock layout: read it off its lines.
    if (tl->lineCount() == 0)
        ensureBlockLayout(block);
    if (tl->lineCount() == 0)
        return;
    const bool ours = laidOutHere(block);
    const qreal available = tl->lineAt(0).width() + (ours ? m_spacing.firstLineIndent : 0);
    tl->setTextOption(doc->defaultTextOption());
    const int previousLines = tl->lineCount();
    qreal y = m_spacing.paragraphSpacing;
    tl->beginLayout();
    for (int i = 0;; ++i) {
        QTextLine line = tl->createLine();
        if (!line.isValid())
            break;
        const qreal indent = i == 0 ? m_spacing.firstLineIndent : 0;
        line.setLeadingIncluded(true);
        line.setLineWidth(std::max<qreal>(1, available - indent));
        line.setPosition(QPointF(margin + indent, y));
        y += line.height() + m_spacing.lineSpacing;
    }
    tl->endLayout();
    const int lines = block.isVisible() ? tl->lineCount() : 0;
    const_cast<QTextBlock &>(block).setLineCount(lines);
    if (lines != previousLines) {
        auto *self = const_cast<SpacedTextLayout *>(this);
        Q_EMIT self->documentSizeChanged(documentSize());
    }
}

QRectF SpacedTextLayout::blockBoundingRect(const QTextBlock &block) const
{
    if (!block.isValid() || !isSpaced())
        return QPlainTextDocumentLayout::blockBoundingRect(block);
    if (!laidOutHere(block))
        layoutSpaced(block);
    QRectF r = QPlainTextDocumentLayout::blockBoundingRect(block);
    // Line spacing also follows the paragraph's last line.
    if (block.isVisible() && block.layout()->lineCount() > 0)
        r.setHeight(r.height() + m_spacing.lineSpacing);
    return r;
}

void SpacedTextLayout::documentChanged(int from, int charsRemoved, int charsAdded)
{
    QPlainTextDocumentLayout::documentChanged(from, charsRemoved, charsAdded);
    if (!isSpaced())
        return;
    QTextDocument *doc = document();
    QTextBlock block = doc->findBlock(from);
    const QTextBlock last = doc->findBlock(std::max(from, from + charsAdded - 1));
    // Long changes (a whole entry loading) are left to be measured lazily, as the stock
    // layout does when the width changes.
    if (charsAdded > 4096)
        return;
    while (block.isValid()) {
        layoutSpaced(block);
        if (block == last)
            break;
        block = block.next();
    }
    Q_EMIT update(QRectF(0., -doc->documentMargin(), 1000000000., 1000000000.));
}

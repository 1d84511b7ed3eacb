#pragma once

#include "TextBuffer.h"

#include <QPointer>
#include <QTextCursor>
#include <QTextDocument>

// A TextBuffer over a QTextDocument. Characters and spans are read through the document's
// blocks, so a question about the caret's line costs the length of that line, not of the
// text. The document's paragraph separator (U+2029) reads as "\n".
class DocumentTextBuffer : public TextBuffer
{
public:
    explicit DocumentTextBuffer(QTextDocument *document);

    int length() const override;
    QChar at(int pos) const override;
    QString mid(int pos, int len) const override;
    int replace(int pos, int len, const QString &text) override;
    void setText(const QString &text) override;
    TextRange selection() const override;
    void setSelection(TextRange range) override;
    int lineStart(int pos) const override;
    int indexOf(const QString &needle, int from) const override;
    int lastIndexOf(const QString &needle, int before) const override;

    QTextDocument *document() const { return m_document; }

    // The document's own paragraph separators and stray carriage returns as "\n", which is
    // what a paste or a load turns them into anyway; keeps lengths the same before and
    // after insertion.
    static QString normalisedLineBreaks(const QString &text);

protected:
    QPointer<QTextDocument> m_document;
    QTextCursor m_cursor;
};

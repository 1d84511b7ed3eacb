#pragma once

#include <QChar>
#include <QString>

// A span of UTF-16 units.
struct TextRange
{
    int location = 0;
    int length = 0;

    int end() const { return location + length; }
    bool operator==(const TextRange &other) const = default;
};

// The text the editor's rules work on, with its selection. The rules only ever ask for
// characters and short spans near the caret, so an implementation over a large document
// answers them without materialising the text before the caret. Line breaks read as "\n"
// whatever the storage uses.
class TextBuffer
{
public:
    virtual ~TextBuffer();

    virtual int length() const = 0;
    // The unit at pos; a null QChar outside the text.
    virtual QChar at(int pos) const = 0;
    // The units of [pos, pos + len), clamped to the text.
    virtual QString mid(int pos, int len) const = 0;
    // Replaces the span and returns how many units now stand in its place. The selection is
    // the caller's business afterwards.
    virtual int replace(int pos, int len, const QString &text) = 0;
    // Replaces everything.
    virtual void setText(const QString &text) = 0;

    virtual TextRange selection() const = 0;
    virtual void setSelection(TextRange range) = 0;

    // Start of the line holding pos: just after the last newline character before pos.
    virtual int lineStart(int pos) const;
    // First occurrence of needle starting at or after from, or -1.
    virtual int indexOf(const QString &needle, int from) const;
    // Last occurrence of needle lying wholly before `before`, or -1.
    virtual int lastIndexOf(const QString &needle, int before) const;

    QString text() const { return mid(0, length()); }
    TextRange clamped(TextRange range) const;
};

#pragma once

#include "TextBuffer.h"

// A TextBuffer over a plain QString: what the rules are tested on.
class StringTextBuffer : public TextBuffer
{
public:
    explicit StringTextBuffer(const QString &text = QString(), TextRange selection = {});

    int length() const override { return int(m_text.size()); }
    QChar at(int pos) const override;
    QString mid(int pos, int len) const override;
    int replace(int pos, int len, const QString &text) override;
    void setText(const QString &text) override;
    TextRange selection() const override { return m_selection; }
    void setSelection(TextRange range) override;
    int indexOf(const QString &needle, int from) const override;
    int lastIndexOf(const QString &needle, int before) const override;

    const QString &string() const { return m_text; }

private:
    QString m_text;
    TextRange m_selection;
};

#pragma once

#include "editor/DocumentTextBuffer.h"

class QPlainTextEdit;

// The text view's document, with the view's own cursor as the selection.
class ViewTextBuffer : public DocumentTextBuffer
{
public:
    explicit ViewTextBuffer(QPlainTextEdit *view);

    TextRange selection() const override;
    void setSelection(TextRange range) override;
    void setText(const QString &text) override;

private:
    QPlainTextEdit *m_view;
};

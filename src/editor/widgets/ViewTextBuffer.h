#pragma once

#include "editor/DocumentTextBuffer.h"

#include <memory>

class BackgroundDocumentLoad;
class QPlainTextEdit;

// The view's document, with the view's own cursor as the selection. A long text is loaded
// in the background; until it is in the view, questions about the text are answered from
// the text itself, and the first edit waits for the load to finish.
class ViewTextBuffer : public DocumentTextBuffer
{
public:
    explicit ViewTextBuffer(QPlainTextEdit *view);
    ~ViewTextBuffer() override;

    int length() const override;
    QChar at(int pos) const override;
    QString mid(int pos, int len) const override;
    int replace(int pos, int len, const QString &text) override;
    TextRange selection() const override;
    void setSelection(TextRange range) override;
    void setText(const QString &text) override;
    int lineStart(int pos) const override;
    int indexOf(const QString &needle, int from) const override;
    int lastIndexOf(const QString &needle, int before) const override;

    BackgroundDocumentLoad &load() const { return *m_load; }
    bool isLoading() const;
    void finishLoading() const;

private:
    void documentReplaced();

    QPlainTextEdit *m_view;
    std::unique_ptr<BackgroundDocumentLoad> m_load;
    TextRange m_pendingSelection;
};

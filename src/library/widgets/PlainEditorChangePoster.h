#pragma once

#include <QObject>
#include <QTimer>

class QPlainTextEdit;

// Announces the user's edits of a plain editor the way the entry editor does: one
// "TextChangedShouldBeSavedNotification" 0.1 s after the last change. Only for a plain
// QPlainTextEdit; the entry editor posts by itself.
class PlainEditorChangePoster : public QObject
{
    Q_OBJECT
public:
    explicit PlainEditorChangePoster(QPlainTextEdit *editor);

private:
    QPlainTextEdit *m_editor;
    QTimer m_timer;
};

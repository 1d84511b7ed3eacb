#pragma once

#include <QObject>
#include <QPointer>

class EntryController;
class MessageBar;
class QLineEdit;

// Puts what happened to the open entry's text into the window's message bar, with the
// ways out: a failed save (Retry, Save As…), a file changed elsewhere (Reload Theirs, Keep
// Mine), a read-only entry and a title that cannot become a file name. Also answers the
// entry controller's "where to save a copy?" with a file chooser.
class EntryMessages : public QObject
{
    Q_OBJECT
public:
    EntryMessages(EntryController *entries, MessageBar *bar, QLineEdit *titleField,
                  QObject *parent = nullptr);

    // The chooser "Save As…" opens; "" when cancelled.
    QString chooseSaveAsPath(const QString &suggestedName);

private:
    void showSaveFailed(const QString &title, const QString &reason);
    void showChangedOnDisk(const QString &title);

    EntryController *m_entries;
    QPointer<MessageBar> m_bar;
    QPointer<QLineEdit> m_titleField;
};

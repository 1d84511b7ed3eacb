#pragma once

#include "search/GrepSearch.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

class EntryController;
class QLineEdit;
class UserDefaults;

// Typing in the title field narrows the entry list to the entries whose text or name holds
// the title, 0.1 s after the last keystroke, and selects the entry named so. The window
// never waits for the search; a newer term ends the older search.
class TitleSearchController : public QObject
{
    Q_OBJECT
public:
    TitleSearchController(EntryController *entries, QLineEdit *titleField, UserDefaults &defaults,
                          QObject *parent = nullptr);

    GrepSearch &search() { return m_search; }
    // The whole notebook again, the entry named by the title field selected.
    void unlockSearchResults();

Q_SIGNALS:
    // The list now shows this result of a search.
    void listNarrowed(const QString &term, const QStringList &result);

private:
    void onTitleChanged(const QString &title);
    void performGrepSearchHelper();
    void showResult(const QString &term, const QStringList &contentMatches);

    EntryController *m_entries;
    QPointer<QLineEdit> m_titleField;
    UserDefaults &m_defaults;
    GrepSearch m_search;
    QTimer m_delay;
};

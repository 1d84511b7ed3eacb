#pragma once

#include <QObject>
#include <QPair>
#include <QStringList>

#include <functional>

class EnhancedTextView;
class QCompleter;
class QStringListModel;

// Completion of the word before the caret from a list the view supplies (the tab-action
// abbreviations), shown in a pop-up under the caret. Typing on narrows the list; a choice
// replaces the partial word.
class WordCompleter : public QObject
{
    Q_OBJECT
public:
    using Source = std::function<QStringList(const QString &partial)>;
    WordCompleter(EnhancedTextView *view, Source source);

    // The partial word before the caret: back to the previous blank or line start.
    QPair<int, int> rangeForUserCompletion() const;
    // Shows the pop-up; false (and a beep) when nothing completes the partial word.
    bool complete();
    void insertCompletion(const QString &word);
    QCompleter *completer() const { return m_completer; }

private:
    void narrow();

    EnhancedTextView *m_view;
    Source m_source;
    QCompleter *m_completer;
    QStringListModel *m_model;
};

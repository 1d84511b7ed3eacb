#include "WordCompleter.h"

#include "EnhancedTextView.h"
#include "editor/TextBuffer.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QScrollBar>
#include <QStringListModel>

WordCompleter::WordCompleter(EnhancedTextView *view, Source source)
    : QObject(view)
    , m_view(view)
    , m_source(std::move(source))
    , m_completer(new QCompleter(this))
    , m_model(new QStringListModel(this))
{
    m_completer->setModel(m_model);
    m_completer->setWidget(view);
    m_completer->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    m_completer->setCaseSensitivity(Qt::CaseSensitive);
    //% "Completions"
    m_completer->popup()->setAccessibleName(qtTrId("EDITOR_COMPLETIONS"));
    //% "Abbreviations of your tab actions that begin with the word being typed"
    m_completer->popup()->setToolTip(qtTrId("EDITOR_COMPLETIONS_TIP"));
    connect(m_completer, qOverload<const QString &>(&QCompleter::activated), this,
            &WordCompleter::insertCompletion);
    connect(view, &QPlainTextEdit::textChanged, this, [this] {
        if (m_completer->popup()->isVisible())
            narrow();
    });
}

QPair<int, int> WordCompleter::rangeForUserCompletion() const
{
    const int caret = m_view->selectedRange().first;
    const TextBuffer &buffer = m_view->model().buffer();
    int start = caret;
    while (start > 0 && !buffer.at(start - 1).isSpace())
        --start;
    return {start, caret - start};
}

bool WordCompleter::complete()
{
    const auto range = rangeForUserCompletion();
    const QString partial = m_view->model().buffer().mid(range.first, range.second);
    const QStringList words = m_source(partial);
    if (words.isEmpty() || !m_view->isEditable()) {
        QApplication::beep();
        return false;
    }
    m_model->setStringList(words);
    QRect rect = m_view->cursorRect();
    rect.translate(m_view->viewport()->pos());
    QAbstractItemView *popup = m_completer->popup();
    rect.setWidth(popup->sizeHintForColumn(0) + popup->verticalScrollBar()->sizeHint().width() +
                  24);
    m_completer->complete(rect);
    popup->setCurrentIndex(m_model->index(0));
    return true;
}

void WordCompleter::narrow()
{
    const auto range = rangeForUserCompletion();
    const QStringList words = m_source(m_view->model().buffer().mid(range.first, range.second));
    if (words.isEmpty()) {
        m_completer->popup()->hide();
        return;
    }
    m_model->setStringList(words);
    m_completer->popup()->setCurrentIndex(m_model->index(0));
}

void WordCompleter::insertCompletion(const QString &word)
{
    m_completer->popup()->hide();
    m_view->replaceAsTyped(rangeForUserCompletion(), word, QStringLiteral("UNDO_TYPING"));
}

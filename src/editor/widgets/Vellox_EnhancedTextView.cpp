#include "Vellox_EnhancedTextView.h"

#include "WordCompleter.h"
#include "editor/TabActionStore.h"
#include "editor/TextBuffer.h"
#include "editor/WordCompletion.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>

Vellox_EnhancedTextView::Vellox_EnhancedTextView(UserDefaults &defaults, QWidget *parent)
    : EnhancedTextView(defaults, parent)
    , m_completer(new WordCompleter(this, [this](const QString &partial) {
        return WordCompletion::completionsForPartialWord(partial, availableTabActions());
    }))
{}

QVariantMap Vellox_EnhancedTextView::availableTabActions() const
{
    return TabActionStore::availableTabActions(TabActionStore::FileSettings::from(defaults()));
}

void Vellox_EnhancedTextView::sendNotifactionUpdatesTextCountUpdate()
{
    // Nothing counts words here yet; the hook stays so the schedule stays as it is.
}

QStringList Vellox_EnhancedTextView::completionsForPartialWordRange(QPair<int, int> range) const
{
    return WordCompletion::completionsForPartialWord(
        model().buffer().mid(range.first, range.second), availableTabActions());
}

void Vellox_EnhancedTextView::complete()
{
    m_completer->complete();
}

void Vellox_EnhancedTextView::keyPressEvent(QKeyEvent *e)
{
    // While the completions show, these keys choose or dismiss; the pop-up acts on them once
    // the editor leaves them alone.
    if (m_completer->completer()->popup()->isVisible()) {
        switch (e->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Escape:
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            e->ignore();
            return;
        default:
            break;
        }
    }
    EnhancedTextView::keyPressEvent(e);
}

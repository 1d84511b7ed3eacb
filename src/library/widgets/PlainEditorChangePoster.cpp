#include "PlainEditorChangePoster.h"

#include "core/NotificationCenter.h"
#include "core/Notifications.h"

#include <QPlainTextEdit>

PlainEditorChangePoster::PlainEditorChangePoster(QPlainTextEdit *editor)
    : QObject(editor)
    , m_editor(editor)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(100);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        NotificationCenter::defaultCenter().post(Notifications::TextChangedShouldBeSaved, m_editor);
    });
    connect(editor, &QPlainTextEdit::textChanged, &m_timer, qOverload<>(&QTimer::start));
}

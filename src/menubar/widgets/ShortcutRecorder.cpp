#include "ShortcutRecorder.h"

#include "menubar/X11HotKey.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QToolButton>

ShortcutRecorder::ShortcutRecorder(QWidget *parent)
    : QWidget(parent)
    , m_field(new QLineEdit(this))
    , m_clear(new QToolButton(this))
{
    m_field->setObjectName(QStringLiteral("shortcutRecorderField"));
    m_field->setReadOnly(true);
    //% "Click and press a key combination"
    m_field->setPlaceholderText(qtTrId("SHORTCUT_RECORDER_PLACEHOLDER"));
    //% "Global key combination"
    m_field->setAccessibleName(qtTrId("SHORTCUT_RECORDER"));
    //% "Press the combination that should open and close the capture panel from any program"
    m_field->setToolTip(qtTrId("SHORTCUT_RECORDER_TIP"));
    m_field->installEventFilter(this);
    m_clear->setObjectName(QStringLiteral("shortcutRecorderClear"));
    m_clear->setIcon(QIcon::fromTheme(QStringLiteral("edit-clear")));
    //% "Clear"
    m_clear->setText(qtTrId("SHORTCUT_RECORDER_CLEAR"));
    m_clear->setAccessibleName(m_clear->text());
    //% "Remove the global key combination"
    m_clear->setToolTip(qtTrId("SHORTCUT_RECORDER_CLEAR_TIP"));
    connect(m_clear, &QToolButton::clicked, this, &ShortcutRecorder::clear);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_field, 1);
    layout->addWidget(m_clear);
    setFocusProxy(m_field);
}

void ShortcutRecorder::setShortcut(const GlobalShortcut &shortcut)
{
    m_shortcut = shortcut;
    showShortcut();
}

void ShortcutRecorder::showShortcut()
{
    m_field->setText(m_shortcut.sequence().toString(QKeySequence::NativeText));
}

void ShortcutRecorder::clear()
{
    if (!m_shortcut.isSet())
        return;
    m_shortcut = GlobalShortcut();
    showShortcut();
    Q_EMIT shortcutChanged();
}

bool ShortcutRecorder::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_field)
        return QWidget::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        // Every key belongs to the recording, not to the window's menus.
        event->accept();
        return true;
    case QEvent::KeyPress:
        return handleKey(static_cast<QKeyEvent *>(event));
    case QEvent::KeyRelease:
        return true;
    default:
        return QWidget::eventFilter(watched, event);
    }
}

bool ShortcutRecorder::handleKey(QKeyEvent *event)
{
    const int key = event->key();
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    if (GlobalShortcut::isModifierKey(key))
        return true;
    if (modifiers == Qt::NoModifier && key == Qt::Key_Escape) {
        showShortcut();
        m_field->clearFocus();
        return true;
    }
    if (modifiers == Qt::NoModifier && (key == Qt::Key_Backspace || key == Qt::Key_Delete)) {
        clear();
        return true;
    }
    // Tab and Backtab keep moving the focus.
    if ((key == Qt::Key_Tab || key == Qt::Key_Backtab) &&
        !(modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)))
        return false;
    const QString problem = GlobalShortcut::problemWith(key, modifiers);
    if (!problem.isEmpty()) {
        Q_EMIT refused(problem);
        return true;
    }
    // Under X11 the event carries the key code; elsewhere the keyboard map is asked.
    int keyCode = int(event->nativeScanCode());
    if (keyCode <= 0 || keyCode > 255)
        keyCode = X11HotKey::keyCodeForQtKey(key);
    m_shortcut = GlobalShortcut::fromKey(key, modifiers, keyCode);
    showShortcut();
    Q_EMIT shortcutChanged();
    return true;
}

#pragma once

#include "menubar/GlobalShortcut.h"

#include <QWidget>

class QLineEdit;
class QToolButton;

// Records one key combination for the global key: click, press the keys, done. Escape
// cancels the recording, Backspace or the clear button clears the combination. Keys that
// cannot be a global key (a bare letter) are refused with the reason.
class ShortcutRecorder : public QWidget
{
    Q_OBJECT
public:
    explicit ShortcutRecorder(QWidget *parent = nullptr);

    GlobalShortcut shortcut() const { return m_shortcut; }
    void setShortcut(const GlobalShortcut &shortcut);
    // The value record of the combination ("characters", "charactersIgnoringModifiers",
    // "keyCode", "modifierFlags"); empty when cleared.
    QVariantMap value() const { return m_shortcut.toValue(); }
    QLineEdit *field() const { return m_field; }
    QToolButton *clearButton() const { return m_clear; }

Q_SIGNALS:
    // The user recorded or cleared a combination.
    void shortcutChanged();
    // A key was refused; reason says why.
    void refused(const QString &reason);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void showShortcut();
    void clear();
    bool handleKey(QKeyEvent *event);

    GlobalShortcut m_shortcut;
    QLineEdit *m_field;
    QToolButton *m_clear;
};

#pragma once

#include <QWidget>

class QLabel;
class ShortcutRecorder;
class UserDefaults;

// The preferences pane of the global key: the recorder, and a line saying what became of
// the combination (active, taken by another program, impossible in this session).
class GlobalShortcutPane : public QWidget
{
    Q_OBJECT
public:
    explicit GlobalShortcutPane(UserDefaults &defaults, QWidget *parent = nullptr);

    // The recorder's action: stores the combination, or removes it when cleared.
    void saveTheShortCut();

    ShortcutRecorder *recorder() const { return m_recorder; }
    QLabel *statusLabel() const { return m_status; }

private:
    void showStatus(const QString &text, bool problem);
    void showLastReport();

    UserDefaults &m_defaults;
    ShortcutRecorder *m_recorder;
    QLabel *m_status;
};

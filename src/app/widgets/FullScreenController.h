#pragma once

#include <QObject>
#include <QPointer>
#include <QRectF>

#include "FullScreenBackdrop.h"
class MainWindow;
class QBoxLayout;
class QWidget;
class UserDefaults;
class EnhancedTextView;

// Full-screen writing. toggleFullscreen() turns the main window itself full screen with only
// the text (editor or preview) on the background; distractionFreeModus() moves the editor
// into a borderless window of its own over the current screen. The editor is the same
// widget in every form, so its text, caret and undo history are never copied anywhere.
class FullScreenController : public QObject
{
    Q_OBJECT
public:
    FullScreenController(MainWindow *window, EnhancedTextView *editor, UserDefaults &defaults,
                         QObject *parent = nullptr);
    ~FullScreenController() override;

    void toggleFullscreen();
    void distractionFreeModus();
    // Places the text again after a change of screen or of the full-screen settings.
    void setupTextviewFullscreen();

    bool fullscreenActive() const { return nativeActive() || distractionFreeActive(); }
    bool nativeActive() const { return m_stage != nullptr; }
    bool distractionFreeActive() const { return m_borderless != nullptr; }
    FullScreenBackdrop *borderlessWindow() const { return m_borderless; }
    FullScreenBackdrop *stage() const { return m_stage; }
    // Where the text sits now, in the coordinates of the stage or the borderless window.
    QRectF textRect() const { return m_textRect; }

Q_SIGNALS:
    void fullscreenChanged(bool active);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void enterNative();
    void leaveNative();
    void borderless();
    void borderful();

    MainWindow *m_window;
    EnhancedTextView *m_editor;
    UserDefaults &m_defaults;
    QPointer<FullScreenBackdrop> m_stage;
    QPointer<FullScreenBackdrop> m_borderless;
    QWidget *m_savedCentral = nullptr;
    QWidget *m_textColumn = nullptr;
    QBoxLayout *m_contentLayout = nullptr;
    int m_messageBarIndex = 0;
    int m_stackIndex = 1;
    int m_editorIndex = 0;
    bool m_wasMaximized = false;
    bool m_leaving = false;
    QRectF m_textRect;
};

#include "FullScreenController.h"

#include "FullScreenBackdrop.h"
#include "FullScreenLayout.h"
#include "MainWindow.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "editor/widgets/EnhancedTextView.h"
#include "widgets/MessageBar.h"

#include <QAction>
#include <QBoxLayout>
#include <QEvent>
#include <QScreen>
#include <QStackedWidget>
#include <QVBoxLayout>

FullScreenController::FullScreenController(MainWindow *window, EnhancedTextView *editor,
                                           UserDefaults &defaults, QObject *parent)
    : QObject(parent)
    , m_window(window)
    , m_editor(editor)
    , m_defaults(defaults)
{
    NotificationCenter::defaultCenter().addObserver(
        this, Notifications::FullscreenAttributesChanged,
        [this](const Notification &) { setupTextviewFullscreen(); });
    window->installEventFilter(this);
}

FullScreenController::~FullScreenController()
{
    delete m_borderless;
}

void FullScreenController::toggleFullscreen()
{
    if (nativeActive())
        leaveNative();
    else
        enterNative();
}

void FullScreenController::distractionFreeModus()
{
    if (distractionFreeActive())
        borderful();
    else
        borderless();
}

// The text column (message bar above the editor or preview) moves onto a backdrop that
// replaces the window's content; the entry list, side bar and button bars stay behind.
void FullScreenController::enterNative()
{
    QStackedWidget *stack = m_window->contentStack();
    m_contentLayout = qobject_cast<QBoxLayout *>(stack->parentWidget()->layout());
    if (!m_contentLayout)
        return;
    m_messageBarIndex = m_contentLayout->indexOf(m_window->messageBar());
    m_stackIndex = m_contentLayout->indexOf(stack);
    m_wasMaximized = m_window->isMaximized();
    m_savedCentral = m_window->takeCentralWidget();

    m_stage = new FullScreenBackdrop;
    m_textColumn = new QWidget(m_stage);
    auto *column = new QVBoxLayout(m_textColumn);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_window->messageBar());
    column->addWidget(stack, 1);
    connect(m_stage, &FullScreenBackdrop::resized, this,
            &FullScreenController::setupTextviewFullscreen);
    connect(m_stage, &FullScreenBackdrop::escapePressed, this, &FullScreenController::leaveNative);
    m_window->setCentralWidget(m_stage);
    m_window->showFullScreen();
    setupTextviewFullscreen();
    m_editor->setFocus();
    Q_EMIT fullscreenChanged(true);
}

void FullScreenController::leaveNative()
{
    if (!m_stage || m_leaving)
        return;
    m_leaving = true;
    QStackedWidget *stack = m_window->contentStack();
    m_contentLayout->insertWidget(m_messageBarIndex, m_window->messageBar());
    m_contentLayout->insertWidget(m_stackIndex, stack, 1);
    m_window->takeCentralWidget();
    m_window->setCentralWidget(m_savedCentral);
    m_savedCentral->show(); // taking it out of the window hid it
    m_savedCentral = nullptr;
    delete m_stage;
    m_textColumn = nullptr;
    if (m_wasMaximized)
        m_window->showMaximized();
    else
        m_window->showNormal();
    m_leaving = false;
    m_editor->setFocus();
    Q_EMIT fullscreenChanged(distractionFreeActive());
}

// The editor itself moves into a borderless window over the current screen and comes back
// with whatever was written there.
void FullScreenController::borderless()
{
    QStackedWidget *stack = m_window->contentStack();
    m_editorIndex = stack->indexOf(m_editor);
    const QPair<int, int> selection = m_editor->selectedRange();
    stack->removeWidget(m_editor);

    // A window of the main window's, so that desktops keep it above its owner.
    m_borderless = new FullScreenBackdrop(m_window, Qt::Window | Qt::FramelessWindowHint);
    m_borderless->setObjectName(QStringLiteral("distractionFreeWindow"));
    //% "Distraction-Free Writing"
    m_borderless->setWindowTitle(qtTrId("FULLSCREEN_DISTRACTION_FREE"));
    // The menus are out of sight, their keys are not.
    for (QAction *action : m_window->findChildren<QAction *>())
        if (!action->shortcuts().isEmpty())
            m_borderless->addAction(action);
    m_editor->setParent(m_borderless);
    connect(m_borderless, &FullScreenBackdrop::resized, this,
            &FullScreenController::setupTextviewFullscreen);
    connect(m_borderless, &FullScreenBackdrop::escapePressed, this,
            &FullScreenController::borderful);
    QScreen *screen = m_window->screen();
    m_borderless->setGeometry(screen->geometry());
    setupTextviewFullscreen();
    m_editor->show();
    m_borderless->showFullScreen();
    m_borderless->raise();
    m_borderless->activateWindow();
    m_editor->setFocus();
    m_editor->setSelectedRange(selection.first, selection.second);
    m_editor->ensureCursorVisible();
    Q_EMIT fullscreenChanged(true);
}

void FullScreenController::borderful()
{
    if (!m_borderless)
        return;
    const QPair<int, int> selection = m_editor->selectedRange();
    QStackedWidget *stack = m_window->contentStack();
    stack->insertWidget(std::clamp(m_editorIndex, 0, stack->count()), m_editor);
    stack->setCurrentWidget(m_editor);
    m_editor->setVerticalScrollBarPolicy(
        m_editor->appearance().showScrollbars ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    FullScreenBackdrop *window = m_borderless;
    m_borderless = nullptr;
    window->close();
    window->deleteLater();
    m_window->raise();
    m_window->activateWindow();
    m_editor->setFocus();
    m_editor->setSelectedRange(selection.first, selection.second);
    m_editor->ensureCursorVisible();
    Q_EMIT fullscreenChanged(nativeActive());
}

void FullScreenController::setupTextviewFullscreen()
{
    const int width = m_defaults.value(Settings::FullscreenTextviewWidth);
    const int height = m_defaults.value(Settings::FullscreenTextviewHeight);
    if (m_stage && m_textColumn) {
        const QSize screen = m_window->screen()->geometry().size();
        m_stage->setBackground(m_defaults, screen);
        m_textRect = FullScreenLayout::nativeTextRect(QSizeF(screen), width, height);
        m_textColumn->setGeometry(m_textRect.toRect());
    }
    if (m_borderless) {
        const QSize screen = m_borderless->screen()->geometry().size();
        m_borderless->setBackground(m_defaults, screen);
        m_textRect = FullScreenLayout::ownWindowTextRect(QSizeF(screen), width, height);
        m_editor->setGeometry(m_textRect.toRect());
        // No scroller in the borderless window; the wheel and keys still scroll.
        m_editor->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    }
}

bool FullScreenController::eventFilter(QObject *watched, QEvent *event)
{
    // The desktop may end full screen by itself (a key of the window manager).
    if (watched == m_window && event->type() == QEvent::WindowStateChange && m_stage &&
        !m_leaving && !(m_window->windowState() & Qt::WindowFullScreen))
        leaveNative();
    return QObject::eventFilter(watched, event);
}

#include "CapturePanel.h"

#include "core/UserDefaults.h"
#include "menubar/PanelPlacement.h"

#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

const QString CapturePanel::NotePaneId = QStringLiteral("note");
const QString CapturePanel::SearchPaneId = QStringLiteral("search");

CapturePanel::CapturePanel(UserDefaults &defaults, QWidget *parent)
    : QWidget(parent, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
    , m_defaults(defaults)
    , m_switcher(new QTabBar(this))
    , m_stack(new QStackedWidget(this))
    , m_searchChosen(defaults.value(Settings::StatusBarPaneSelectionPref))
{
    setObjectName(QStringLiteral("capturePanel"));
    //% "Capture Panel"
    setWindowTitle(qtTrId("CAPTURE_PANEL_TITLE"));
    setAccessibleName(windowTitle());
    //% "Take a quick note or look up an entry without the main window"
    setToolTip(qtTrId("CAPTURE_PANEL_TIP"));
    m_switcher->setObjectName(QStringLiteral("capturePanelPanes"));
    m_switcher->setExpanding(true);
    m_switcher->setDocumentMode(true);
    //% "Panes"
    m_switcher->setAccessibleName(qtTrId("CAPTURE_PANEL_PANES"));
    //% "Switch between the panel's panes"
    m_switcher->setToolTip(qtTrId("CAPTURE_PANEL_PANES_TIP"));
    connect(m_switcher, &QTabBar::currentChanged, this, [this](int index) {
        m_stack->setCurrentIndex(index);
        if (isVisible())
            focusCurrentPane();
    });
    // Clicking the tray icon makes the application active, and the main window comes
    // forward with it; the panel that click opened belongs on top of it.
    connect(
        qApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
            if (state == Qt::ApplicationActive && isVisible())
                QMetaObject::invokeMethod(this, &CapturePanel::bringForward, Qt::QueuedConnection);
        });
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->addWidget(m_switcher);
    layout->addWidget(m_stack, 1);
    resize(420, 460);
}

void CapturePanel::addPane(const QString &id, const QString &title, QWidget *pane)
{
    m_ids << id;
    m_stack->addWidget(pane);
    m_switcher->addTab(title);
    m_switcher->setTabToolTip(m_switcher->count() - 1, title);
    // The stored choice names the note or the search pane; any other pane is shown only
    // when the user picks it.
    const QString chosen = m_searchChosen ? SearchPaneId : NotePaneId;
    if (id == chosen)
        showPane(id);
}

QStringList CapturePanel::paneIds() const
{
    return m_ids;
}

QString CapturePanel::currentPaneId() const
{
    const int index = m_switcher->currentIndex();
    return index >= 0 && index < m_ids.size() ? m_ids.at(index) : QString();
}

QWidget *CapturePanel::pane(const QString &id) const
{
    const int index = m_ids.indexOf(id);
    return index < 0 ? nullptr : m_stack->widget(index);
}

void CapturePanel::showPane(const QString &id)
{
    const int index = m_ids.indexOf(id);
    if (index >= 0)
        m_switcher->setCurrentIndex(index);
}

void CapturePanel::toggleAttachedWindow(const QRect &iconGeometry)
{
    if (isVisible())
        closePanel();
    else
        open(iconGeometry);
}

void CapturePanel::open(const QRect &iconGeometry)
{
    Q_EMIT aboutToOpen();
    const QPoint pointer = QCursor::pos();
    const QPoint anchor = iconGeometry.isValid() ? iconGeometry.center() : pointer;
    QScreen *screen = QGuiApplication::screenAt(anchor);
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    if (screen)
        move(PanelPlacement::topLeft(iconGeometry, pointer, size(), screen->availableGeometry()));
    show();
    bringForward();
    Q_EMIT openChanged(true);
}

void CapturePanel::closePanel()
{
    if (!isVisible())
        return;
    hide();
    m_searchChosen = currentPaneId() == SearchPaneId;
    m_defaults.setValue(Settings::StatusBarPaneSelectionPref, m_searchChosen);
    Q_EMIT openChanged(false);
}

void CapturePanel::bringForward()
{
    raise();
    activateWindow();
    focusCurrentPane();
}

void CapturePanel::focusCurrentPane()
{
    if (QWidget *current = m_stack->currentWidget())
        current->setFocus(Qt::PopupFocusReason);
}

void CapturePanel::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier) {
        closePanel();
        return;
    }
    QWidget::keyPressEvent(event);
}

void CapturePanel::paintEvent(QPaintEvent *)
{
    // Frameless: a border of its own keeps the panel apart from what lies beneath.
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

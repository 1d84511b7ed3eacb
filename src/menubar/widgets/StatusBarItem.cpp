#include "StatusBarItem.h"

#include <QApplication>
#include <QIcon>
#include <QMenu>
#include <QPainter>
#include <QPalette>
#include <QSystemTrayIcon>

namespace {
constexpr int ItemSize = 22;
constexpr int ImageSize = 15;
} // namespace

StatusBarItem::StatusBarItem(QObject *parent)
    : QObject(parent)
    , m_tray(new QSystemTrayIcon(this))
    , m_menu(new QMenu)
    , m_dark(desktopIsDark())
{
    m_tray->setObjectName(QStringLiteral("statusBarItem"));
    //% "Vellox: click for the capture panel"
    m_tray->setToolTip(qtTrId("STATUSBAR_ITEM_TIP"));
    // The menu's title is never shown; it is kept as it always was.
    m_menu->setTitle(QStringLiteral("Menbar Menu"));
    m_menu->setObjectName(QStringLiteral("statusBarMenu"));
    //% "Show Main Window"
    m_mainWindow = m_menu->addAction(qtTrId("MENUBAR_ITEM_MAINWINDOW"));
    m_mainWindow->setObjectName(QStringLiteral("statusBarShowMainWindow"));
    //% "Preferences…"
    m_preferences = m_menu->addAction(qtTrId("MENUBAR_ITEM_Preferences"));
    m_preferences->setObjectName(QStringLiteral("statusBarPreferences"));
    //% "Quit Vellox"
    m_quit = m_menu->addAction(qtTrId("MENUBAR_ITEM_QUITAPP"));
    m_quit->setObjectName(QStringLiteral("statusBarQuit"));
    for (QAction *action : m_menu->actions()) {
        action->setToolTip(action->text());
        action->setShortcuts({});
    }
    connect(m_mainWindow, &QAction::triggered, this, &StatusBarItem::showAppWindow);
    connect(m_preferences, &QAction::triggered, this, &StatusBarItem::showAppPrefs);
    connect(m_quit, &QAction::triggered, this, &StatusBarItem::terminateApp);
    m_tray->setContextMenu(m_menu);
    connect(m_tray, &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                // Every click toggles; the second of a quick pair arrives as a double click.
                if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick)
                    Q_EMIT mouseDown();
            });
    // A click on an embedded tray icon activates the application, which brings the main
    // window forward over the menu that click opened.
    connect(qApp, &QGuiApplication::applicationStateChanged, m_menu,
            [menu = m_menu](Qt::ApplicationState state) {
                if (state == Qt::ApplicationActive && menu->isVisible())
                    QMetaObject::invokeMethod(menu, &QWidget::raise, Qt::QueuedConnection);
            });
    redraw();
    // The desktop switching between light and dark reaches us as a new palette.
    qApp->installEventFilter(this);
}

StatusBarItem::~StatusBarItem()
{
    delete m_menu;
}

void StatusBarItem::setClicked(bool clicked)
{
    if (m_clicked == clicked)
        return;
    m_clicked = clicked;
    redraw();
}

void StatusBarItem::setDarkAppearance(bool dark)
{
    if (m_dark == dark)
        return;
    m_dark = dark;
    redraw();
}

bool StatusBarItem::desktopIsDark()
{
    const QPalette palette = QApplication::palette();
    return palette.color(QPalette::Window).lightness() <
           palette.color(QPalette::WindowText).lightness();
}

QPixmap StatusBarItem::drawItem(bool clicked, bool dark, const QColor &selection, int size)
{
    QPixmap item(size, size);
    item.fill(clicked ? selection : QColor(Qt::transparent));
    const QString name = clicked || dark
                             ? QStringLiteral(":/statusbar/statusBarIconAlternative.svg")
                             : QStringLiteral(":/statusbar/statusBarIcon.svg");
    const int image = qMin(ImageSize * size / ItemSize + 1, size);
    const QPixmap picture = QIcon(name).pixmap(image, image);
    QPainter painter(&item);
    painter.drawPixmap((size - image) / 2, (size - image) / 2, picture);
    return item;
}

bool StatusBarItem::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange)
        setDarkAppearance(desktopIsDark());
    return QObject::eventFilter(watched, event);
}

void StatusBarItem::redraw()
{
    const QColor selection = QApplication::palette().color(QPalette::Highlight);
    m_tray->setIcon(QIcon(drawItem(m_clicked, m_dark, selection, ItemSize)));
}

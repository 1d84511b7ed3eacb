#pragma once

#include <QList>
#include <QRect>
#include <QString>
#include <QWidget>

class QStackedWidget;
class QTabBar;
class UserDefaults;

// The small panel the tray icon and the global key open: a frameless window that stays on
// top, hangs below the tray icon and holds its panes (taking a quick note, searching entry
// names) behind a switcher. Which pane shows is kept in "StatusBarPaneSelectionPref" each
// time the panel closes: off for the note pane, on for the search pane.
class CapturePanel : public QWidget
{
    Q_OBJECT
public:
    static const QString NotePaneId;
    static const QString SearchPaneId;

    explicit CapturePanel(UserDefaults &defaults, QWidget *parent = nullptr);

    // Panes show in the order they are added. The pane takes the focus through its focus
    // proxy when it is shown.
    void addPane(const QString &id, const QString &title, QWidget *pane);
    QStringList paneIds() const;
    QString currentPaneId() const;
    QWidget *pane(const QString &id) const;
    void showPane(const QString &id);
    QTabBar *paneSwitcher() const { return m_switcher; }

    // Opens the panel under the icon (near the pointer when the icon's place is unknown) or
    // closes it.
    void toggleAttachedWindow(const QRect &iconGeometry);
    bool isOpen() const { return isVisible(); }
    void closePanel();

Q_SIGNALS:
    // Before the panel shows: panes refresh what depends on the moment.
    void aboutToOpen();
    void openChanged(bool open);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void open(const QRect &iconGeometry);
    void bringForward();
    void focusCurrentPane();

    UserDefaults &m_defaults;
    QTabBar *m_switcher;
    QStackedWidget *m_stack;
    QStringList m_ids;
    bool m_searchChosen;
};

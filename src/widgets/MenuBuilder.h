#pragma once

#include "ActionTable.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>

#include <functional>

class QAction;
class QMenu;
class QMenuBar;
class QWidget;

// Makes the actions and menus of the action table, one of each per object name, and puts
// them into the menu bar and context menus. Code finds them by object name or tag only.
class MenuBuilder : public QObject
{
    Q_OBJECT
public:
    // Gives the text of an entry without a translation id (the markup language names).
    using TextProvider = std::function<QString(const ActionEntry &)>;

    // Menus are made as children of menuParent (usually the window), or owned here.
    explicit MenuBuilder(QWidget *menuParent = nullptr, QObject *parent = nullptr);
    ~MenuBuilder() override;

    void setTextProvider(TextProvider provider) { m_textProvider = std::move(provider); }

    // The action of an entry (a menu's own action for a menu), made on first use; null for
    // a name not in the table.
    QAction *action(const QString &objectName);
    // The first action or menu whose entry carries the tag; null when none does.
    QAction *actionWithTag(int tag);
    QMenu *menu(const QString &objectName);
    // The actions held by a menu or context menu, in table order (with the separators once
    // the menu is built).
    QList<QAction *> actionsIn(const QString &menuName);

    // Adds the table's top-level menus, filled, to the bar.
    void buildMenuBar(QMenuBar *bar);

    // Puts an action made by its owner (one whose text follows a state, such as undo) in
    // place of the table's own, in every menu that held it. The table's name, tooltip and
    // keys go to it where it has none of its own.
    void replaceAction(const QString &objectName, QAction *replacement);

    // A fresh action for an entry, owned by parent: for context menus built per use.
    static QAction *createAction(const ActionEntry &entry, QObject *parent,
                                 const TextProvider &textProvider = {});
    // Fresh actions for every entry of a context menu, owned by menu, in table order.
    static QList<QAction *> createContextActions(const QString &contextName, QMenu *menu);

private:
    void fill(QMenu *menu, const QString &menuName);

    QPointer<QWidget> m_menuParent;
    TextProvider m_textProvider;
    QHash<QString, QAction *> m_actions;
    QHash<QString, QPointer<QMenu>> m_menus;
    QList<QPointer<QMenu>> m_ownedMenus;
};

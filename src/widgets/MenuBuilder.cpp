#include "MenuBuilder.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace {
QString entryText(const ActionEntry &entry, const MenuBuilder::TextProvider &provider)
{
    if (entry.textId)
        return qtTrId(entry.textId);
    return provider ? provider(entry) : QString();
}

void describe(QAction *action, const ActionEntry &entry)
{
    action->setObjectName(QString::fromLatin1(entry.objectName));
    // The menu shows the text; a tooltip (or status line) says what it does.
    action->setToolTip(entry.toolTipId ? qtTrId(entry.toolTipId) : action->text());
    action->setStatusTip(action->toolTip());
    if (entry.tag)
        action->setData(entry.tag);
}
} // namespace

MenuBuilder::MenuBuilder(QWidget *menuParent, QObject *parent)
    : QObject(parent)
    , m_menuParent(menuParent)
{}

MenuBuilder::~MenuBuilder()
{
    for (const QPointer<QMenu> &menu : std::as_const(m_ownedMenus))
        delete menu.data();
}

QAction *MenuBuilder::createAction(const ActionEntry &entry, QObject *parent,
                                   const TextProvider &textProvider)
{
    auto *action = new QAction(entryText(entry, textProvider), parent);
    describe(action, entry);
    action->setCheckable(entry.checkable);
    const QList<QKeySequence> keys = entry.shortcuts();
    if (!keys.isEmpty()) {
        action->setShortcuts(keys);
        if (entry.keysShownOnly)
            action->setShortcutContext(Qt::WidgetShortcut);
    }
    return action;
}

QList<QAction *> MenuBuilder::createContextActions(const QString &contextName, QMenu *menu)
{
    QList<QAction *> actions;
    for (const ActionEntry &entry : ActionTable::entries()) {
        if (entry.kind == ActionEntry::Menu || !entry.isIn(contextName))
            continue;
        if (entry.kind == ActionEntry::Separator) {
            auto *separator = new QAction(menu);
            separator->setSeparator(true);
            actions << separator;
        } else {
            actions << createAction(entry, menu);
        }
    }
    return actions;
}

QMenu *MenuBuilder::menu(const QString &objectName)
{
    if (QMenu *existing = m_menus.value(objectName))
        return existing;
    const ActionEntry *entry = ActionTable::find(objectName);
    if (!entry || entry->kind != ActionEntry::Menu)
        return nullptr;
    auto *menu = new QMenu(entryText(*entry, m_textProvider), m_menuParent);
    menu->setObjectName(objectName);
    menu->setAccessibleName(menu->title());
    menu->setToolTipsVisible(true);
    describe(menu->menuAction(), *entry);
    if (!m_menuParent)
        m_ownedMenus << menu;
    m_menus.insert(objectName, menu);
    fill(menu, objectName);
    return menu;
}

QAction *MenuBuilder::action(const QString &objectName)
{
    if (QAction *existing = m_actions.value(objectName))
        return existing;
    const ActionEntry *entry = ActionTable::find(objectName);
    if (!entry)
        return nullptr;
    if (entry->kind == ActionEntry::Menu) {
        QMenu *made = menu(objectName);
        return made ? made->menuAction() : nullptr;
    }
    QAction *made = createAction(*entry, this, m_textProvider);
    m_actions.insert(objectName, made);
    return made;
}

QAction *MenuBuilder::actionWithTag(int tag)
{
    for (const ActionEntry &entry : ActionTable::entries()) {
        if (entry.tag == tag && entry.objectName)
            return action(QString::fromLatin1(entry.objectName));
    }
    return nullptr;
}

QList<QAction *> MenuBuilder::actionsIn(const QString &menuName)
{
    if (QMenu *built = m_menus.value(menuName))
        return built->actions();
    QList<QAction *> actions;
    for (const ActionEntry &entry : ActionTable::entries()) {
        if (entry.kind != ActionEntry::Separator && entry.isIn(menuName))
            actions << action(QString::fromLatin1(entry.objectName));
    }
    return actions;
}

void MenuBuilder::fill(QMenu *menu, const QString &menuName)
{
    for (const ActionEntry &entry : ActionTable::entries()) {
        if (!entry.isIn(menuName))
            continue;
        if (entry.kind == ActionEntry::Separator)
            menu->addSeparator();
        else
            menu->addAction(action(QString::fromLatin1(entry.objectName)));
    }
}

void MenuBuilder::buildMenuBar(QMenuBar *bar)
{
    for (const ActionEntry &entry : ActionTable::entries()) {
        if (entry.kind == ActionEntry::Menu && entry.isIn(QString()))
            bar->addMenu(menu(QString::fromLatin1(entry.objectName)));
    }
}

void MenuBuilder::replaceAction(const QString &objectName, QAction *replacement)
{
    QAction *old = action(objectName);
    const ActionEntry *entry = ActionTable::find(objectName);
    if (!old || !replacement || !entry || old == replacement)
        return;
    replacement->setObjectName(objectName);
    if (replacement->toolTip().isEmpty() || replacement->toolTip() == replacement->text())
        replacement->setToolTip(old->toolTip());
    if (replacement->shortcuts().isEmpty())
        replacement->setShortcuts(old->shortcuts());
    for (const QPointer<QMenu> &menu : std::as_const(m_menus)) {
        if (menu && menu->actions().contains(old)) {
            menu->insertAction(old, replacement);
            menu->removeAction(old);
        }
    }
    m_actions.insert(objectName, replacement);
    delete old;
}

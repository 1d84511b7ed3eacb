#pragma once

#include <QKeySequence>
#include <QList>
#include <QString>

// One row of the application's menu table: a menu, an action or a separator.
struct ActionEntry
{
    enum Kind { Menu, Action, Separator };
    Kind kind = Action;
    // Stable name that code finds the action or menu by ("actionSaveEntry", "menuFormat").
    const char *objectName = nullptr;
    // Object names of the menus that hold it, blank-separated, in which it appears in table
    // order; empty for a top-level menu of the menu bar. Context menus are named
    // "contextMenu...".
    const char *menus = "";
    // Translation id of the text; null when the owner supplies the text (language names).
    const char *textId = nullptr;
    const char *toolTipId = nullptr;
    // Portable key text ("Ctrl+]"), or a platform standard key when keys is empty.
    const char *keys = "";
    QKeySequence::StandardKey standardKey = QKeySequence::UnknownKey;
    int tag = 0;
    bool checkable = false;
    // The keys are shown in the menu, but the widget with the focus handles them itself.
    bool keysShownOnly = false;

    QList<QKeySequence> shortcuts() const;
    bool isIn(const QString &menuName) const;
};

// Every menu, menu item and context-menu item of the application, in menu order.
namespace ActionTable {
const QList<ActionEntry> &entries();
// Null when no entry has that name.
const ActionEntry *find(const QString &objectName);
} // namespace ActionTable
